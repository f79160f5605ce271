#include "toolkit/pages/htmlexport.h"

#include "tests/toolkit/pages/exporttest.h"

#include <gtest/gtest.h>

namespace {

// Between the one and the other, from each place where the first stands.
QByteArrayList between(const QByteArray& text, const QByteArray& begin, const QByteArray& end)
{
    QByteArrayList found;
    for (qsizetype at = text.indexOf(begin); at >= 0; at = text.indexOf(begin, at + 1)) {
        const qsizetype from = at + begin.size();
        found += text.mid(from, text.indexOf(end, from) - from);
    }
    return found;
}

QByteArrayList shownCells(const QByteArray& html)
{
    QByteArrayList cells;
    for (const QByteArray& cell : between(html, "<td", "</td>"))
        cells += cell.mid(cell.indexOf('>') + 1);
    return cells;
}

} // namespace

struct HtmlExport : testing::Test {
    SmallReport small;

    QByteArray html() { return small.written(writeHtml); }
};

TEST_F(HtmlExport, isOnePageWithItsTitleAndTexts)
{
    small.add("ROCK_01", "D:\\a.mp3");
    const QByteArray page = html();
    EXPECT_TRUE(page.startsWith("<!DOCTYPE html>\n<html lang=\"en\">"));
    EXPECT_TRUE(page.contains("<meta charset=\"utf-8\">"));
    EXPECT_TRUE(page.contains("<title>Small &amp; &lt;Bold&gt;</title>"));
    EXPECT_TRUE(
        page.contains("<div><p>22 November 2026</p></div>\n<div><h1>Small &amp; &lt;Bold&gt;</h1></div>"));
    EXPECT_TRUE(page.contains("<p>End of report</p>"));
    EXPECT_TRUE(page.endsWith("</html>\n"));
    for (const char* foreign : {"src=", "href=", "url(", "@import", "<script", "%p", "Of"})
        EXPECT_FALSE(page.contains(foreign)) << foreign;
}

TEST_F(HtmlExport, theTablesHeadIsRepeatedOnPaper)
{
    const QByteArray page = html();
    const QByteArray head = between(page, "<thead>", "</thead>").value(0);
    EXPECT_EQ(between(head, "<th scope=\"col\"", "</th>").size(), 3) << head.constData();
    EXPECT_TRUE(head.contains(">Content</th>"));
    EXPECT_TRUE(head.contains("class=\"rule a0\""));
    EXPECT_TRUE(head.contains(">Disk:</th>"));
    EXPECT_TRUE(head.contains(">Path:</th>"));
    EXPECT_TRUE(page.contains("thead{display:table-header-group}"));
    EXPECT_TRUE(page.contains("tr{break-inside:avoid}"));
}

TEST_F(HtmlExport, fieldsStandInTheColumnsWhereTheyBegin)
{
    small.add("v", "p");
    small.rows.groups = {0};
    const QByteArray page = html();
    EXPECT_TRUE(page.contains("<colgroup><col style=\"width:20%\"><col style=\"width:10%\">"
                              "<col style=\"width:70%\"></colgroup>"));
    EXPECT_TRUE(page.contains("<th scope=\"col\" class=\"s120 b\" colspan=\"3\">Content</th>"));
    EXPECT_TRUE(page.contains("<th scope=\"col\">Volume</th><td class=\"b\" colspan=\"2\">v</td>"));
    EXPECT_TRUE(page.contains("<tr><td colspan=\"2\">v</td><td>p</td></tr>"));
}

TEST_F(HtmlExport, aGroupIsABodyWithItsHeading)
{
    for (const char* path : {"1", "2", "3"})
        small.add("v", path);
    small.rows.groups = {0, 2};
    const QByteArrayList bodies = between(html(), "<tbody>", "</tbody>");
    ASSERT_EQ(bodies.size(), 2);
    EXPECT_EQ(shownCells(bodies[0]), (QByteArrayList{"v", "v", "1", "v", "2"}));
    EXPECT_EQ(shownCells(bodies[1]), (QByteArrayList{"v", "v", "3"}));
}

TEST_F(HtmlExport, withoutRowsItIsAnEmptyTable)
{
    EXPECT_TRUE(html().contains("<tbody>\n</tbody>"));
}

TEST_F(HtmlExport, showsWhatStandsInTheRowsAndObeysNothing)
{
    for (const QByteArray& value : hostileValues())
        small.add(std::nullopt, value);
    QByteArrayList shown = shownCells(between(html(), "<tbody>", "</tbody>").value(0));
    ASSERT_EQ(shown.size(), qsizetype(2 * hostileValues().size()));
    const auto cell = [&](int row) { return shown.at(2 * row + 1); };
    EXPECT_EQ(shown.at(0), "");
    EXPECT_EQ(cell(0), "two\nlines");
    EXPECT_EQ(cell(1), "tab here");
    EXPECT_EQ(cell(2), "nul bell ");
    EXPECT_EQ(cell(3), "escape  [31m");
    EXPECT_EQ(cell(5), "turned \xEF\xBF\xBDround");
    EXPECT_EQ(cell(7), "&lt;script&gt;alert('x')&lt;/script&gt;&amp;amp;&lt;!--");
    EXPECT_EQ(cell(8), "&quot; onclick=&quot;evil()&quot; 'single'");
    EXPECT_TRUE(cell(10).startsWith("bad \xEF\xBF\xBD\xEF\xBF\xBD UTF-8 "))
        << cell(10).toPercentEncoding().constData();
    EXPECT_EQ(cell(12), "]]&gt;&lt;/table&gt;&lt;/body&gt;");
    EXPECT_EQ(cell(13).size(), 100'003);
    EXPECT_EQ(cell(14), "\xF0\x9F\x8E\xB5 note");
}

TEST_F(HtmlExport, aLineEndsWhereItDoesOnPaper)
{
    small.add(std::nullopt, "a\nb\r\nc\rd\n\re\r");
    const QByteArray page = html();
    EXPECT_TRUE(page.contains(">a\nb\nc\nd\n\ne\n</td>"));
    EXPECT_TRUE(page.contains("white-space:pre-wrap"));
}

TEST_F(HtmlExport, eachSignIsEscapedWhereverItStands)
{
    for (const auto& [sign, shown] : {std::pair('<', "&lt;"),
                                      {'>', "&gt;"},
                                      {'&', "&amp;"},
                                      {'"', "&quot;"},
                                      {'\n', "\n"},
                                      {'\r', "\n"},
                                      {'\0', " "},
                                      {'\x7F', " "}})
        for (int at = 0; at < 17; ++at) {
            QByteArray value(17, 'v');
            value[at] = sign;
            small.rows.rows.clear();
            small.add(std::nullopt, value);
            EXPECT_TRUE(html().contains(">" + value.left(at) + shown + value.mid(at + 1) + "</td>"))
                << sign << ' ' << at;
        }
}

TEST_F(HtmlExport, aTextFromRightToLeftTurnsNothingElseRound)
{
    small.add("plain", "\xD7\xA9\xD7\x9C");
    EXPECT_TRUE(html().contains("<td colspan=\"2\">plain</td>"
                                "<td dir=\"auto\">\xD7\xA9\xD7\x9C</td>"));
}

TEST_F(HtmlExport, isValidUtf8WhateverTheRowsHold)
{
    for (int lead = 0x80; lead < 0x100; ++lead)
        for (const char* rest : {"", "a", "\x80", "\x80\x80", "\xBF\xBF\xBF", "<", "\"onload="})
            small.add(QByteArray(1, static_cast<char>(lead)) + rest, std::nullopt);
    const QByteArray page = html();
    EXPECT_EQ(QString::fromUtf8(page).toUtf8(), page);
    EXPECT_EQ(page.count("&lt;"), 128 + 2);
    EXPECT_EQ(page.count("&quot;"), 128);
}

TEST_F(HtmlExport, endsWhenItIsToldTo)
{
    for (int i = 0; i < 300'000; ++i)
        small.rows.rows.push_back({"v", "p"});
    EXPECT_EQ(small.written(writeHtml, [](double) { return false; }), "ended");
}

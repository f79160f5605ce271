#include "toolkit/pages/reportlayout.h"

#include "tests/support/pagesworld.h"

#include <gtest/gtest.h>

namespace {

// A character of the font is 5 points wide, a line 10 points high.
constexpr ReportFont kFont{10, false};

ReportField textField(const QString& text)
{
    return {.name = text, .text = text, .font = kFont};
}

ReportField columnField(int column, int left = 0, int width = 1000)
{
    return {.name = QString::number(column), .left = left, .width = width, .column = column, .font = kFont};
}

class ReportLayoutTest : public testing::Test {
protected:
    ReportLayoutTest()
    {
        report.rows = &rows;
        report.date = u"today"_qs;
        report.design.title = u"Songs"_qs;
    }

    // So many lines are between the margins.
    ReportLayout layout(int lines, double width = 100) const
    {
        return {report, widths, Paper{{width + 20, lines * 10.0 + 20}, {10, 10, 10, 10}}};
    }
    static QStringList texts(const ReportLayout& layout, int page)
    {
        QStringList found;
        for (const PageItem& item : layout.page(page))
            found += item.text;
        return found;
    }
    static QList<QStringList> pages(const ReportLayout& layout)
    {
        QList<QStringList> all;
        for (int page = 1; page <= layout.pages(); ++page)
            all += texts(layout, page);
        return all;
    }
    void addRows(int count)
    {
        for (int i = 0; i < count; ++i)
            rows.rows.push_back({QByteArray::number(i)});
    }

    TextRows rows;
    Report report;
    FixedWidths widths;
};

} // namespace

TEST_F(ReportLayoutTest, bandsStandInTheirOrder)
{
    addRows(5);
    report.design.reportHeader = {{.fields = {textField(u"report"_qs)}}};
    report.design.pageHeader = {{.fields = {textField(u"head"_qs)}}};
    report.design.detail = {{.fields = {columnField(0)}}};
    report.design.pageFooter = {{.fields = {textField(u"foot"_qs)}}};
    report.design.reportFooter = {{.fields = {textField(u"end"_qs)}}};
    EXPECT_EQ(pages(layout(5)), (QList<QStringList>{{u"report"_qs, u"head"_qs, u"0"_qs, u"1"_qs, u"foot"_qs},
                                                    {u"head"_qs, u"2"_qs, u"3"_qs, u"4"_qs, u"foot"_qs},
                                                    {u"head"_qs, u"end"_qs, u"foot"_qs}}));
}

TEST_F(ReportLayoutTest, aByteOfACellStandsOnThePageThatHasIt)
{
    rows.rows = {{"x", "y"}, {"a\nb\nc\nd\ne\nf\ng", "1\n2\n3"}, {"z", "z"}};
    rows.groups = {0, 1};
    report.design.groupHeader = {{.fields = {columnField(1)}}};
    report.design.detail = {{.fields = {columnField(0)}}, {.fields = {columnField(1)}}};
    const ReportLayout narrow = layout(4);
    const auto check = [&](const ReportField& field, const QByteArray& text) {
        for (qsizetype byte = 0; byte < text.size(); byte += 2) {
            const int page = narrow.pageOf(1, field, byte);
            EXPECT_TRUE(texts(narrow, page).contains(QString(QLatin1Char(text[byte])))) << text[byte] << page;
            EXPECT_EQ(narrow.pageOf(1, field, byte + 1), page) << "a newline belongs to its line";
        }
    };
    check(report.design.groupHeader[0].fields[0], "1\n2\n3");
    check(report.design.detail[0].fields[0], "a\nb\nc\nd\ne\nf\ng");
    check(report.design.detail[1].fields[0], "1\n2\n3");
    EXPECT_EQ(narrow.pageOf(1, report.design.groupHeader[0].fields[0], 0), narrow.pageOf(1));
    EXPECT_LT(narrow.pageOf(1), narrow.pageOf(1, report.design.detail[0].fields[0], 12));
    EXPECT_EQ(narrow.pageOf(1, report.design.detail[0].fields[0], 99),
              narrow.pageOf(1, report.design.detail[0].fields[0], 12));
}

TEST_F(ReportLayoutTest, linesStandWhereTheStripsSay)
{
    rows.rows = {{"left", "right"}};
    report.design.pageHeader = {{.above = 3, .isRule = true}};
    report.design.detail = {{.above = 2, .fields = {columnField(0, 0, 500), columnField(1, 500, 500)}},
                            {.fields = {textField(u"below"_qs)}}};
    report.design.pageFooter = {{.fields = {textField(u"foot"_qs)}}};
    const std::vector<PageItem> items = layout(10).page(1);
    ASSERT_EQ(items.size(), 5U);
    EXPECT_TRUE(items[0].isRule);
    EXPECT_EQ(items[0].place, QRectF(10, 13, 100, 1));
    EXPECT_EQ(items[1].place, QRectF(10, 16, 50, 10));
    EXPECT_EQ(items[2].place, QRectF(60, 16, 50, 10));
    EXPECT_EQ(items[3].place, QRectF(10, 26, 100, 10));
    EXPECT_EQ(items[4].place, QRectF(10, 100, 100, 10)) << "the footer stands at the paper's lower margin";
    EXPECT_EQ(items[2].row, 0);
    EXPECT_EQ(items[2].field, &report.design.detail[0].fields[1]);
    EXPECT_EQ(items[3].row, -1) << "a text shows no row";
}

TEST_F(ReportLayoutTest, anEmptyReportIsOnePageWithItsHeadersAndFooters)
{
    report.design.reportHeader = {{.fields = {textField(u"report"_qs)}}};
    report.design.pageHeader = {{.fields = {textField(u"head"_qs)}}};
    report.design.groupHeader = {{.fields = {columnField(0)}}};
    report.design.detail = {{.fields = {columnField(0)}}};
    report.design.groupFooter = {{.fields = {columnField(0)}}};
    report.design.reportFooter = {{.fields = {textField(u"end"_qs)}}};
    report.design.pageFooter = {{.fields = {textField(u"%p/%P"_qs)}}};
    const ReportLayout empty = layout(10);
    EXPECT_EQ(pages(empty), (QList<QStringList>{{u"report"_qs, u"head"_qs, u"end"_qs, u"1/1"_qs}}));
    EXPECT_EQ(empty.firstRowOf(1), 0);
}

TEST_F(ReportLayoutTest, placeholdersAreFilledInTextsAlone)
{
    rows.rows = {{"%D %p"}, {"100%"}};
    report.design.pageHeader = {{.fields = {textField(u"%i, %D: %p of %P, %% %x %"_qs)}}};
    report.design.detail = {{.fields = {columnField(0)}}};
    EXPECT_EQ(pages(layout(2, 500)), (QList<QStringList>{{u"Songs, today: 1 of 2, % %x %"_qs, u"%D %p"_qs},
                                                         {u"Songs, today: 2 of 2, % %x %"_qs, u"100%"_qs}}));
}

TEST_F(ReportLayoutTest, aValueGoesOnInTheNextLineAndTheBandGrows)
{
    rows.rows = {{"one two", "a"}, {"three", "b"}};
    report.design.detail = {{.fields = {columnField(0, 0, 300), columnField(1, 300, 700)}}};
    const std::vector<PageItem> items = layout(10).page(1);
    ASSERT_EQ(items.size(), 5U);
    EXPECT_EQ(items[1].text, u"two"_qs);
    EXPECT_EQ(items[1].line, 1);
    EXPECT_EQ(items[1].start, 4);
    EXPECT_EQ(items[1].place, QRectF(10, 20, 30, 10));
    EXPECT_EQ(items[2].place, QRectF(40, 10, 70, 10));
    EXPECT_EQ(items[3].place, QRectF(10, 30, 30, 10)) << "the next row stands below the grown one";
}

TEST_F(ReportLayoutTest, aBandThatDoesNotFitGoesToTheNextPageWhole)
{
    rows.rows = {{"a"}, {"b"}, {"one\ntwo"}, {"c"}};
    report.design.detail = {{.fields = {columnField(0)}}};
    EXPECT_EQ(pages(layout(3)), (QList<QStringList>{{u"a"_qs, u"b"_qs}, {u"one"_qs, u"two"_qs, u"c"_qs}}));
}

TEST_F(ReportLayoutTest, aBandLongerThanAPageIsCutBetweenLines)
{
    rows.rows = {{"a"}, {"1\n2\n3\n4\n5"}, {"b"}};
    report.design.pageHeader = {{.fields = {textField(u"head"_qs)}}};
    report.design.pageFooter = {{.fields = {textField(u"foot"_qs)}}};
    report.design.detail = {{.fields = {columnField(0)}}};
    const ReportLayout cut = layout(5);
    EXPECT_EQ(pages(cut), (QList<QStringList>{{u"head"_qs, u"a"_qs, u"1"_qs, u"2"_qs, u"foot"_qs},
                                              {u"head"_qs, u"3"_qs, u"4"_qs, u"5"_qs, u"foot"_qs},
                                              {u"head"_qs, u"b"_qs, u"foot"_qs}}));
    EXPECT_EQ(cut.pageOf(1), 1);
    EXPECT_EQ(cut.firstRowOf(2), 2) << "no row begins on a page in the midst of one";
    EXPECT_EQ(cut.pageOf(2), 3);
}

TEST_F(ReportLayoutTest, fieldsOfOtherSizesAreCutLineByLine)
{
    rows.rows = {{"1\n2\n3\n4", "a\nb\nc\nd\ne"}};
    ReportField large = columnField(0, 0, 500);
    large.font.size = 20;
    report.design.detail = {{.above = 5, .fields = {large, columnField(1, 500, 500)}}};
    const ReportLayout cut = layout(5);
    EXPECT_EQ(pages(cut),
              (QList<QStringList>{
                  {u"1"_qs, u"2"_qs, u"a"_qs, u"b"_qs}, {u"3"_qs, u"4"_qs, u"c"_qs, u"d"_qs}, {u"e"_qs}}));
}

TEST_F(ReportLayoutTest, aGroupsBandsStandRoundItsRows)
{
    rows.rows = {{"a"}, {"a"}, {"b"}};
    rows.groups = {0, 2};
    ReportField header = columnField(0);
    ReportField footer = columnField(0);
    report.design.groupHeader = {{.fields = {textField(u"("_qs), header}}};
    report.design.groupFooter = {{.fields = {footer, textField(u")"_qs)}}};
    report.design.detail = {{.fields = {textField(u"."_qs)}}};
    EXPECT_EQ(texts(layout(20), 1).join(QString()), u"(a..a)(b.b)"_qs);
}

TEST_F(ReportLayoutTest, aGroupsHeaderIsNeverTheLastOnItsPage)
{
    addRows(6);
    rows.groups = {0, 2, 4};
    report.design.groupHeader = {{.fields = {textField(u"group"_qs)}}};
    report.design.detail = {{.fields = {columnField(0)}}};
    const ReportLayout kept = layout(4);
    EXPECT_EQ(pages(kept), (QList<QStringList>{{u"group"_qs, u"0"_qs, u"1"_qs},
                                               {u"group"_qs, u"2"_qs, u"3"_qs},
                                               {u"group"_qs, u"4"_qs, u"5"_qs}}));
    EXPECT_EQ(kept.pageOf(2), 2);
    EXPECT_EQ(kept.firstRowOf(2), 2);
}

TEST_F(ReportLayoutTest, aGroupsHeaderStaysWithARowThatIsCut)
{
    rows.rows = {{"0\n0\n0"}, {"1\n2\n3\n4\n5\n6"}};
    rows.groups = {0, 1};
    report.design.groupHeader = {{.fields = {textField(u"group"_qs)}}};
    report.design.detail = {{.fields = {columnField(0)}}};
    EXPECT_EQ(pages(layout(5)), (QList<QStringList>{{u"group"_qs, u"0"_qs, u"0"_qs, u"0"_qs},
                                                    {u"group"_qs, u"1"_qs, u"2"_qs, u"3"_qs, u"4"_qs},
                                                    {u"5"_qs, u"6"_qs}}));
}

TEST_F(ReportLayoutTest, aReportHeaderLongerThanAPageIsCutLikeARow)
{
    addRows(2);
    report.design.reportHeader = {{.fields = {textField(u"1\n2\n3\n4\n5"_qs)}}};
    report.design.pageHeader = {{.fields = {textField(u"head"_qs)}}};
    report.design.detail = {{.fields = {columnField(0)}}};
    EXPECT_EQ(pages(layout(4)), (QList<QStringList>{{u"head"_qs, u"1"_qs, u"2"_qs, u"3"_qs},
                                                    {u"head"_qs, u"4"_qs, u"5"_qs, u"0"_qs},
                                                    {u"head"_qs, u"1"_qs}}));
}

TEST_F(ReportLayoutTest, aFieldOfAHundredThousandCharactersIsShownWhole)
{
    rows.rows = {{"a"}, {QByteArray(100'000, 'x')}, {"b"}};
    report.design.pageFooter = {{.fields = {textField(u"foot"_qs)}}};
    report.design.detail = {{.fields = {columnField(0)}}};
    const ReportLayout cut = layout(51);
    EXPECT_EQ(cut.pages(), 101); // of twenty characters a line
    qsizetype shown = 0;
    for (int page = 1; page <= cut.pages(); ++page) {
        EXPECT_EQ(cut.page(page).back().text, u"foot"_qs);
        shown += texts(cut, page).join(QString()).count(u'x');
    }
    EXPECT_EQ(shown, 100'000);
}

TEST_F(ReportLayoutTest, onPaperThatIsTooSmallThereIsALineAPage)
{
    rows.rows = {{"one two"}, {"b"}};
    report.design.reportHeader = {{.fields = {textField(u"report"_qs)}}};
    report.design.pageHeader = {{.fields = {textField(u"head"_qs)}}};
    report.design.pageFooter = {{.fields = {textField(u"foot"_qs)}}};
    report.design.detail = {{.fields = {columnField(0)}}};
    const QList<QStringList> lines = {{u"report"_qs}, {u"one"_qs}, {u"two"_qs}, {u"b"_qs}};
    EXPECT_EQ(pages(layout(1, 30)), lines);
    const ReportLayout none(report, widths, Paper{{5, 5}, {10, 10, 10, 10}});
    EXPECT_GE(none.pages(), 8);
}

TEST_F(ReportLayoutTest, manyRowsMeasuredAtOnceStandAsIfOneByOne)
{
    for (int i = 0; i < 50'000; ++i)
        rows.rows.push_back({QByteArray("one two three ").repeated(i % 4),
                             QString(i % 40, QChar(0x4E00 + i % 20'000)).toUtf8()});
    rows.rows[777] = {QByteArray(30'000, 'x'), std::nullopt};
    report.design.detail = {{.fields = {columnField(0, 0, 600), columnField(1, 600, 400)}}};
    const ReportLayout alone = layout(60);
    rows.areForThreads = true;
    const ReportLayout together = layout(60);
    ASSERT_EQ(together.pages(), alone.pages());
    for (int page = 1; page <= alone.pages(); ++page)
        ASSERT_EQ(together.firstRowOf(page), alone.firstRowOf(page));
}

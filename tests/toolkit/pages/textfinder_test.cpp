#include "toolkit/pages/textfinder.h"

#include "toolkit/pages/reportrows.h"

#include <gtest/gtest.h>

#include <QByteArrayList>

namespace {

class Rows : public ReportRows {
public:
    std::vector<QByteArrayList> rows;
    std::vector<int> groups;

    int count() const override { return static_cast<int>(rows.size()); }
    Cell cell(int row, int column) const override
    {
        const QByteArray& bytes = rows[static_cast<std::size_t>(row)][column];
        return bytes == "NULL" ? Cell() : Cell(bytes);
    }
    bool beginsGroup(int row) const override { return std::ranges::find(groups, row) != groups.end(); }
    QStringList bookmarks(int) const override { return {}; }
};

struct TextFinderTest : testing::Test {
    Rows rows;
    Report report;

    TextFinderTest()
    {
        report.rows = &rows;
        report.design.groupHeader = {{.fields = {{.text = u"Disk"_qs}, {.column = 2}}}};
        report.design.detail = {{.fields = {{.column = 1}, {.column = 0}}}};
    }
    TextFinder found(const QString& text) const
    {
        TextFinder finder(report, text);
        while (!finder.isDone())
            finder.goOn(std::chrono::milliseconds(1));
        return finder;
    }
    // "row/column:start+size" of each hit.
    std::string places(const QString& text) const
    {
        const TextFinder finder = found(text);
        QStringList all;
        for (std::int64_t i = 0; i < finder.count(); ++i) {
            const TextFinder::Hit hit = finder.hit(i);
            all += u"%1/%2:%3+%4"_qs.arg(hit.row).arg(hit.field->column).arg(hit.start).arg(hit.size);
        }
        return all.join(u' ').toStdString();
    }
};

} // namespace

TEST_F(TextFinderTest, findsWithoutCaseInTheOrderOfThePage)
{
    rows.rows = {{"A Song", "the sONg", "x"}, {"none", "none", "song"}, {"song song", "NULL", "x"}};
    EXPECT_EQ(places(u"song"_qs), "0/1:4+4 0/0:2+4 2/0:0+4 2/0:5+4");
}

TEST_F(TextFinderTest, aGroupsHeaderIsLookedAtOnceAGroup)
{
    rows.rows = {{"a", "b", "disk"}, {"a", "b", "disk"}, {"a", "b", "disk"}};
    rows.groups = {0, 2};
    EXPECT_EQ(places(u"DISK"_qs), "0/2:0+4 2/2:0+4");
    EXPECT_EQ(places(u"Disk:"_qs), "") << "a fixed text is none";
}

TEST_F(TextFinderTest, hitsDoNotOverlap)
{
    rows.rows = {{"aaaaa", "", ""}};
    EXPECT_EQ(places(u"aa"_qs), "0/0:0+2 0/0:2+2");
}

TEST_F(TextFinderTest, lettersBeyondAsciiHaveTheirCasesToo)
{
    rows.rows = {{"SJ\xC3\x98"
                  "EN sj\xC3\xB8"
                  "en",
                  "", ""},
                 {"\xE2\x84\xAA"
                  "elvin kelvin",
                  "", ""}};
    EXPECT_EQ(places(u"\u00D8EN"_qs), "0/0:2+4 0/0:9+4");
    EXPECT_EQ(places(u"kelvin"_qs), "1/0:0+8 1/0:9+6") << "the Kelvin sign is a k";
}

TEST_F(TextFinderTest, damagedBytesAreNoTextAndEndNothing)
{
    rows.rows = {{"\xFF\xFE song \xC3", "\xC3\xC3 song", ""}};
    EXPECT_EQ(places(u"song"_qs), "0/1:3+4 0/0:3+4");
}

TEST_F(TextFinderTest, tellsTheFirstHitFromARowOn)
{
    rows.rows = {{"x", "x", ""}, {"x", "", ""}, {"", "", ""}, {"x", "", ""}};
    const TextFinder finder = found(u"x"_qs);
    EXPECT_EQ(finder.count(), 4);
    EXPECT_EQ(finder.firstFrom(0), 0);
    EXPECT_EQ(finder.firstFrom(1), 2);
    EXPECT_EQ(finder.firstFrom(2), 3);
    EXPECT_EQ(finder.firstFrom(4), 4);
}

TEST_F(TextFinderTest, worksInSlicesAndKnowsWhatItCounted)
{
    rows.rows.assign(100'000, {"song", "song", "x"});
    TextFinder finder(report, u"song"_qs);
    EXPECT_FALSE(finder.isDone());
    finder.goOn(std::chrono::milliseconds(0));
    EXPECT_GT(finder.count(), 0);
    EXPECT_LT(finder.count(), 200'000);
    while (!finder.isDone())
        finder.goOn(std::chrono::milliseconds(5));
    EXPECT_EQ(finder.count(), 200'000);
    EXPECT_EQ(finder.hit(150'001).row, 75'000);
}

TEST_F(TextFinderTest, noRowsAreLookedThroughAtOnce)
{
    EXPECT_TRUE(TextFinder(report, u"x"_qs).isDone());
}

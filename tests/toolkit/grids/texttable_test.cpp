#include "toolkit/grids/texttable.h"

#include <gtest/gtest.h>

TEST(TextTable, givesBackWhatWasAppended)
{
    TextTable table(3);
    table.append({u"ROCK"_qs, u"Sjøen\tЯ\n\"'"_qs, QString()});
    table.append({QString(), QString(300, u'å'), u"c"_qs});
    EXPECT_EQ(table.rows(), 2);
    EXPECT_EQ(table.text(0, 1), u"Sjøen\tЯ\n\"'"_qs);
    EXPECT_EQ(table.text(0, 2), QString());
    EXPECT_EQ(table.text(1, 1), QString(300, u'å'));
    EXPECT_EQ(table.text(1, 2), u"c"_qs);
}

TEST(TextTable, missingValuesAreEmptyAndFurtherOnesDropped)
{
    TextTable table(2);
    table.append({u"a"_qs});
    table.append({u"a"_qs, u"b"_qs, u"c"_qs});
    EXPECT_EQ(table.text(0, 1), QString());
    EXPECT_EQ(table.text(1, 1), u"b"_qs);
}

TEST(TextTable, cellsThatDoNotExistAreEmptyAndCannotBeSet)
{
    TextTable table(2);
    table.append({u"a"_qs, u"b"_qs});
    EXPECT_EQ(table.text(-1, 0), QString());
    EXPECT_EQ(table.text(0, 2), QString());
    EXPECT_EQ(table.text(1, 0), QString());
    table.setText(5, 0, u"x"_qs);
    table.setText(0, 2, u"x"_qs);
    EXPECT_EQ(table.rows(), 1);
    EXPECT_EQ(table.text(0, 0), u"a"_qs);
}

TEST(TextTable, settingACellLeavesItsNeighbours)
{
    TextTable table(3);
    table.append({u"a"_qs, u"b"_qs, u"c"_qs});
    table.append({u"d"_qs, u"e"_qs, u"f"_qs});
    table.setText(0, 1, QString(1000, u'x'));
    EXPECT_EQ(table.text(0, 0), u"a"_qs);
    EXPECT_EQ(table.text(0, 1), QString(1000, u'x'));
    EXPECT_EQ(table.text(0, 2), u"c"_qs);
    EXPECT_EQ(table.text(1, 1), u"e"_qs);
}

TEST(TextTable, keepsALeadingByteOrderMark)
{
    TextTable table(1);
    table.append({u"\uFEFFBom"_qs});
    EXPECT_EQ(table.text(0, 0), u"\uFEFFBom"_qs);
}

TEST(TextTable, holdsRowsLargerThanABlock)
{
    TextTable table(1);
    const QString large(1'000'000, u'z');
    table.append({u"before"_qs});
    table.append({large});
    table.append({u"behind"_qs});
    EXPECT_EQ(table.text(0, 0), u"before"_qs);
    EXPECT_EQ(table.text(1, 0), large);
    EXPECT_EQ(table.text(2, 0), u"behind"_qs);
}

TEST(TextTable, isEmptyAfterClear)
{
    TextTable table(1);
    table.append({u"a"_qs});
    table.clear();
    EXPECT_EQ(table.rows(), 0);
    table.append({u"b"_qs});
    EXPECT_EQ(table.text(0, 0), u"b"_qs);
}

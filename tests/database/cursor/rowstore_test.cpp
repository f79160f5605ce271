#include "database/cursor/rowstore.h"

#include <QByteArray>

#include <gtest/gtest.h>

TEST(RowStore, keepsTextsEmptyTextsAndNulls)
{
    RowStore rows(3);
    rows.append({"one", std::nullopt, ""});
    rows.append({std::nullopt, "", QByteArrayView("a\0b", 3)});
    EXPECT_EQ(rows.rows(), 2);
    EXPECT_EQ(rows.cell(0, 0), "one");
    EXPECT_EQ(rows.cell(0, 1), std::nullopt);
    EXPECT_EQ(rows.cell(0, 2), "");
    EXPECT_EQ(rows.cell(1, 0), std::nullopt);
    EXPECT_EQ(rows.cell(1, 1), "");
    EXPECT_EQ(rows.cell(1, 2), QByteArrayView("a\0b", 3));
}

TEST(RowStore, aReplacedRowLeavesTheOthers)
{
    RowStore rows(2);
    for (const char* text : {"a", "b", "c"})
        rows.append({text, "x"});
    const QByteArray large(3'000'000, 'L');
    rows.replace(1, {std::nullopt, large});
    EXPECT_EQ(rows.cell(0, 0), "a");
    EXPECT_EQ(rows.cell(1, 0), std::nullopt);
    EXPECT_EQ(rows.cell(1, 1), large);
    EXPECT_EQ(rows.cell(2, 0), "c");
    EXPECT_EQ(rows.cell(2, 1), "x");
}

TEST(RowStore, cellsStayWhereTheyAreWhileRowsAreAdded)
{
    RowStore rows(1);
    rows.append({"first"});
    const RowStore::Cell first = rows.cell(0, 0);
    for (int i = 0; i < 200'000; ++i)
        rows.append({QByteArray::number(i)});
    EXPECT_EQ(first, "first");
    EXPECT_EQ(rows.cell(0, 0)->data(), first->data());
    EXPECT_EQ(rows.cell(200'000, 0), "199999");
}

TEST(RowStore, textsOfAnyLengthStandBesideOneAnother)
{
    RowStore rows(4);
    const std::vector<int> lengths{0, 1, 252, 253, 254, 255, 256, 65'535, 65'536};
    for (const int length : lengths)
        rows.append({"before", QByteArray(length, 'x'), std::nullopt, "behind"});
    for (int row = 0; row < rows.rows(); ++row) {
        EXPECT_EQ(rows.cell(row, 0), "before");
        EXPECT_EQ(rows.cell(row, 1), QByteArray(lengths[static_cast<std::size_t>(row)], 'x')) << row;
        EXPECT_EQ(rows.cell(row, 2), std::nullopt);
        EXPECT_EQ(rows.cell(row, 3), "behind");
    }
}

TEST(RowStore, arrangedRowsKeepTheirCells)
{
    RowStore rows(2);
    const QByteArray large(300, 'L');
    rows.append({"a", std::nullopt});
    rows.append({large, "1"});
    rows.append({"", "2"});
    rows.arrange({2, 0, 1});
    ASSERT_EQ(rows.rows(), 3);
    EXPECT_EQ(rows.cell(0, 0), "");
    EXPECT_EQ(rows.cell(0, 1), "2");
    EXPECT_EQ(rows.cell(1, 0), "a");
    EXPECT_EQ(rows.cell(1, 1), std::nullopt);
    EXPECT_EQ(rows.cell(2, 0), large);
    EXPECT_EQ(rows.cell(2, 1), "1");
    rows.append({"new", "3"});
    EXPECT_EQ(rows.cell(3, 0), "new");
}

// More than the small blocks hold, with rows that are larger than any block in between.
TEST(RowStore, manyRowsOfAllSizesStay)
{
    RowStore rows(2);
    const QByteArray large(5'000'000, 'L');
    for (int i = 0; i < 40; ++i) {
        rows.append({QByteArray::number(i), QByteArray(700'000, static_cast<char>('a' + i % 26))});
        if (i % 13 == 0)
            rows.append({"large", large});
    }
    for (int row = 0, i = 0; i < 40; ++i) {
        EXPECT_EQ(rows.cell(row, 0), QByteArray::number(i));
        EXPECT_EQ(rows.cell(row++, 1), QByteArray(700'000, static_cast<char>('a' + i % 26)));
        if (i % 13 == 0) {
            EXPECT_EQ(rows.cell(row++, 1), large);
        }
    }
}

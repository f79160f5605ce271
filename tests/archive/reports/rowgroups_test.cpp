#include "archive/reports/rowgroups.h"

#include <QByteArray>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

namespace {

using Cell = std::optional<QByteArray>;
using Row = std::vector<Cell>;

RowStore storeOf(const std::vector<Row>& rows)
{
    RowStore store(rows.empty() ? 1 : static_cast<int>(rows.front().size()));
    for (const Row& row : rows)
        store.append(std::vector<RowStore::Cell>(row.begin(), row.end()));
    return store;
}

// The cells of the last column, a "/" before each group.
QByteArray grouped(const std::vector<Row>& rows, const std::vector<int>& columns)
{
    RowStore store = storeOf(rows);
    const std::vector<bool> begins = groupRows(store, columns);
    QByteArray texts;
    for (int row = 0; row < store.rows(); ++row) {
        texts += begins[static_cast<std::size_t>(row)] ? "/" : "";
        texts += store.cell(row, store.columns() - 1).value_or("").toByteArray();
    }
    return texts;
}

} // namespace

TEST(RowGroups, standInTheOrderInWhichTheyFirstAppear)
{
    EXPECT_EQ(grouped({{"B", "x", "1"}, {"A", "x", "2"}, {"B", "x", "3"}, {"A", "y", "4"}, {"A", "x", "5"}},
                      {0, 1}),
              "/13/25/4");
    EXPECT_EQ(grouped({{"B", "1"}, {"B", "2"}, {"A", "3"}}, {0}), "/12/3");
    EXPECT_EQ(grouped({}, {0}), "");
}

TEST(RowGroups, areEqualByteForByteAndANullIsAValueOfItsOwn)
{
    const QByteArray withNull("a\0", 2);
    EXPECT_EQ(grouped({{"a", "1"},
                       {"A", "2"},
                       {"a ", "3"},
                       {"\xC3\xA4", "4"},
                       {"a\xCC\x88", "5"},
                       {withNull, "6"},
                       {"", "7"},
                       {" ", "8"},
                       {std::nullopt, "9"},
                       {"a", "x"},
                       {std::nullopt, "y"},
                       {"", "z"}},
                      {0}),
              "/1x/2/3/4/5/6/7z/8/9y");
}

TEST(RowGroups, whatStandsInOneColumnIsNotTakenForTheOther)
{
    EXPECT_EQ(grouped({{"ab", "c", "1"},
                       {"a", "bc", "2"},
                       {"abc", "", "3"},
                       {"", "abc", "4"},
                       {std::nullopt, "abc", "5"},
                       {"abc", std::nullopt, "6"},
                       {"c", "ab", "7"}},
                      {0, 1}),
              "/1/2/3/4/5/6/7");
}

// Against the standard library's map, on rows of few and of many groups.
TEST(RowGroups, areThoseOfAPlainMap)
{
    std::mt19937 random(3);
    for (const unsigned kinds : {1U, 3U, 50U, 3000U}) {
        std::vector<Row> rows;
        for (int i = 0; i < 3000; ++i)
            rows.push_back({random() % 9 == 0 ? Cell() : QByteArray::number(random() % kinds),
                            QByteArray(static_cast<qsizetype>(random() % 2), 'x'),
                            QByteArray::number(i) + ' '});
        std::map<Row, std::pair<std::size_t, QByteArray>> known;
        for (const Row& row : rows)
            known.try_emplace({row[0], row[1]}, known.size(), "").first->second.second += *row[2];
        std::vector<QByteArray> expected(known.size());
        for (const auto& [values, group] : known)
            expected[group.first] = '/' + group.second;
        EXPECT_EQ(grouped(rows, {0, 1}), QByteArrayList(expected.begin(), expected.end()).join());
    }
}

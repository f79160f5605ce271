#include "archive/reports/rowgroups.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <string_view>

namespace {

using Hash = std::uint64_t;

constexpr Hash kHashOfNull = 0x9E3779B97F4A7C15;
constexpr Hash kFactor = 0xFF51AFD7ED558CCD; // spreads each bit over all that are higher

Hash hashOf(const RowStore::Cell& cell)
{
    if (!cell)
        return kHashOfNull;
    return std::hash<std::string_view>()({cell->data(), static_cast<std::size_t>(cell->size())});
}

// Numbers the groups from 0 as they come. Hashes find a group, the bytes tell whether it is the same.
class Groups {
public:
    Groups(const RowStore& rows, const std::vector<int>& columns) : m_rows(rows), m_columns(columns)
    {
        std::size_t size = 16;
        while (size < 2 * static_cast<std::size_t>(rows.rows()))
            size *= 2;
        m_slots.resize(size);
    }

    int count() const { return static_cast<int>(m_firstRows.size()); }

    int numberOf(int row)
    {
        const Hash hash = hashOfRow(row);
        const auto tag = static_cast<std::uint32_t>(hash >> 32);
        std::size_t at = hash & (m_slots.size() - 1);
        for (; m_slots[at].number >= 0; at = (at + 1) & (m_slots.size() - 1))
            if (m_slots[at].tag == tag && isSame(firstRowOf(m_slots[at].number), row))
                return m_slots[at].number;
        m_slots[at] = {tag, count()};
        m_firstRows.push_back(row);
        return m_slots[at].number;
    }

private:
    struct Slot {
        std::uint32_t tag = 0;
        int number = -1; // of the group
    };

    int firstRowOf(int number) const { return m_firstRows[static_cast<std::size_t>(number)]; }

    Hash hashOfRow(int row) const
    {
        Hash hash = 0;
        for (const int column : m_columns)
            hash = (hash ^ hashOf(m_rows.cell(row, column))) * kFactor;
        return hash ^ hash >> 32;
    }

    bool isSame(int a, int b) const
    {
        return std::all_of(m_columns.begin(), m_columns.end(),
                           [&](int column) { return m_rows.cell(a, column) == m_rows.cell(b, column); });
    }

    const RowStore& m_rows;
    const std::vector<int>& m_columns;
    std::vector<Slot> m_slots;
    std::vector<int> m_firstRows;
};

// Returns the rows by their groups' numbers.
std::vector<int> orderOf(const std::vector<int>& numbers, int groups)
{
    std::vector<int> places(static_cast<std::size_t>(groups) + 1);
    for (const int number : numbers)
        ++places[static_cast<std::size_t>(number) + 1];
    std::partial_sum(places.begin(), places.end(), places.begin());
    std::vector<int> order(numbers.size());
    for (std::size_t row = 0; row < numbers.size(); ++row)
        order[static_cast<std::size_t>(places[static_cast<std::size_t>(numbers[row])]++)] =
            static_cast<int>(row);
    return order;
}

std::vector<bool> beginnings(const std::vector<int>& numbers, const std::vector<int>& order)
{
    std::vector<bool> begins(order.size());
    int before = -1;
    for (std::size_t place = 0; place < order.size(); ++place) {
        const int number = numbers[static_cast<std::size_t>(order[place])];
        begins[place] = number != before;
        before = number;
    }
    return begins;
}

} // namespace

std::vector<bool> groupRows(RowStore& rows, const std::vector<int>& columns)
{
    std::vector<int> numbers(static_cast<std::size_t>(rows.rows()));
    Groups groups(rows, columns);
    for (int row = 0; row < rows.rows(); ++row)
        numbers[static_cast<std::size_t>(row)] = groups.numberOf(row);
    const std::vector<int> order = orderOf(numbers, groups.count());
    if (!std::is_sorted(order.begin(), order.end()))
        rows.arrange(order);
    return beginnings(numbers, order);
}

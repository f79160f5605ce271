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

std::vector<Hash> hashesOf(const RowStore& rows, const std::vector<int>& columns)
{
    std::vector<Hash> hashes(static_cast<std::size_t>(rows.rows()));
    for (int row = 0; row < rows.rows(); ++row) {
        Hash hash = 0;
        for (const int column : columns)
            hash = (hash ^ hashOf(rows.cell(row, column))) * kFactor;
        hashes[static_cast<std::size_t>(row)] = hash ^ hash >> 32;
    }
    return hashes;
}

// Numbers the groups from 0 as they come. Hashes find a group, the bytes tell whether it is the same.
class Groups {
public:
    Groups(const RowStore& rows, const std::vector<int>& columns)
        : m_rows(rows), m_columns(columns), m_hashes(hashesOf(rows, columns))
    {
        std::size_t size = 16;
        while (size < 2 * m_hashes.size())
            size *= 2;
        m_slots.resize(size);
    }

    int count() const { return static_cast<int>(m_firstRows.size()); }

    // The table is larger than what a processor keeps at hand: a row's place is fetched some rows ahead.
    std::vector<int> numbers()
    {
        constexpr std::size_t kAhead = 16;
        std::vector<int> numbers(m_hashes.size());
        for (std::size_t row = 0; row < numbers.size(); ++row) {
            if (row + kAhead < numbers.size())
                __builtin_prefetch(&m_slots[placeOf(m_hashes[row + kAhead])]);
            numbers[row] = numberOf(static_cast<int>(row), m_hashes[row]);
        }
        return numbers;
    }

private:
    struct Slot {
        std::uint32_t tag = 0;
        int number = -1; // of the group
    };

    std::size_t placeOf(Hash hash) const { return hash & (m_slots.size() - 1); }
    int firstRowOf(int number) const { return m_firstRows[static_cast<std::size_t>(number)]; }

    int numberOf(int row, Hash hash)
    {
        const auto tag = static_cast<std::uint32_t>(hash >> 32);
        std::size_t at = placeOf(hash);
        for (; m_slots[at].number >= 0; at = placeOf(at + 1))
            if (m_slots[at].tag == tag && isSame(firstRowOf(m_slots[at].number), row))
                return m_slots[at].number;
        m_slots[at] = {tag, count()};
        m_firstRows.push_back(row);
        return m_slots[at].number;
    }

    bool isSame(int a, int b) const
    {
        return std::all_of(m_columns.begin(), m_columns.end(),
                           [&](int column) { return m_rows.cell(a, column) == m_rows.cell(b, column); });
    }

    const RowStore& m_rows;
    const std::vector<int>& m_columns;
    std::vector<Hash> m_hashes;
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
    Groups groups(rows, columns);
    const std::vector<int> numbers = groups.numbers();
    const std::vector<int> order = orderOf(numbers, groups.count());
    if (!std::is_sorted(order.begin(), order.end()))
        rows.arrange(order);
    return beginnings(numbers, order);
}

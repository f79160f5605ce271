#include "database/cursor/roworder.h"

#include "database/connection/archivecollation.h"

#include <algorithm>
#include <numeric>
#include <string_view>
#include <unordered_map>

namespace {

constexpr std::size_t kNoText = 0; // the rank of nulls

// Numbers the distinct texts of a column from 1 as they come.
class Texts {
public:
    std::size_t numberOf(RowStore::Cell cell)
    {
        if (!cell)
            return kNoText;
        const std::string_view text(cell->data(), static_cast<std::size_t>(cell->size()));
        const auto [place, isNew] = m_numbers.try_emplace(text, m_texts.size() + 1);
        if (isNew)
            m_texts.push_back(text);
        return place->second;
    }

    // Ranks go by number: texts that count as equal have the same rank.
    std::vector<std::size_t> ranks() const
    {
        ArchiveOrder order(ArchiveOrder::userCollator());
        const auto compare = [&](std::size_t a, std::size_t b) { return order.compare(view(a), view(b)); };
        std::vector<std::size_t> sorted(m_texts.size());
        std::iota(sorted.begin(), sorted.end(), std::size_t{1});
        std::sort(sorted.begin(), sorted.end(),
                  [&](std::size_t a, std::size_t b) { return compare(a, b) < 0; });
        std::vector<std::size_t> ranks(m_texts.size() + 1, kNoText);
        std::size_t rank = kNoText;
        for (std::size_t i = 0; i < sorted.size(); ++i) {
            if (i == 0 || compare(sorted[i - 1], sorted[i]) != 0)
                ++rank;
            ranks[sorted[i]] = rank;
        }
        return ranks;
    }

private:
    QByteArrayView view(std::size_t number) const
    {
        const std::string_view text = m_texts[number - 1];
        return {text.data(), static_cast<qsizetype>(text.size())};
    }

    std::unordered_map<std::string_view, std::size_t> m_numbers;
    std::vector<std::string_view> m_texts;
};

// Places rows by their keys, which count from 0; equal ones keep their order.
std::vector<int> countingSort(const std::vector<std::size_t>& keys, std::size_t keyCount)
{
    std::vector<int> ends(keyCount + 1);
    for (const std::size_t key : keys)
        ++ends[key + 1];
    std::partial_sum(ends.begin(), ends.end(), ends.begin());
    std::vector<int> rows(keys.size());
    for (std::size_t row = 0; row < keys.size(); ++row)
        rows[static_cast<std::size_t>(ends[keys[row]]++)] = static_cast<int>(row);
    return rows;
}

} // namespace

std::vector<int> rowsInOrder(const RowStore& rows, int column)
{
    Texts texts;
    std::vector<std::size_t> keys(static_cast<std::size_t>(rows.rows()));
    for (int row = 0; row < rows.rows(); ++row)
        keys[static_cast<std::size_t>(row)] = texts.numberOf(rows.cell(row, column));
    const std::vector<std::size_t> ranks = texts.ranks();
    for (std::size_t& key : keys)
        key = ranks[key];
    return countingSort(keys, ranks.size() + 1);
}

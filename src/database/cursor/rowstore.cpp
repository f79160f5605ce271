#include "database/cursor/rowstore.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr std::size_t kBlock = std::size_t{512} * 1024;

} // namespace

// A row lies within one block; a large one gets a block of its own size.
char* RowStore::room(std::size_t size)
{
    if (size > m_left) {
        m_left = std::max(size, kBlock);
        m_blocks.emplace_back(new char[m_left]); // not cleared: make_unique would write every page
        m_free = m_blocks.back().get();
    }
    char* const place = m_free;
    m_free += size;
    m_left -= size;
    return place;
}

const char* RowStore::keep(const std::vector<Cell>& cells)
{
    std::size_t size = 0;
    for (const Cell& cell : cells)
        size += cell ? static_cast<std::size_t>(cell->size()) : 0;
    char* const start = room(size);
    char* place = start;
    for (const Cell& cell : cells) {
        if (!cell || cell->isEmpty())
            continue;
        std::memcpy(place, cell->data(), static_cast<std::size_t>(cell->size()));
        place += cell->size();
    }
    return start;
}

std::size_t RowStore::firstLengthOf(int row) const
{
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(m_columns);
}

void RowStore::setLengths(int row, const std::vector<Cell>& cells)
{
    Length* length = m_lengths.data() + firstLengthOf(row);
    for (const Cell& cell : cells)
        *length++ = cell ? static_cast<Length>(cell->size()) : kNull;
}

void RowStore::append(const std::vector<Cell>& cells)
{
    m_starts.push_back(keep(cells));
    m_lengths.resize(m_lengths.size() + static_cast<std::size_t>(m_columns));
    setLengths(rows() - 1, cells);
}

void RowStore::replace(int row, const std::vector<Cell>& cells)
{
    m_starts[static_cast<std::size_t>(row)] = keep(cells);
    setLengths(row, cells);
}

RowStore::Cell RowStore::cell(int row, int column) const
{
    const Length* length = m_lengths.data() + firstLengthOf(row);
    const char* start = m_starts[static_cast<std::size_t>(row)];
    for (int before = 0; before < column; ++before, ++length)
        if (*length != kNull)
            start += *length;
    if (*length == kNull)
        return std::nullopt;
    return QByteArrayView(start, static_cast<qsizetype>(*length));
}

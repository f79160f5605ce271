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

RowStore::Length RowStore::lengthOf(const Cell& cell)
{
    if (!cell)
        return kNull;
    return cell->size() < kLong ? static_cast<Length>(cell->size()) : kLong;
}

std::size_t RowStore::sizeOf(const Cell& cell)
{
    const std::size_t size = cell ? static_cast<std::size_t>(cell->size()) : 0;
    return lengthOf(cell) == kLong ? sizeof(LongLength) + size : size;
}

char* RowStore::write(char* place, const Cell& cell)
{
    if (!cell || cell->isEmpty())
        return place;
    if (lengthOf(cell) == kLong) {
        const auto length = static_cast<LongLength>(cell->size());
        std::memcpy(place, &length, sizeof length);
        place += sizeof length;
    }
    std::memcpy(place, cell->data(), static_cast<std::size_t>(cell->size()));
    return place + cell->size();
}

QByteArrayView RowStore::read(const char* place, Length length)
{
    if (length != kLong)
        return {place, length == kNull ? 0 : static_cast<qsizetype>(length)};
    LongLength size = 0;
    std::memcpy(&size, place, sizeof size);
    return {place + sizeof size, static_cast<qsizetype>(size)};
}

const char* RowStore::keep(const std::vector<Cell>& cells)
{
    std::size_t size = 0;
    for (const Cell& cell : cells)
        size += sizeOf(cell);
    char* const start = room(size);
    char* place = start;
    for (const Cell& cell : cells)
        place = write(place, cell);
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
        *length++ = lengthOf(cell);
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

void RowStore::arrange(const std::vector<int>& order)
{
    std::vector<const char*> starts;
    std::vector<Length> lengths;
    starts.reserve(m_starts.size());
    lengths.reserve(m_lengths.size());
    for (const int row : order) {
        starts.push_back(m_starts[static_cast<std::size_t>(row)]);
        const Length* first = m_lengths.data() + firstLengthOf(row);
        lengths.insert(lengths.end(), first, first + m_columns);
    }
    m_starts = std::move(starts);
    m_lengths = std::move(lengths);
}

RowStore::Cell RowStore::cell(int row, int column) const
{
    const Length* length = m_lengths.data() + firstLengthOf(row);
    const char* place = m_starts[static_cast<std::size_t>(row)];
    for (int before = 0; before < column; ++before)
        place = read(place, *length++).end();
    if (*length == kNull)
        return std::nullopt;
    return read(place, *length);
}

#include "database/cursor/rowstore.h"

#include <algorithm>
#include <cstdlib>
#include <new>

#include <sys/mman.h>

namespace {

constexpr std::size_t kSmallBlock = std::size_t{512} * 1024;
constexpr std::size_t kLargeBlock = std::size_t{4} * 1024 * 1024;
constexpr std::size_t kLargePage = std::size_t{2} * 1024 * 1024;
constexpr std::size_t kSmallBlocks = 16;

// Of many rows the system gives each page of 4 KB by itself, which takes a third of the time that they take
// to be fetched; it is asked for large ones. That is a wish: nothing depends on it.
void* largeBlock()
{
    void* const block = std::aligned_alloc(kLargePage, kLargeBlock);
    if (block)
        madvise(block, kLargeBlock, MADV_HUGEPAGE);
    return block;
}

} // namespace

void RowStore::FreeBlock::operator()(char* block) const noexcept
{
    std::free(block);
}

void RowStore::addBlock(std::size_t size)
{
    const bool isLarge = m_blocks.size() >= kSmallBlocks && size <= kLargeBlock;
    const std::size_t room = isLarge ? kLargeBlock : std::max(size, kSmallBlock);
    Block block(static_cast<char*>(isLarge ? largeBlock() : std::malloc(room)));
    if (!block)
        throw std::bad_alloc();
    m_blocks.push_back(std::move(block));
    m_free = m_blocks.back().get();
    m_left = room;
}

// A row lies within one block; a large one gets a block of its own size.
char* RowStore::room(std::size_t size)
{
    if (size > m_left)
        addBlock(size);
    char* const place = m_free;
    m_free += size;
    m_left -= size;
    return place;
}

const char* RowStore::keep(const std::vector<Cell>& cells)
{
    std::size_t size = 0;
    for (const Cell& cell : cells)
        size += storedcell::sizeOf(cell);
    char* const start = room(size);
    char* place = start;
    for (const Cell& cell : cells)
        place = storedcell::write(place, cell);
    return start;
}

void RowStore::setLengths(int row, const std::vector<Cell>& cells)
{
    Length* length = m_lengths.data() + firstLengthOf(row);
    for (const Cell& cell : cells)
        *length++ = storedcell::lengthOf(cell);
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

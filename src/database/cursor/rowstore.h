// Keeps the cells of many rows in little space: the texts of a row one behind the other as UTF-8, and one
// byte a cell beside them.
#pragma once

#include "database/cursor/storedcell.h"

#include <memory>
#include <vector>

class RowStore {
public:
    using Cell = storedcell::Cell;

    RowStore() = default;
    explicit RowStore(int columns) : m_columns(columns) {}

    int columns() const { return m_columns; }
    int rows() const { return static_cast<int>(m_starts.size()); }

    // Takes as many cells as there are columns.
    void append(const std::vector<Cell>& cells);
    // The old cells' room is not used again.
    void replace(int row, const std::vector<Cell>& cells);
    // Puts the rows in that order, which names each once. Texts stay where they are.
    void arrange(const std::vector<int>& order);

    // The text is valid as long as the store is. Row and column count from 0 and must be there.
    Cell cell(int row, int column) const
    {
        const Length* length = m_lengths.data() + firstLengthOf(row);
        const char* place = m_starts[static_cast<std::size_t>(row)];
        for (int before = 0; before < column; ++before)
            place = storedcell::read(place, *length++).end();
        if (*length == storedcell::kNull)
            return std::nullopt;
        return storedcell::read(place, *length);
    }

private:
    using Length = storedcell::Length;
    struct FreeBlock {
        void operator()(char* block) const noexcept;
    };
    using Block = std::unique_ptr<char, FreeBlock>;

    const char* keep(const std::vector<Cell>& cells);
    std::size_t firstLengthOf(int row) const
    {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(m_columns);
    }
    void setLengths(int row, const std::vector<Cell>& cells);
    char* room(std::size_t size);
    void addBlock(std::size_t size);

    int m_columns = 0;
    std::vector<Block> m_blocks;
    char* m_free = nullptr; // in the last block
    std::size_t m_left = 0;
    std::vector<const char*> m_starts; // of each row's texts
    std::vector<Length> m_lengths;     // row by row
};

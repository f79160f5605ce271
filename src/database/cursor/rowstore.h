// Keeps the cells of many rows in little space: the texts of a row one behind the other as UTF-8, and one
// byte a cell beside them.
#pragma once

#include <QByteArrayView>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

class RowStore {
public:
    using Cell = std::optional<QByteArrayView>; // nothing stands for a null

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
    Cell cell(int row, int column) const;

private:
    using Length = std::uint8_t;
    using LongLength = std::uint32_t;     // SQLite lets no text be longer than it tells
    static constexpr Length kLong = 0xFE; // the length stands before the text
    static constexpr Length kNull = 0xFF;

    static Length lengthOf(const Cell& cell);
    static std::size_t sizeOf(const Cell& cell);
    static char* write(char* place, const Cell& cell);
    static QByteArrayView read(const char* place, Length length);
    const char* keep(const std::vector<Cell>& cells);
    std::size_t firstLengthOf(int row) const;
    void setLengths(int row, const std::vector<Cell>& cells);
    char* room(std::size_t size);

    int m_columns = 0;
    std::vector<std::unique_ptr<char[]>> m_blocks;
    char* m_free = nullptr; // in the last block
    std::size_t m_left = 0;
    std::vector<const char*> m_starts; // of each row's texts
    std::vector<Length> m_lengths;     // row by row
};

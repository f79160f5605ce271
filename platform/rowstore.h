// The cells of many rows in little space: their texts one behind the other as UTF-8, four bytes a cell beside
// them.
#pragma once

#include <QByteArrayView>

#include <cstdint>
#include <optional>
#include <vector>

class RowStore {
public:
    RowStore() = default;
    explicit RowStore(int columns) : m_columns(columns) {}

    int columns() const { return m_columns; }
    int rows() const { return static_cast<int>(m_starts.size()); }

    // A row is begun and then given all its cells, in order. Nothing stands for a null.
    void beginRow() { m_starts.push_back(m_text.size()); }
    void addCell(std::optional<QByteArrayView> text);

    // Valid until a cell is added. Row and column count from 0 and must be there.
    std::optional<QByteArrayView> cell(int row, int column) const;

private:
    using Length = std::uint32_t;
    static constexpr Length kNull = 0xFFFFFFFF; // longer than the engine lets a text be

    const Length* lengths(int row) const;

    int m_columns = 0;
    std::vector<char> m_text;
    std::vector<std::size_t> m_starts; // of each row in the text
    std::vector<Length> m_lengths;     // row by row
};

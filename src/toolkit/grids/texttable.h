// Keeps rows of texts as UTF-8, one row behind the other, in little more memory than the texts themselves.
#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

class TextTable {
public:
    explicit TextTable(int columns) : m_columns(columns) {}

    int rows() const { return static_cast<int>(m_rows.size()); }
    int columns() const { return m_columns; }

    // Missing values are empty, values beyond the last column are dropped.
    void append(const QStringList& values);
    // Returns an empty text for a cell that does not exist.
    QString text(int row, int column) const;
    // Returns the same; it stands until the text is set or all are cleared.
    QByteArrayView utf8(int row, int column) const;
    void setText(int row, int column, const QString& text);
    void clear();

private:
    // A row is, for each column, the length of its text (seven bits a byte, the last byte below 128), then
    // the texts.
    const char* store(const QStringList& values);
    char* reserve(std::size_t size);

    int m_columns;
    std::vector<const char*> m_rows;
    std::vector<std::unique_ptr<char[]>> m_blocks;
    char* m_next = nullptr;
    std::size_t m_left = 0;
    std::vector<std::size_t> m_lengths; // of the row being stored
    std::vector<char> m_bytes;
};

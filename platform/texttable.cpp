#include "platform/texttable.h"

#include <cstring>

namespace {

constexpr std::size_t kBlock = std::size_t{256} * 1024;

std::size_t lengthBytes(std::size_t length)
{
    std::size_t bytes = 1;
    for (; length >= 128; length >>= 7)
        ++bytes;
    return bytes;
}

char* putLength(char* out, std::size_t length)
{
    for (; length >= 128; length >>= 7)
        *out++ = static_cast<char>(length | 128);
    *out++ = static_cast<char>(length);
    return out;
}

const char* getLength(const char* in, std::size_t& length)
{
    length = 0;
    for (int shift = 0;; shift += 7) {
        const auto byte = static_cast<unsigned char>(*in++);
        length |= std::size_t{byte & 127U} << shift;
        if (byte < 128)
            return in;
    }
}

// The library's own conversion takes a first U+FEFF for a byte order mark and drops it.
QString textOf(const char* bytes, qsizetype length)
{
    constexpr char kMark[] = "\xEF\xBB\xBF";
    constexpr qsizetype kMarkLength = 3;
    if (length < kMarkLength || std::memcmp(bytes, kMark, kMarkLength) != 0)
        return QString::fromUtf8(bytes, length);
    return QChar(u'\uFEFF') + QString::fromUtf8(bytes + kMarkLength, length - kMarkLength);
}

} // namespace

char* TextTable::reserve(std::size_t size)
{
    if (size > kBlock / 4) { // a block of its own, so that none is left half empty
        m_blocks.push_back(std::make_unique_for_overwrite<char[]>(size));
        return m_blocks.back().get();
    }
    if (size > m_left) {
        m_blocks.push_back(std::make_unique_for_overwrite<char[]>(kBlock));
        m_next = m_blocks.back().get();
        m_left = kBlock;
    }
    char* place = m_next;
    m_next += size;
    m_left -= size;
    return place;
}

const char* TextTable::store(const QStringList& values)
{
    std::vector<QByteArray> texts;
    texts.reserve(static_cast<std::size_t>(m_columns));
    std::size_t size = 0;
    for (int column = 0; column < m_columns; ++column) {
        texts.push_back(column < values.size() ? values[column].toUtf8() : QByteArray());
        const auto length = static_cast<std::size_t>(texts.back().size());
        size += lengthBytes(length) + length;
    }
    char* const row = reserve(size);
    char* out = row;
    for (const QByteArray& text : texts)
        out = putLength(out, static_cast<std::size_t>(text.size()));
    for (const QByteArray& text : texts)
        out = std::copy(text.cbegin(), text.cend(), out);
    return row;
}

void TextTable::append(const QStringList& values)
{
    m_rows.push_back(store(values));
}

QString TextTable::text(int row, int column) const
{
    if (row < 0 || row >= rows() || column < 0 || column >= m_columns)
        return {};
    const char* in = m_rows[static_cast<std::size_t>(row)];
    std::size_t before = 0;
    std::size_t length = 0;
    for (int i = 0; i < m_columns; ++i) {
        std::size_t current = 0;
        in = getLength(in, current);
        if (i < column)
            before += current;
        else if (i == column)
            length = current;
    }
    return textOf(in + before, static_cast<qsizetype>(length));
}

void TextTable::setText(int row, int column, const QString& text)
{
    if (row < 0 || row >= rows() || column < 0 || column >= m_columns)
        return;
    QStringList values;
    for (int i = 0; i < m_columns; ++i)
        values += i == column ? text : this->text(row, i);
    m_rows[static_cast<std::size_t>(row)] = store(values); // the old row's bytes stay unused until clear()
}

void TextTable::clear()
{
    m_rows.clear();
    m_blocks.clear();
    m_next = nullptr;
    m_left = 0;
}

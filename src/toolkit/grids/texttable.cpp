#include "toolkit/grids/texttable.h"

#include <algorithm>
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

// Most texts are ASCII alone and need no conversion.
void appendUtf8(std::vector<char>& bytes, const QString& text)
{
    const std::size_t before = bytes.size();
    for (const QChar c : text) {
        if (c.unicode() >= 128) {
            bytes.resize(before);
            const QByteArray converted = text.toUtf8();
            bytes.insert(bytes.end(), converted.begin(), converted.end());
            return;
        }
        bytes.push_back(static_cast<char>(c.unicode()));
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
    m_lengths.clear();
    m_bytes.clear();
    for (int column = 0; column < m_columns; ++column) {
        const std::size_t before = m_bytes.size();
        if (column < values.size())
            appendUtf8(m_bytes, values[column]);
        m_lengths.push_back(m_bytes.size() - before);
    }
    std::size_t size = m_bytes.size();
    for (const std::size_t length : m_lengths)
        size += lengthBytes(length);
    char* const row = reserve(size);
    char* out = row;
    for (const std::size_t length : m_lengths)
        out = putLength(out, length);
    std::copy(m_bytes.begin(), m_bytes.end(), out);
    return row;
}

void TextTable::append(const QStringList& values)
{
    m_rows.push_back(store(values));
}

QString TextTable::text(int row, int column) const
{
    const QByteArrayView bytes = utf8(row, column);
    return textOf(bytes.data(), bytes.size());
}

QByteArrayView TextTable::utf8(int row, int column) const
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
    return {in + before, static_cast<qsizetype>(length)};
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

#include "platform/rowstore.h"

void RowStore::addCell(std::optional<QByteArrayView> text)
{
    m_lengths.push_back(text ? static_cast<Length>(text->size()) : kNull);
    if (text)
        m_text.insert(m_text.end(), text->begin(), text->end());
}

const RowStore::Length* RowStore::lengths(int row) const
{
    return m_lengths.data() + static_cast<std::size_t>(row) * static_cast<std::size_t>(m_columns);
}

std::optional<QByteArrayView> RowStore::cell(int row, int column) const
{
    const Length* length = lengths(row);
    std::size_t start = m_starts[static_cast<std::size_t>(row)];
    for (int before = 0; before < column; ++before, ++length)
        if (*length != kNull)
            start += *length;
    if (*length == kNull)
        return std::nullopt;
    return QByteArrayView(m_text.data() + start, static_cast<qsizetype>(*length));
}

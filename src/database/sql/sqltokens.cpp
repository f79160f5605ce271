#include "database/sql/sqltokens.h"

namespace {

bool isWordByte(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9') ||
           byte == '_' || byte == '$' || byte >= 0x80;
}

} // namespace

bool SqlToken::isWord() const
{
    return !text.isEmpty() && isWordByte(text.front()) && (text.front() < '0' || text.front() > '9');
}

SqlToken SqlTokens::next()
{
    skipIdle();
    const qsizetype from = m_at;
    if (m_at < m_text.size())
        skipToken();
    return {m_text.sliced(from, m_at - from), from};
}

void SqlTokens::skipPast(QByteArrayView end, qsizetype from)
{
    const qsizetype found = m_text.sliced(std::min(from, m_text.size())).indexOf(end);
    m_at = found < 0 ? m_text.size() : from + found + end.size();
}

void SqlTokens::skipIdle()
{
    static constexpr QByteArrayView kBlanks(" \t\n\f\r");
    while (m_at < m_text.size()) {
        if (kBlanks.contains(m_text[m_at]))
            ++m_at;
        else if (startsWith("--"))
            skipPast("\n", m_at + 2);
        else if (startsWith("/*"))
            skipPast("*/", m_at + 2);
        else
            break;
    }
}

void SqlTokens::skipToken()
{
    const char first = m_text[m_at];
    if (first == '\'' || first == '"' || first == '`')
        skipQuoted(first);
    else if (first == '[')
        skipPast("]", m_at + 1);
    else if (isWordByte(first))
        while (m_at < m_text.size() && isWordByte(m_text[m_at]))
            ++m_at;
    else
        ++m_at;
}

// A doubled quote stands for one within the text: the token goes on behind it.
void SqlTokens::skipQuoted(char quote)
{
    const QByteArrayView end(&quote, 1);
    do
        skipPast(end, m_at + 1);
    while (m_at < m_text.size() && m_text[m_at] == quote);
}

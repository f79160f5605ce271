#include "toolkit/richtext/rtftokens.h"

#include <algorithm>

namespace {

constexpr int kLargestNumber = 100'000'000;

bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// Line ends mean nothing in an RTF file, they only keep its lines short.
bool isFiller(char c)
{
    return c == '\r' || c == '\n' || c == '\0';
}

bool isText(char c)
{
    return c != '{' && c != '}' && c != '\\' && !isFiller(c);
}

int hexadecimalDigit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

} // namespace

QByteArrayView RtfTokens::take(qsizetype count)
{
    const QByteArrayView taken = m_bytes.sliced(m_at, std::min(count, m_bytes.size() - m_at));
    m_at += taken.size();
    return taken;
}

RtfToken RtfTokens::next()
{
    while (m_at < m_bytes.size() && isFiller(m_bytes[m_at]))
        ++m_at;
    if (m_at == m_bytes.size())
        return {};
    switch (m_bytes[m_at]) {
    case '{':
        return {RtfToken::Kind::Open, take(1), {}};
    case '}':
        return {RtfToken::Kind::Close, take(1), {}};
    case '\\':
        return control();
    default:
        return text();
    }
}

RtfToken RtfTokens::text()
{
    const auto* const from = m_bytes.begin() + m_at;
    const auto* const end = std::find_if_not(from, m_bytes.end(), isText);
    return {RtfToken::Kind::Text, take(end - from), {}};
}

RtfToken RtfTokens::control()
{
    ++m_at;
    if (m_at == m_bytes.size())
        return {};
    const char c = m_bytes[m_at];
    if (isLetter(c))
        return word();
    if (c == '\'')
        return byteInHexadecimal();
    if (c == '\r' || c == '\n') {
        ++m_at;
        return {RtfToken::Kind::Word, "par", {}};
    }
    return {RtfToken::Kind::Symbol, take(1), {}};
}

RtfToken RtfTokens::word()
{
    const auto* const from = m_bytes.begin() + m_at;
    RtfToken token{RtfToken::Kind::Word, take(std::find_if_not(from, m_bytes.end(), isLetter) - from), {}};
    token.number = number();
    if (m_at < m_bytes.size() && m_bytes[m_at] == ' ')
        ++m_at;
    if (token.bytes == "bin")
        take(std::max(token.numberOr(0), 0));
    return token;
}

bool RtfTokens::isDigit(qsizetype at) const
{
    return at < m_bytes.size() && m_bytes[at] >= '0' && m_bytes[at] <= '9';
}

std::optional<int> RtfTokens::number()
{
    const bool isNegative = m_at < m_bytes.size() && m_bytes[m_at] == '-' && isDigit(m_at + 1);
    if (!isNegative && !isDigit(m_at))
        return {};
    m_at += isNegative ? 1 : 0;
    int value = 0;
    for (; isDigit(m_at); ++m_at)
        value = std::min(value * 10 + (m_bytes[m_at] - '0'), kLargestNumber);
    return isNegative ? -value : value;
}

// A mark without its two digits says nothing; what follows it is read by itself.
RtfToken RtfTokens::byteInHexadecimal()
{
    const QByteArrayView mark = take(1);
    const int high = m_at < m_bytes.size() ? hexadecimalDigit(m_bytes[m_at]) : -1;
    const int low = m_at + 1 < m_bytes.size() ? hexadecimalDigit(m_bytes[m_at + 1]) : -1;
    if (high < 0 || low < 0)
        return {RtfToken::Kind::Symbol, mark, {}};
    m_at += 2;
    m_byte = static_cast<char>(high << 4 | low);
    return {RtfToken::Kind::Text, QByteArrayView(&m_byte, 1), {}};
}

#include "platform/selectshape.h"

#include <algorithm>
#include <array>

namespace {

struct Token {
    QByteArrayView text; // empty at the end of the statement
    qsizetype at = 0;

    bool is(QByteArrayView word) const { return text.compare(word, Qt::CaseInsensitive) == 0; }
};

bool isWordByte(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9') ||
           byte == '_' || byte == '$' || byte >= 0x80;
}

// The words, signs and quoted texts of a statement, without blanks and comments.
class Tokens {
public:
    explicit Tokens(QByteArrayView text) : m_text(text) {}

    Token next()
    {
        skipIdle();
        const qsizetype from = m_at;
        if (m_at < m_text.size())
            skipToken();
        return {m_text.sliced(from, m_at - from), from};
    }

private:
    bool startsWith(QByteArrayView start) const { return m_text.sliced(m_at).startsWith(start); }

    void skipPast(QByteArrayView end, qsizetype from)
    {
        const qsizetype found = m_text.sliced(std::min(from, m_text.size())).indexOf(end);
        m_at = found < 0 ? m_text.size() : from + found + end.size();
    }

    void skipIdle()
    {
        static constexpr QByteArrayView blanks(" \t\n\f\r");
        while (m_at < m_text.size()) {
            if (blanks.contains(m_text[m_at]))
                ++m_at;
            else if (startsWith("--"))
                skipPast("\n", m_at + 2);
            else if (startsWith("/*"))
                skipPast("*/", m_at + 2);
            else
                break;
        }
    }

    void skipToken()
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
    void skipQuoted(char quote)
    {
        const QByteArrayView end(&quote, 1);
        do
            skipPast(end, m_at + 1);
        while (m_at < m_text.size() && m_text[m_at] == quote);
    }

    QByteArrayView m_text;
    qsizetype m_at = 0;
};

template <std::size_t Count>
bool isOneOf(const Token& token, const std::array<QByteArrayView, Count>& words)
{
    return std::any_of(words.begin(), words.end(), [&](QByteArrayView word) { return token.is(word); });
}

class Reader {
public:
    explicit Reader(QByteArrayView statement) : m_tokens(statement) { advance(); }

    std::optional<SelectShape> read()
    {
        if (!m_token.is("select"))
            return std::nullopt;
        m_shape.columnsAt = m_token.at + m_token.text.size();
        advance();
        if (!passColumns() || !passTable() || !passRest())
            return std::nullopt;
        return m_shape;
    }

private:
    void advance()
    {
        m_token = m_tokens.next();
        if (m_token.is("("))
            ++m_depth;
        else if (m_token.is(")"))
            --m_depth;
    }

    bool atEnd() const { return m_token.text.isEmpty() || (m_depth == 0 && m_token.is(";")); }

    bool passColumns()
    {
        if (m_token.is("distinct") || m_token.is("all"))
            return false;
        while (!atEnd() && !(m_depth == 0 && m_token.is("from")))
            advance();
        return m_token.is("from");
    }

    bool passTable()
    {
        static constexpr std::array<QByteArrayView, 4> kTable{"mp3", "\"mp3\"", "`mp3`", "[mp3]"};
        static constexpr std::array<QByteArrayView, 3> kBehind{"where", "order", "limit"};
        advance();
        if (!isOneOf(m_token, kTable))
            return false;
        advance();
        return atEnd() || isOneOf(m_token, kBehind);
    }

    bool passRest()
    {
        static constexpr std::array<QByteArrayView, 6> kOther{"group",  "having", "union",
                                                              "except", "window", "intersect"};
        while (!atEnd()) {
            if (m_depth == 0 && isOneOf(m_token, kOther))
                return false;
            if (m_depth == 0 && m_token.is("order"))
                readOrder();
            else
                advance();
        }
        return true;
    }

    void readOrder()
    {
        const qsizetype at = m_token.at;
        advance();
        if (!m_token.is("by"))
            return;
        advance();
        const QByteArrayView column = m_token.text;
        if (atEnd() || !isWordByte(column.front()) || (column.front() >= '0' && column.front() <= '9'))
            return;
        advance();
        if (m_token.is("asc"))
            advance();
        if (!atEnd())
            return;
        m_shape.orderAt = at;
        m_shape.orderColumn = column.toByteArray();
    }

    Tokens m_tokens;
    Token m_token;
    int m_depth = 0;
    SelectShape m_shape;
};

} // namespace

std::optional<SelectShape> shapeOfSelect(QByteArrayView statement)
{
    return Reader(statement).read();
}

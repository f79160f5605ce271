#include "database/sql/selectshape.h"

#include "database/sql/sqltokens.h"

namespace {

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
        const bool star = m_token.is("*");
        int tokens = 0;
        for (; !atEnd() && !(m_depth == 0 && m_token.is("from")); ++tokens)
            advance();
        m_shape.isWhole = star && tokens == 1;
        return m_token.is("from");
    }

    bool passTable()
    {
        static constexpr std::array<QByteArrayView, 4> kTable{"mp3", "\"mp3\"", "`mp3`", "[mp3]"};
        static constexpr std::array<QByteArrayView, 3> kBehind{"where", "order", "limit"};
        advance();
        if (!m_token.isOneOf(kTable))
            return false;
        advance();
        m_shape.isWhole = m_shape.isWhole && atEnd();
        return atEnd() || m_token.isOneOf(kBehind);
    }

    bool passRest()
    {
        static constexpr std::array<QByteArrayView, 6> kOther{"group",  "having", "union",
                                                              "except", "window", "intersect"};
        while (!atEnd()) {
            if (m_depth == 0 && m_token.isOneOf(kOther))
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
        if (!m_token.isWord())
            return;
        advance();
        if (m_token.is("asc"))
            advance();
        if (!atEnd())
            return;
        m_shape.orderAt = at;
        m_shape.orderColumn = column.toByteArray();
    }

    SqlTokens m_tokens;
    SqlToken m_token;
    int m_depth = 0;
    SelectShape m_shape;
};

} // namespace

std::optional<SelectShape> shapeOfSelect(QByteArrayView statement)
{
    return Reader(statement).read();
}

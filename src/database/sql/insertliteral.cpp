#include "database/sql/insertliteral.h"

#include <cstring>

namespace {

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\f' || c == '\r';
}

bool startsName(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

// Takes one thing after the other from the front of a text; each call tells whether it was there.
class Scanner {
public:
    explicit Scanner(QByteArrayView text) : m_at(text.begin()), m_end(text.end()) {}

    void blanks()
    {
        while (m_at != m_end && isBlank(*m_at))
            ++m_at;
    }

    bool mark(char c)
    {
        if (m_at == m_end || *m_at != c)
            return false;
        ++m_at;
        return true;
    }

    // Takes a plain identifier; the caller looks at what it is.
    QByteArrayView name()
    {
        const char* const begin = m_at;
        if (m_at != m_end && startsName(*m_at))
            while (m_at != m_end && (startsName(*m_at) || (*m_at >= '0' && *m_at <= '9')))
                ++m_at;
        return {begin, m_at};
    }

    bool word(QByteArrayView expected)
    {
        blanks();
        return name().compare(expected, Qt::CaseInsensitive) == 0;
    }

    bool anyName()
    {
        blanks();
        return !name().isEmpty();
    }

    bool markPastBlanks(char c)
    {
        blanks();
        return mark(c);
    }

    bool literal(QByteArrayView& raw, bool& doubledQuotes)
    {
        doubledQuotes = false;
        if (!markPastBlanks('\''))
            return false;
        const char* const begin = m_at;
        for (;;) {
            m_at = static_cast<const char*>(std::memchr(m_at, '\'', static_cast<std::size_t>(m_end - m_at)));
            if (!m_at) {
                m_at = m_end;
                return false;
            }
            raw = {begin, m_at++};
            if (!mark('\''))
                return true;
            doubledQuotes = true;
        }
    }

    bool atEnd() const { return m_at == m_end; }
    const char* at() const { return m_at; }

private:
    const char* m_at;
    const char* m_end;
};

bool columnList(Scanner& scanner)
{
    if (!scanner.markPastBlanks('('))
        return false;
    do {
        if (!scanner.anyName())
            return false;
    } while (scanner.markPastBlanks(','));
    return scanner.mark(')');
}

} // namespace

bool InsertLiteral::read(QByteArrayView statement)
{
    const bool sameHead = !m_head.isEmpty() && statement.startsWith(m_head);
    if (!sameHead && !readHead(statement))
        return false;
    return readValues(statement.sliced(m_head.size()));
}

bool InsertLiteral::readHead(QByteArrayView statement)
{
    Scanner scanner(statement);
    if (!scanner.word("INSERT") || !scanner.word("INTO") || !scanner.anyName() || !columnList(scanner) ||
        !scanner.word("VALUES") || !scanner.markPastBlanks('('))
        return false;
    m_head = QByteArray(statement.data(), scanner.at() - statement.data());
    return true;
}

bool InsertLiteral::readValues(QByteArrayView text)
{
    Scanner scanner(text);
    m_values.clear();
    m_unquoted.clear();
    do {
        QByteArrayView raw;
        bool doubledQuotes = false;
        if (!scanner.literal(raw, doubledQuotes))
            return false;
        m_values.push_back(doubledQuotes ? withoutDoubledQuotes(raw, text.size()) : raw);
    } while (scanner.markPastBlanks(','));
    if (!scanner.mark(')'))
        return false;
    do
        scanner.blanks();
    while (scanner.mark(';'));
    return scanner.atEnd();
}

QByteArrayView InsertLiteral::withoutDoubledQuotes(QByteArrayView raw, qsizetype room)
{
    m_unquoted.reserve(static_cast<std::size_t>(room)); // never moves under the values taken before
    const std::size_t begin = m_unquoted.size();
    for (qsizetype at = 0; at < raw.size(); ++at) {
        m_unquoted.push_back(raw[at]);
        if (raw[at] == '\'')
            ++at; // the second of the two
    }
    return {m_unquoted.data() + begin, static_cast<qsizetype>(m_unquoted.size() - begin)};
}

// Recognises the statement "INSERT INTO name (columns) VALUES ('...', '...');" that holds nothing but string
// literals, so that its values can be bound to a statement prepared once.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <span>
#include <vector>

class InsertLiteral {
public:
    // Reads the bytes of one statement (UTF-8). It is false for whatever is not surely of that form: other
    // words, names in quotes, comments, a second statement, a quote that closes nothing.
    bool read(QByteArrayView statement);

    // After a read that succeeded these are the bytes up to and including the bracket that opens the values.
    const QByteArray& head() const { return m_head; }
    // These are the values that the literals mean, a doubled quote being one; they are views into the
    // statement or, until the next read, into this object.
    std::span<const QByteArrayView> values() const { return m_values; }
    // Tells whether one of them holds a quote, which was doubled in its literal.
    bool holdsQuote() const { return !m_unquoted.empty(); }

private:
    bool readHead(QByteArrayView statement);
    bool readValues(QByteArrayView text);
    QByteArrayView withoutDoubledQuotes(QByteArrayView raw, qsizetype room);

    QByteArray m_head; // of the last statement: the next one mostly begins alike
    std::vector<QByteArrayView> m_values;
    std::vector<char> m_unquoted;
};

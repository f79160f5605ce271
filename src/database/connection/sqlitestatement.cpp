#include "database/connection/sqlitestatement.h"

#include "database/connection/sqlitecheck.h"

#include <QStringDecoder>
#include <QStringEncoder>

#include <sqlite3.h>

#include <cstring>

namespace {

constexpr qsizetype kBytesPerUnit = 3; // a UTF-16 unit needs at most so many, a pair four

// Drops blanks, semicolons and comments from the front. As SQLite has it, a comment without an end lasts to
// the end of the text and a byte order mark is a blank.
QByteArrayView withoutIdleFront(QByteArrayView text)
{
    static constexpr QByteArrayView kBlanks(" \t\n\f\r;");
    static constexpr QByteArrayView kMark("\xEF\xBB\xBF");
    const auto dropPast = [&text](QByteArrayView end) {
        const qsizetype at = text.sliced(2).indexOf(end);
        text = at < 0 ? QByteArrayView() : text.sliced(2 + at + end.size());
    };
    while (!text.isEmpty()) {
        if (kBlanks.contains(text.front()))
            text = text.sliced(1);
        else if (text.startsWith(kMark))
            text = text.sliced(kMark.size());
        else if (text.startsWith("--"))
            dropPast("\n");
        else if (text.startsWith("/*") && text.size() > 2)
            dropPast("*/");
        else
            break;
    }
    return text;
}

StatementPtr prepare(sqlite3* database, QByteArrayView bytes, unsigned flags)
{
    sqlite3_stmt* raw = nullptr;
    const char* behind = nullptr;
    checked(database, sqlite3_prepare_v3(database, bytes.data(), static_cast<int>(bytes.size()) + 1, flags,
                                         &raw, &behind));
    StatementPtr statement(raw);
    if (!statement)
        throwStatementError(QStringLiteral("the text is empty"));
    // It is not found by preparing what follows, because some statements take effect while they are prepared.
    const QByteArrayView second = withoutIdleFront(bytes.sliced(behind - bytes.data()));
    if (!second.isEmpty())
        throwStatementError(QStringLiteral("there is something behind its end: ") +
                            textOfBytes(second.first(qMin<qsizetype>(second.size(), 60))));
    return statement;
}

} // namespace

void FinalizeStatement::operator()(sqlite3_stmt* statement) const noexcept
{
    sqlite3_finalize(statement); // the code is the one that the last step gave already
}

StatementBytes::StatementBytes() : m_buffer(1) {}

QByteArrayView StatementBytes::of(QStringView text)
{
    const auto needed = static_cast<std::size_t>(text.size() * kBytesPerUnit + 1);
    if (m_buffer.size() < needed)
        m_buffer.resize(needed);
    QStringEncoder encoder(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
    char* const begin = m_buffer.data();
    char* const end = encoder.appendToBuffer(begin, text);
    *end = '\0';
    if (std::memchr(begin, 0, static_cast<std::size_t>(end - begin)))
        throwStatementError(QStringLiteral("the text holds a null character"));
    return {begin, end};
}

QString textOfBytes(QByteArrayView bytes)
{
    using Flag = QStringConverter::Flag;
    QStringDecoder decoder(QStringConverter::Utf8, Flag::Stateless | Flag::ConvertInitialBom);
    return decoder.decode(bytes);
}

StatementPtr prepareStatement(sqlite3* database, QByteArrayView bytes)
{
    return prepare(database, bytes, 0);
}

StatementPtr preparePersistent(sqlite3* database, QByteArrayView bytes)
{
    return prepare(database, bytes, SQLITE_PREPARE_PERSISTENT);
}

void runToEnd(sqlite3* database, sqlite3_stmt* statement)
{
    while (checked(database, sqlite3_step(statement)) == SQLITE_ROW) {
    }
}

void runStatement(sqlite3* database, const char* statement)
{
    runToEnd(database, prepareStatement(database, statement).get());
}

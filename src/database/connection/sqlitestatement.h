// Holds one statement of SQLite, and makes the bytes of its text.
#pragma once

#include <QByteArrayView>
#include <QString>

#include <memory>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

struct FinalizeStatement {
    void operator()(sqlite3_stmt* statement) const noexcept;
};
using StatementPtr = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

// Makes SQLite's bytes (UTF-8) of a text, in a buffer that is used again and again. A surrogate without its
// partner becomes one replacement character.
class StatementBytes {
public:
    StatementBytes();

    // They are valid until the next call; a NUL follows the last byte. Throws RunTimeError kStatementError
    // for a text that holds a NUL: SQLite would take what follows it for not there.
    QByteArrayView of(QStringView text);

private:
    std::vector<char> m_buffer;
};

// Makes a text of SQLite's bytes; what is no UTF-8 becomes replacement characters, a byte order mark stays.
QString textOfBytes(QByteArrayView bytes);

// Prepares the statement of the bytes (NUL-terminated behind their end). Throws RunTimeError: kStatementError
// for bytes that hold none, or a second one.
StatementPtr prepareStatement(sqlite3* database, QByteArrayView bytes);
// Does the same for one that is run many times.
StatementPtr preparePersistent(sqlite3* database, QByteArrayView bytes);

// Runs to the end; rows that come are dropped.
void runToEnd(sqlite3* database, sqlite3_stmt* statement);
// Runs a fixed statement without parameters.
void runStatement(sqlite3* database, const char* statement);

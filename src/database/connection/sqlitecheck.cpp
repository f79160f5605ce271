#include "database/connection/sqlitecheck.h"

#include "database/connection/archivelocked.h"

#include <sqlite3.h>

#include <QCoreApplication>

#include <system_error>

namespace {

bool concernsTheStatement(int code)
{
    return code == SQLITE_ERROR || code == SQLITE_RANGE || code == SQLITE_TOOBIG || code == SQLITE_MISMATCH;
}

bool isNoArchive(int code)
{
    return code == SQLITE_CORRUPT || code == SQLITE_NOTADB;
}

QString meaning(int code)
{
    switch (code) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return QStringLiteral("The archive is in use by another program");
    case SQLITE_FULL:
        return QStringLiteral("The disk with the archive is full");
    case SQLITE_READONLY:
        return QStringLiteral("The archive cannot be written");
    case SQLITE_CORRUPT:
        return QStringLiteral("The archive is damaged");
    case SQLITE_NOTADB:
        return QStringLiteral("The file is no archive");
    case SQLITE_CANTOPEN:
        return QStringLiteral("The archive cannot be opened");
    case SQLITE_PERM:
    case SQLITE_AUTH:
        return QStringLiteral("Access to the archive is denied");
    case SQLITE_IOERR:
        return QStringLiteral("The archive cannot be read or written");
    case SQLITE_NOMEM:
        return QStringLiteral("There is not enough memory");
    case SQLITE_CONSTRAINT:
        return QStringLiteral("The archive does not accept the values");
    default:
        return concernsTheStatement(code) ? QStringLiteral("The statement is not valid")
                                          : QStringLiteral("The archive reports an error");
    }
}

// Returns the reason that the system gave. SQLite keeps it dependably only for a file that it could not open.
QString systemReason(sqlite3* database, int code)
{
    const int number = database && code == SQLITE_CANTOPEN ? sqlite3_system_errno(database) : 0;
    if (number == 0)
        return {};
    return QStringLiteral(" (%1)").arg(QString::fromStdString(std::generic_category().message(number)));
}

} // namespace

int checked(sqlite3* database, int code)
{
    if (code != SQLITE_OK && code != SQLITE_ROW && code != SQLITE_DONE)
        throwSqliteError(database, code);
    return code;
}

void throwSqliteError(sqlite3* database, int code, const QString& addition)
{
    const int primary = code & 0xff;
    const char* message = database ? sqlite3_errmsg(database) : sqlite3_errstr(code);
    const QString text = meaning(primary) + QStringLiteral(": ") + QString::fromUtf8(message) +
                         systemReason(database, primary) + addition;
    if (primary == SQLITE_BUSY || primary == SQLITE_LOCKED)
        throw ArchiveLocked(kConnectionError, text);
    const RunTimeError error(concernsTheStatement(primary) ? kStatementError : kConnectionError, text);
    throw isNoArchive(primary) ? adviceOfBackup(error) : error;
}

RunTimeError adviceOfBackup(const RunTimeError& error)
{
    return error.withAdvice(QCoreApplication::translate(
        "Archive",
        "Look whether the disk with the archive is connected and can be read; if it is, restore the "
        "archive from a backup (Tools, Backup, Restore)."));
}

void throwStatementError(const QString& detail)
{
    throw RunTimeError(kStatementError, meaning(SQLITE_ERROR) + QStringLiteral(": ") + detail);
}

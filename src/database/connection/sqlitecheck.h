// Every return code of SQLite passes through this one check.
#pragma once

#include "base/runtimeerror.h"

struct sqlite3;

// Hands back SQLITE_OK, SQLITE_ROW and SQLITE_DONE; anything else is thrown as a RunTimeError:
// kStatementError for a statement that is not valid, else kConnectionError, with SQLite's own message behind
// a plain word on what it means. The database is the one that the code came from; it may be null.
int checked(sqlite3* database, int code);

[[noreturn]] void throwSqliteError(sqlite3* database, int code, const QString& addition = {});
// Is for a file that is not there, cannot be read or holds no archive.
RunTimeError adviceOfBackup(const RunTimeError& error);
[[noreturn]] void throwStatementError(const QString& detail);

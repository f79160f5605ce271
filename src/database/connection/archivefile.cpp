#include "database/connection/archivefile.h"

#include "base/runtimeerror.h"
#include "database/connection/archivecollation.h"
#include "database/connection/archivelocked.h"
#include "database/connection/likefunction.h"
#include "database/connection/sqlitecheck.h"
#include "database/connection/sqlitestatement.h"

#include <QFile>

#include <sqlite3.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <system_error>

#include <sys/stat.h>

namespace {

struct FreeMemory {
    void operator()(char* memory) const noexcept { std::free(memory); } // as realpath() wants it
};

[[noreturn]] void fail(const QString& text)
{
    throw RunTimeError(kConnectionError, text);
}

[[noreturn]] void failBySystem(int number)
{
    fail(QStringLiteral("The archive cannot be opened: ") +
         QString::fromStdString(std::generic_category().message(number)));
}

// Looks at the name alone: to open and close the file here would drop the locks that another connection of
// this process holds on it.
QByteArray regularFile(const QByteArray& path)
{
    if (path.contains('\0'))
        failBySystem(ENOENT);
    const std::unique_ptr<char, FreeMemory> resolved(realpath(path.constData(), nullptr));
    struct stat facts {};
    if (!resolved || stat(resolved.get(), &facts) != 0)
        failBySystem(errno);
    if (S_ISDIR(facts.st_mode))
        failBySystem(EISDIR);
    if (!S_ISREG(facts.st_mode))
        fail(QStringLiteral("The archive is no regular file"));
    return resolved.get();
}

QByteArray firstValue(sqlite3* database, const char* text)
{
    const StatementPtr statement = prepareStatement(database, text);
    checked(database, sqlite3_step(statement.get()));
    const auto* value = reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), 0));
    return value;
}

// To count the pages SQLite reads the file for the first time, its tables too. It takes an empty file for a
// database without tables.
void readHeader(sqlite3* database)
{
    if (firstValue(database, "PRAGMA page_count") == "0")
        fail(QStringLiteral("The file is no archive: it is empty"));
}

// A journal that is deleted at each commit leaves nothing beside the file, so that a copy of the file is
// whole. EXTRA also makes the deletion durable.
void makeSafe(sqlite3* database)
{
    if (firstValue(database, "PRAGMA journal_mode=DELETE") != "delete")
        fail(QStringLiteral("The archive's journal cannot be set up"));
    runStatement(database, "PRAGMA synchronous=EXTRA");
}

DatabasePtr open(const QByteArray& path, std::chrono::milliseconds patience)
{
    sqlite3* raw = nullptr;
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
    const int code = sqlite3_open_v2(path.constData(), &raw, flags, nullptr);
    DatabasePtr database(raw);
    checked(raw, code);
    checked(raw, sqlite3_busy_timeout(raw, static_cast<int>(patience.count())));
    registerArchiveLike(raw);
    registerArchiveOrder(raw, ArchiveOrder::userCollator());
    readHeader(raw);
    makeSafe(raw);
    return database;
}

} // namespace

void CloseDatabase::operator()(sqlite3* database) const noexcept
{
    sqlite3_close_v2(database); // cannot fail: a statement still in use puts it off
}

DatabasePtr openArchiveFile(const QByteArray& path, std::chrono::milliseconds patience)
{
    const auto told = [&path](const RunTimeError& error) {
        return error.text() + QStringLiteral(" (") + QFile::decodeName(path) + u')';
    };
    try {
        return open(regularFile(path), patience);
    } catch (const ArchiveLocked& error) {
        throw ArchiveLocked(error.number(), told(error));
    } catch (const RunTimeError& error) {
        throw adviceOfBackup({error.number(), told(error)});
    }
}

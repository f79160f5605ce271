#include "platform/archivecopy.h"

#include "base/runtimeerror.h"
#include "platform/archivefile.h"
#include "platform/descriptor.h"
#include "platform/filecopy.h"
#include "platform/fileerror.h"
#include "platform/opengroups.h"

#include <sqlite3.h>

#include <cerrno>
#include <cstdlib>
#include <memory>

#include <fcntl.h>
#include <sys/stat.h>

namespace {

constexpr int kBusyMilliseconds = 1000; // the windows stand still meanwhile

// The engine names the files beside the archive after what links lead to.
QByteArray resolved(const QByteArray& path)
{
    const std::unique_ptr<char, void (*)(void*)> real(realpath(path.constData(), nullptr), std::free);
    return real ? QByteArray(real.get()) : path;
}

bool isSameFile(const QByteArray& one, const QByteArray& other)
{
    struct stat first {};
    struct stat second {};
    return stat(one.constData(), &first) == 0 && stat(other.constData(), &second) == 0 &&
           first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

// O_NONBLOCK: a pipe without a writer would be waited for.
Descriptor openSource(const QByteArray& path)
{
    Descriptor source(open(path.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct stat facts {};
    if (!source || fstat(source.get(), &facts) != 0)
        throw fileError(errno);
    if (!S_ISREG(facts.st_mode))
        throw RunTimeError(ErrorNumber::PathFileAccess);
    return source;
}

// A lock on the archive by the engine's own rules. To take it undoes what a killed program left unfinished.
// A file that is no database, or none at all, cannot be locked and need not be.
class ArchiveLock {
public:
    enum Kind { NobodyWrites, NobodyElse };

    ArchiveLock(const QByteArray& path, Kind kind)
    {
        sqlite3* raw = nullptr;
        const int code = sqlite3_open_v2(path.constData(), &raw, SQLITE_OPEN_READWRITE, nullptr);
        m_database.reset(raw);
        if (code == SQLITE_CANTOPEN)
            return;
        sqlite3_busy_timeout(raw, kBusyMilliseconds);
        // To read the schema's version takes the lock that BEGIN alone does not take.
        if (run("PRAGMA journal_mode=DELETE"))
            run(kind == NobodyElse ? "BEGIN EXCLUSIVE" : "BEGIN; PRAGMA schema_version");
    }

    void release() { m_database.reset(); }

private:
    bool run(const char* statements); // false when the file is no database

    DatabasePtr m_database;
};

bool ArchiveLock::run(const char* statements)
{
    switch (sqlite3_exec(m_database.get(), statements, nullptr, nullptr, nullptr) & 0xff) {
    case SQLITE_OK:
        return true;
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
        return false;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        throw RunTimeError(ErrorNumber::PermissionDenied);
    default:
        throw RunTimeError(ErrorNumber::PathFileAccess);
    }
}

// Of the file that is replaced: they would be taken for parts of the new one.
void removeCompanions(const QByteArray& archive)
{
    for (const char* ending : {"-journal", "-wal", "-shm"})
        if (unlink((archive + ending).constData()) != 0 && errno != ENOENT)
            throw fileError(errno);
}

} // namespace

void backUpArchive(const QByteArray& archive, const QByteArray& target, OpenGroups& groups)
{
    const QByteArray place = resolved(archive);
    if (isSameFile(place, target))
        throw RunTimeError(ErrorNumber::PermissionDenied);
    groups.suspendAll();
    // Opened first, closed last: closing it drops every lock that this process has on the file.
    const Descriptor source = openSource(place);
    ArchiveLock lock(place, ArchiveLock::NobodyWrites);
    copyToFile(source.get(), target, [&] { lock.release(); });
}

void restoreArchive(const QByteArray& source, const QByteArray& archive, OpenGroups& groups)
{
    const QByteArray place = resolved(archive);
    if (isSameFile(source, place))
        return;
    if (groups.any())
        throw RunTimeError(ErrorNumber::PermissionDenied);
    const Descriptor backup = openSource(source);
    // Held until the new file has the name, so that nobody writes to the old one in between and loses that.
    const ArchiveLock lock(place, ArchiveLock::NobodyElse);
    copyToFile(backup.get(), place, [&] { removeCompanions(place); });
}

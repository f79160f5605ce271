#include "database/connection/archivecopy.h"

#include "base/runtimeerror.h"
#include "database/connection/archivefile.h"
#include "database/connection/connection.h"
#include "database/connection/opengroups.h"
#include "posix/descriptor.h"
#include "posix/filecopy.h"
#include "posix/fileerror.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <memory>

#include <fcntl.h>
#include <sys/stat.h>

namespace {

constexpr int kBusyMilliseconds = 1000; // the windows stand still meanwhile
constexpr int kTries = 5;

// SQLite names the files beside the archive after what links lead to.
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

// O_NONBLOCK is set because a pipe without a writer would be waited for.
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

// The lock lasts until its end, so that nobody restores the archive while a message about the backup stands
// there.
class Suspension {
public:
    explicit Suspension(OpenGroups& groups) : m_groups(groups)
    {
        try {
            m_groups.suspendAll();
        } catch (const ArchiveLocked&) {
            throw RunTimeError(ErrorNumber::PermissionDenied);
        }
    }
    ~Suspension() { m_groups.resumeAll(); }
    Suspension(const Suspension&) = delete;
    Suspension& operator=(const Suspension&) = delete;

private:
    OpenGroups& m_groups;
};

// Locks the archive by SQLite's own rules. To take it undoes what a killed program left unfinished. A file
// that is no database, or none at all, cannot be locked and need not be.
class ArchiveLock {
public:
    enum Kind { NobodyWrites, NobodyElse };

    ArchiveLock(const QByteArray& path, Kind kind)
    {
        // The lock that was waited for may be one on a file that a restore has just replaced.
        for (int tries = 0; tries < kTries; ++tries)
            if (take(path, kind))
                return;
        throw RunTimeError(ErrorNumber::PermissionDenied);
    }

    void release() { m_database.reset(); }

private:
    bool take(const QByteArray& path, Kind kind); // false when another file has the name by now
    bool run(const char* statements);             // false when the file is no database

    DatabasePtr m_database;
};

bool ArchiveLock::take(const QByteArray& path, Kind kind)
{
    sqlite3* raw = nullptr;
    const int code = sqlite3_open_v2(path.constData(), &raw, SQLITE_OPEN_READWRITE, nullptr);
    m_database.reset(raw);
    if (code == SQLITE_CANTOPEN)
        return true;
    sqlite3_busy_timeout(raw, kBusyMilliseconds);
    // To read the schema's version takes the lock that BEGIN alone does not take.
    if (!run("PRAGMA journal_mode=DELETE") ||
        !run(kind == NobodyElse ? "BEGIN EXCLUSIVE" : "BEGIN; PRAGMA schema_version"))
        return true;
    int moved = 0;
    sqlite3_file_control(raw, "main", SQLITE_FCNTL_HAS_MOVED, &moved);
    return moved == 0;
}

bool ArchiveLock::run(const char* statements)
{
    switch (sqlite3_exec(m_database.get(), statements, nullptr, nullptr, nullptr) & 0xff) {
    case SQLITE_OK:
        return true;
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
    case SQLITE_ERROR: // a format of the future, for one
        return false;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        throw RunTimeError(ErrorNumber::PermissionDenied);
    default:
        throw RunTimeError(ErrorNumber::PathFileAccess);
    }
}

// SQLite keeps these files beside an archive.
constexpr std::array kCompanions{"-journal", "-wal", "-shm"};

bool isCompanion(const QByteArray& archive, const QByteArray& path)
{
    return std::any_of(kCompanions.begin(), kCompanions.end(),
                       [&](const char* ending) { return path == archive + ending; });
}

// They belong to the file that is replaced and would be taken for parts of the new one.
void removeCompanions(const QByteArray& archive)
{
    for (const char* ending : kCompanions)
        if (unlink((archive + ending).constData()) != 0 && errno != ENOENT)
            throw fileError(errno);
}

} // namespace

void backUpArchive(const QByteArray& archive, const QByteArray& target, OpenGroups& groups,
                   const CopyNotes* notes)
{
    const QByteArray place = resolved(archive);
    if (isSameFile(place, target) || isCompanion(place, resolved(target)))
        throw RunTimeError(ErrorNumber::PermissionDenied);
    const Suspension suspension(groups);
    // It is opened first and closed last, because closing it drops every lock that this process has on the
    // file.
    const Descriptor source = openSource(place);
    ArchiveLock lock(place, ArchiveLock::NobodyWrites);
    copyToFile(source.get(), target, notes, [&] { lock.release(); });
}

void restoreArchive(const QByteArray& source, const QByteArray& archive, OpenGroups& groups,
                    const CopyNotes* notes)
{
    const QByteArray place = resolved(archive);
    if (isSameFile(source, place))
        return;
    if (groups.any())
        throw RunTimeError(ErrorNumber::PermissionDenied);
    const Descriptor backup = openSource(source);
    const ArchiveLock sourceLock(resolved(source), ArchiveLock::NobodyWrites);
    // The lock is held until the new file has the name, so that nobody writes to the old one in between and
    // loses that.
    const ArchiveLock lock(place, ArchiveLock::NobodyElse);
    copyToFile(backup.get(), place, notes, [&] { removeCompanions(place); });
}

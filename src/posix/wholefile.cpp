#include "posix/wholefile.h"

#include "posix/descriptor.h"
#include "posix/fileerror.h"

#include <QHash>
#include <QMutex>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <thread>
#include <utility>

namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds kPatience{400};
constexpr std::chrono::milliseconds kPause{5};
constexpr mode_t kOrdinary = 0666;
constexpr mode_t kRights = 07777;

RunTimeError errorNow()
{
    return errno == ENOENT ? RunTimeError(ErrorNumber::PathNotFound) : fileError(errno);
}

void check(bool success)
{
    if (!success)
        throw errorNow();
}

struct Target {
    QByteArray path; // links followed
    QByteArray directory{};
    struct stat old {};
    bool exists = false;
};

// A link to what is not there at the moment stays a link.
Target targetOf(const QByteArray& file)
{
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(file.constData(), nullptr), &std::free);
    Target target{.path = real ? QByteArray(real.get()) : file};
    target.directory = target.path.left(target.path.lastIndexOf('/') + 1);
    target.exists = stat(target.path.constData(), &target.old) == 0;
    if (!target.exists && lstat(target.path.constData(), &target.old) == 0)
        throw RunTimeError(ErrorNumber::PathNotFound);
    if (target.exists && !S_ISREG(target.old.st_mode))
        throw RunTimeError(ErrorNumber::PathFileAccess);
    check(!target.exists || faccessat(AT_FDCWD, target.path.constData(), W_OK, AT_EACCESS) == 0);
    return target;
}

// Each user has one name in a directory, so that what a killed program left there does not grow in number.
// Who holds the file's lock may use it; whoever gets the lock of an older one removes that.
class NewFile {
public:
    explicit NewFile(const QByteArray& directory)
        : m_path(directory + ".songbin-new-" + QByteArray::number(geteuid()))
    {
        const Clock::time_point end = Clock::now() + kPatience;
        while (!taken()) {
            if (Clock::now() >= end)
                throw RunTimeError(ErrorNumber::PermissionDenied);
            std::this_thread::sleep_for(kPause);
        }
    }
    ~NewFile()
    {
        if (!m_path.isEmpty())
            unlink(m_path.constData());
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    void takeOver(const struct stat& old)
    {
        // Only the superuser can keep another's file his; for anyone else there is nothing to keep.
        static_cast<void>(!fchown(m_file.get(), old.st_uid, old.st_gid));
        fchmod(m_file.get(), old.st_mode & kRights);
    }
    void write(const QByteArray& content)
    {
        while (m_written < content.size()) {
            const ssize_t count = ::write(m_file.get(), content.constData() + m_written,
                                          static_cast<std::size_t>(content.size() - m_written));
            check(count >= 0 || errno == EINTR);
            m_written += std::max<ssize_t>(count, 0);
        }
        check(fsync(m_file.get()) == 0 || errno == EINVAL); // a file system that knows no syncing
    }
    void becomes(const QByteArray& path)
    {
        check(rename(m_path.constData(), path.constData()) == 0);
        m_path.clear();
    }
    // Takes the name only where nothing is; it is false where something is, or where nobody can tell.
    bool becomesNew(const QByteArray& path)
    {
        const bool isDone =
            renameat2(AT_FDCWD, m_path.constData(), AT_FDCWD, path.constData(), RENAME_NOREPLACE) == 0;
        if (isDone)
            m_path.clear();
        return isDone || (errno == EINVAL && becomesNewByLooking(path));
    }
    bool holdsAnything() const { return m_written > 0; }

private:
    // Serves a file system that cannot do both in one step.
    bool becomesNewByLooking(const QByteArray& path)
    {
        struct stat found {};
        if (lstat(path.constData(), &found) == 0 || errno != ENOENT ||
            rename(m_path.constData(), path.constData()) != 0)
            return false;
        m_path.clear();
        return true;
    }
    bool taken()
    {
        const int flags = O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
        m_file.reset(open(m_path.constData(), flags | O_EXCL, kOrdinary));
        const bool isOurs = static_cast<bool>(m_file);
        if (!isOurs)
            m_file.reset(open(m_path.constData(), flags, kOrdinary));
        check(static_cast<bool>(m_file));
        const bool isHeld = flock(m_file.get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
        if (isHeld || !isStillThere())
            return false;
        if (!isOurs)
            unlink(m_path.constData());
        return isOurs;
    }
    // Somebody who held it before may have renamed or removed it.
    bool isStillThere() const
    {
        struct stat held {};
        struct stat found {};
        return fstat(m_file.get(), &held) == 0 && lstat(m_path.constData(), &found) == 0 &&
               held.st_dev == found.st_dev && held.st_ino == found.st_ino;
    }

    QByteArray m_path;
    Descriptor m_file;
    qsizetype m_written = 0;
};

QByteArray partialOf(const Target& target, int number)
{
    const QByteArray ending = number == 1 ? ".partial" : ".partial-" + QByteArray::number(number);
    const QByteArray name = target.path.mid(target.directory.size());
    return target.directory + name.left(NAME_MAX - ending.size()) + ending;
}

// Remembers what this program has left beside files. A disk may fail every half minute: what is left then
// takes the place of what was left before, and of nothing else that has such a name.
class Leftovers {
public:
    bool has(const QByteArray& path)
    {
        const QMutexLocker lock(&m_mutex);
        struct stat found {};
        const auto left = m_left.constFind(path);
        return left != m_left.constEnd() && lstat(path.constData(), &found) == 0 && isSame(*left, found);
    }
    void note(const QByteArray& path)
    {
        const QMutexLocker lock(&m_mutex);
        struct stat found {};
        if (lstat(path.constData(), &found) == 0)
            m_left[path] = found;
    }

private:
    // Nobody has put another in its place, nor changed it.
    static bool isSame(const struct stat& left, const struct stat& found)
    {
        return left.st_dev == found.st_dev && left.st_ino == found.st_ino && left.st_size == found.st_size &&
               left.st_ctim.tv_sec == found.st_ctim.tv_sec && left.st_ctim.tv_nsec == found.st_ctim.tv_nsec;
    }

    QMutex m_mutex;
    QHash<QByteArray, struct stat> m_left;
};

void leaveBeside(NewFile& fresh, const Target& target)
{
    static Leftovers leftovers;
    constexpr int kMost = 99; // a directory where nothing can be renamed is not asked for ever
    for (int number = 1; number <= kMost; ++number) {
        const QByteArray path = partialOf(target, number);
        const bool isOurs = leftovers.has(path);
        if (isOurs)
            fresh.becomes(path);
        if (isOurs || fresh.becomesNew(path))
            return leftovers.note(path);
    }
}

// Without it a power cut could bring the old file back. Nothing is lost where a file system cannot do that.
void makeDurable(const QByteArray& directory)
{
    if (const Descriptor handle(open(directory.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)); handle)
        fsync(handle.get());
}

} // namespace

void replaceWhole(const QByteArray& file, const QByteArray& content)
{
    const Target target = targetOf(file);
    NewFile fresh(target.directory);
    try {
        if (target.exists)
            fresh.takeOver(target.old);
        fresh.write(content);
        fresh.becomes(target.path);
    } catch (const RunTimeError&) {
        if (fresh.holdsAnything())
            resumeNext([&] { leaveBeside(fresh, target); });
        throw;
    }
    makeDurable(target.directory);
}

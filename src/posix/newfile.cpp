#include "posix/newfile.h"

#include "posix/fileerror.h"

#include <fcntl.h>
#include <sys/file.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <thread>

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

QByteArray nameIn(const QByteArray& directory)
{
    return directory + ".songbin-new-" + QByteArray::number(geteuid());
}

} // namespace

// A link to what is not there at the moment stays a link.
ReplacedFile ReplacedFile::of(const QByteArray& file)
{
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(file.constData(), nullptr), &std::free);
    ReplacedFile target{.path = real ? QByteArray(real.get()) : file};
    target.directory = target.path.left(target.path.lastIndexOf('/') + 1);
    target.exists = stat(target.path.constData(), &target.old) == 0;
    if (!target.exists && lstat(target.path.constData(), &target.old) == 0)
        throw RunTimeError(ErrorNumber::PathNotFound);
    if (target.exists && !S_ISREG(target.old.st_mode))
        throw RunTimeError(ErrorNumber::PathFileAccess);
    check(!target.exists || faccessat(AT_FDCWD, target.path.constData(), W_OK, AT_EACCESS) == 0);
    return target;
}

NewFile NewFile::ofAnInstant(const QByteArray& directory)
{
    NewFile file;
    const Clock::time_point end = Clock::now() + kPatience;
    while (!file.took(nameIn(directory))) {
        if (Clock::now() >= end)
            throw RunTimeError(ErrorNumber::PermissionDenied);
        std::this_thread::sleep_for(kPause);
    }
    return file;
}

NewFile NewFile::ofAWhile(const QByteArray& directory)
{
    constexpr int kMost = 99;
    NewFile file;
    for (int number = 2; number <= kMost; ++number)
        if (const QByteArray name = nameIn(directory) + '-' + QByteArray::number(number);
            file.took(name) || file.took(name)) // the first time it may have removed what was left there
            return file;
    throw RunTimeError(ErrorNumber::PermissionDenied);
}

NewFile::~NewFile()
{
    if (!m_path.isEmpty())
        unlink(m_path.constData());
}

void NewFile::takeOver(const struct stat& old)
{
    // Only the superuser can keep another's file his; for anyone else there is nothing to keep.
    static_cast<void>(!fchown(m_file.get(), old.st_uid, old.st_gid));
    fchmod(m_file.get(), old.st_mode & kRights);
}

void NewFile::write(QByteArrayView piece)
{
    while (!piece.isEmpty()) {
        const ssize_t count = ::write(m_file.get(), piece.data(), static_cast<std::size_t>(piece.size()));
        check(count >= 0 || errno == EINTR);
        piece = piece.sliced(std::max<ssize_t>(count, 0));
        m_written += std::max<ssize_t>(count, 0);
    }
}

void NewFile::sync()
{
    check(fsync(m_file.get()) == 0 || errno == EINVAL); // a file system that knows no syncing
}

void NewFile::becomes(const QByteArray& path)
{
    check(rename(m_path.constData(), path.constData()) == 0);
    m_path.clear();
}

bool NewFile::becomesNew(const QByteArray& path)
{
    const bool isDone =
        renameat2(AT_FDCWD, m_path.constData(), AT_FDCWD, path.constData(), RENAME_NOREPLACE) == 0;
    if (isDone)
        m_path.clear();
    return isDone || (errno == EINVAL && becomesNewByLooking(path));
}

// Serves a file system that cannot do both in one step.
bool NewFile::becomesNewByLooking(const QByteArray& path)
{
    struct stat found {};
    if (lstat(path.constData(), &found) == 0 || errno != ENOENT ||
        rename(m_path.constData(), path.constData()) != 0)
        return false;
    m_path.clear();
    return true;
}

bool NewFile::took(const QByteArray& path)
{
    const int flags = O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    m_file.reset(open(path.constData(), flags | O_EXCL, kOrdinary));
    const bool isOurs = static_cast<bool>(m_file);
    if (!isOurs)
        m_file.reset(open(path.constData(), flags, kOrdinary));
    check(static_cast<bool>(m_file));
    const bool isHeld = flock(m_file.get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    if (isHeld || !isStillAt(path))
        return false;
    if (isOurs)
        m_path = path;
    else
        unlink(path.constData());
    return isOurs;
}

// Somebody who held it before may have renamed or removed it.
bool NewFile::isStillAt(const QByteArray& path) const
{
    struct stat held {};
    struct stat found {};
    return fstat(m_file.get(), &held) == 0 && lstat(path.constData(), &found) == 0 &&
           held.st_dev == found.st_dev && held.st_ino == found.st_ino;
}

void makeDurable(const QByteArray& directory)
{
    if (const Descriptor handle(open(directory.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)); handle)
        fsync(handle.get());
}

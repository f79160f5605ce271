#include "posix/atomicfile.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <thread>
#include <tuple>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr qsizetype kLargest = 16'777'216;
constexpr std::chrono::milliseconds kPause(5);
constexpr mode_t kPrivateDirectory = 0700; // as the XDG base directory rules have it
constexpr mode_t kPrivateFile = 0600;
// Others may read it, so that a lock made by root locks for the user too.
constexpr mode_t kLockFile = 0644;

// A file changed this short before it was read may change again and look the same: clocks of file systems are
// coarse (two seconds on FAT), and a replaced file's number may be given out again.
constexpr std::int64_t kCoarsestClock = 2'000'000'000;

class Descriptor {
public:
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor() { close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int operator*() const { return m_number; }
    bool isOpen() const { return m_number >= 0; }
    bool close() { return m_number < 0 || ::close(std::exchange(m_number, -1)) == 0; }

private:
    int m_number;
};

std::int64_t nanoseconds(const timespec& time)
{
    return std::int64_t(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

std::int64_t now()
{
    timespec time{};
    ::clock_gettime(CLOCK_REALTIME, &time);
    return nanoseconds(time);
}

FileStamp stampOf(const struct stat& state)
{
    return {state.st_dev, state.st_ino, state.st_size, nanoseconds(state.st_mtim),
            nanoseconds(state.st_ctim)};
}

QByteArray directoryOf(const QByteArray& path)
{
    return path.left(std::max(path.lastIndexOf('/'), qsizetype(1)));
}

// Is asked after a failed look at it. A link to what is not there at the moment (a disk that is out) is no
// missing file.
bool isMissing(const QByteArray& file)
{
    struct stat state {};
    return errno == ENOENT && ::lstat(file.constData(), &state) != 0 && errno == ENOENT;
}

void makeDirectories(const QByteArray& directory)
{
    if (::mkdir(directory.constData(), kPrivateDirectory) == 0 || errno != ENOENT || directory.size() < 2)
        return;
    makeDirectories(directoryOf(directory));
    ::mkdir(directory.constData(), kPrivateDirectory);
}

QByteArray withLinksFollowed(const QByteArray& file)
{
    const std::unique_ptr<char, decltype(&std::free)> target(::realpath(file.constData(), nullptr),
                                                             &std::free);
    return target ? QByteArray(target.get()) : file;
}

// Reads to the end of the file. It gives nothing when that comes before the size that the file is said to
// have: a disk that gives a part of it has not been read.
std::optional<QByteArray> readAll(int descriptor, qsizetype size)
{
    QByteArray content(size + 1, Qt::Uninitialized); // the end shows in the same step
    for (qsizetype done = 0;;) {
        const ssize_t count =
            ::read(descriptor, content.data() + done, static_cast<std::size_t>(content.size() - done));
        if ((count < 0 && errno != EINTR) || (count == 0 && done < size) || done + count > kLargest)
            return {};
        done += std::max(count, ssize_t(0));
        if (count == 0) {
            content.truncate(done);
            return content;
        }
        if (done == content.size())
            content.resize(2 * done);
    }
}

bool writeAll(int descriptor, const QByteArray& content)
{
    for (qsizetype done = 0; done < content.size();) {
        const ssize_t count =
            ::write(descriptor, content.constData() + done, static_cast<std::size_t>(content.size() - done));
        if (count < 0 && errno != EINTR)
            return false;
        done += std::max(count, ssize_t(0));
    }
    return true;
}

bool writeNew(const QByteArray& file, const QByteArray& content, const struct stat* old)
{
    ::unlink(file.constData()); // left by a process that was killed
    Descriptor out(::open(file.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kPrivateFile));
    if (!out.isOpen())
        return false;
    if (old != nullptr) {
        // Only root can keep another's file his; for anyone else there is nothing to keep.
        std::ignore = ::fchown(*out, old->st_uid, old->st_gid);
        ::fchmod(*out, old->st_mode & 07777);
    }
    return writeAll(*out, content) && ::fsync(*out) == 0 && out.close();
}

void syncDirectory(const QByteArray& directory)
{
    const Descriptor opened(::open(directory.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened.isOpen())
        ::fsync(*opened);
}

} // namespace

FileLock::~FileLock()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

bool FileLock::take(const QByteArray& file, std::chrono::milliseconds patience)
{
    using Clock = std::chrono::steady_clock;
    makeDirectories(directoryOf(file));
    m_descriptor = ::open((file + ".lock").constData(), O_RDONLY | O_CREAT | O_CLOEXEC, kLockFile);
    const Clock::time_point end = Clock::now() + patience;
    while (m_descriptor >= 0) {
        if (::flock(m_descriptor, LOCK_EX | LOCK_NB) == 0)
            return true;
        if ((errno != EWOULDBLOCK && errno != EINTR) || Clock::now() >= end)
            return false;
        std::this_thread::sleep_for(kPause);
    }
    return false;
}

std::optional<FileStamp> stampOf(const QByteArray& file)
{
    struct stat state {};
    if (::stat(file.constData(), &state) == 0)
        return stampOf(state);
    return isMissing(file) ? std::optional(FileStamp()) : std::nullopt;
}

std::optional<SmallFile> readSmallFile(const QByteArray& file)
{
    const std::int64_t before = now();
    // The other end must not be waited for, should the name be a pipe's.
    const Descriptor in(::open(file.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!in.isOpen())
        return isMissing(file) ? std::optional(SmallFile{{}, {}, true}) : std::nullopt;
    struct stat state {};
    if (::fstat(*in, &state) != 0 || !S_ISREG(state.st_mode) || state.st_size > kLargest)
        return {};
    std::optional<QByteArray> content = readAll(*in, state.st_size);
    if (!content)
        return {};
    const FileStamp stamp = stampOf(state);
    return SmallFile{std::move(*content), stamp, stamp.changed + kCoarsestClock < before};
}

bool replaceFile(const QByteArray& file, const QByteArray& content)
{
    const QByteArray target = withLinksFollowed(file);
    const QByteArray fresh = target + ".new";
    struct stat old {};
    const bool exists = ::stat(target.constData(), &old) == 0;
    if (content.size() > kLargest || (exists && ::access(target.constData(), W_OK) != 0))
        return false;
    if (!writeNew(fresh, content, exists ? &old : nullptr) ||
        ::rename(fresh.constData(), target.constData()) != 0) {
        ::unlink(fresh.constData());
        return false;
    }
    syncDirectory(directoryOf(target));
    return true;
}

#include "posix/filecopy.h"

#include "posix/copynotes.h"
#include "posix/descriptor.h"
#include "posix/fileerror.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <vector>

namespace {

constexpr std::size_t kBlock = std::size_t{256} * 1024;

void check(bool success)
{
    if (!success)
        throw fileError(errno);
}

QByteArray resolved(const QByteArray& path)
{
    const std::unique_ptr<char, void (*)(void*)> real(realpath(path.constData(), nullptr), std::free);
    return real ? QByteArray(real.get()) : path;
}

// Such a file is removed again unless it took its target's place.
class Temporary {
public:
    // It is noted before it is there, so that whatever happens in between nothing is left that nobody knows
    // of.
    Temporary(const QByteArray& directory, mode_t rights, const CopyNotes* notes)
        : m_path(CopyNotes::freshName(directory))
    {
        if (notes)
            m_note.emplace(*notes, m_path);
        m_file.reset(open(m_path.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, rights));
        if (!m_file)
            throw errno == ENOENT ? RunTimeError(ErrorNumber::PathNotFound) : fileError(errno);
    }
    ~Temporary()
    {
        if (!m_path.isEmpty())
            unlink(m_path.constData());
    }
    Temporary(const Temporary&) = delete;
    Temporary& operator=(const Temporary&) = delete;

    int descriptor() const { return m_file.get(); }

    void replace(const QByteArray& target)
    {
        check(fsync(m_file.get()) == 0 || errno == EINVAL);
        check(::close(m_file.release()) == 0);
        check(rename(m_path.constData(), target.constData()) == 0);
        m_path.clear();
    }

private:
    QByteArray m_path;
    std::optional<CopyNotes::Note> m_note;
    Descriptor m_file;
};

void write(int target, const char* bytes, std::size_t count)
{
    while (count > 0) {
        const ssize_t written = ::write(target, bytes, count);
        if (written < 0 && errno == EINTR)
            continue;
        check(written >= 0);
        bytes += written;
        count -= static_cast<std::size_t>(written);
    }
}

// An end before the size that the source tells is a failure of its disk. Some files of the system's own tell
// none.
void copyBytes(int source, int target)
{
    struct stat told {};
    check(fstat(source, &told) == 0);
    std::vector<char> block(kBlock);
    for (off_t at = 0;;) {
        const ssize_t count = pread(source, block.data(), block.size(), at);
        if (count < 0 && errno == EINTR)
            continue;
        check(count >= 0);
        if (count == 0 && at < told.st_size)
            throw RunTimeError(ErrorNumber::DeviceIoError);
        if (count == 0)
            return;
        write(target, block.data(), static_cast<std::size_t>(count));
        at += count;
    }
}

// Gives owner and rights of the file that is replaced; another owner can only be given by the superuser.
void takeOver(int file, const struct stat& old)
{
    if (fchown(file, old.st_uid, old.st_gid) != 0)
        errno = 0;
    fchmod(file, old.st_mode & 0777);
}

// Without it a power cut could bring the old file back. Nothing is lost where a file system cannot do that.
void makeDurable(const QByteArray& directory)
{
    if (const Descriptor handle(open(directory.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)); handle)
        fsync(handle.get());
}

} // namespace

void copyToFile(int source, const QByteArray& target, const CopyNotes* notes,
                const std::function<void()>& whenRead)
{
    const QByteArray place = resolved(target);
    struct stat old {};
    const bool replaces = stat(place.constData(), &old) == 0;
    if (!replaces && lstat(place.constData(), &old) == 0) // a link to what is not there at the moment
        throw RunTimeError(ErrorNumber::PathNotFound);
    if (replaces && !S_ISREG(old.st_mode))
        throw RunTimeError(ErrorNumber::PathFileAccess);
    check(!replaces ||
          faccessat(AT_FDCWD, place.constData(), W_OK, AT_EACCESS) == 0); // a protected file stays

    const QByteArray directory = place.left(place.lastIndexOf('/') + 1);
    Temporary temporary(directory, replaces ? old.st_mode & 0777 : 0666, notes);
    copyBytes(source, temporary.descriptor());
    if (whenRead)
        whenRead();
    if (replaces)
        takeOver(temporary.descriptor(), old);
    temporary.replace(place);
    makeDurable(directory);
}

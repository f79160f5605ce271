#include "system/files/fileopener.h"

#include "posix/fileerror.h"
#include "system/drives/systemdrives.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

namespace {

// A pipe without another end, or a terminal, must not hold the program up or become its own.
constexpr int kNoWaiting = O_NONBLOCK | O_NOCTTY | O_CLOEXEC;

// A link to what is not there at the moment is no file that does not exist.
bool isLink(const QByteArray& path)
{
    struct stat status {};
    return lstat(path.constData(), &status) == 0 && S_ISLNK(status.st_mode);
}

bool isAway(int error)
{
    return error == ENOENT || error == ENOTDIR;
}

} // namespace

int openQuietly(int directory, const char* name)
{
    const int opened = openat(directory, name, O_RDONLY | O_NOATIME | kNoWaiting);
    if (opened >= 0 || errno != EPERM)
        return opened;
    return openat(directory, name, O_RDONLY | kNoWaiting); // another user's file
}

bool FileOpener::hasDirectory(const QString& path)
{
    const QChar* const name = lastName(path);
    const std::optional<QByteArray> directory =
        m_drives.machinePath(QStringView(path.begin(), name).toString());
    struct stat status {};
    return directory && stat(directory->constData(), &status) == 0 && S_ISDIR(status.st_mode);
}

Descriptor FileOpener::forReading(const QString& path, struct stat& status)
{
    std::optional<QByteArray> machinePath = m_drives.literalPath(path);
    Descriptor file(machinePath ? openQuietly(AT_FDCWD, machinePath->constData()) : -1);
    if (!file && (!machinePath || isAway(errno))) {
        machinePath = m_drives.machinePath(path);
        if (!machinePath)
            throw RunTimeError(ErrorNumber::PathNotFound);
        file.reset(openQuietly(AT_FDCWD, machinePath->constData()));
    }
    if (!file) {
        const int error = errno;
        const bool isLost = error == ENOENT && (isLink(*machinePath) || !hasDirectory(path));
        throw isLost ? RunTimeError(ErrorNumber::PathNotFound) : fileError(error);
    }
    if (fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode))
        throw RunTimeError(ErrorNumber::PathFileAccess);
    return file;
}

Descriptor FileOpener::forWriting(const QString& path)
{
    const std::optional<QByteArray> machinePath = m_drives.machinePath(path);
    if (!machinePath)
        throw RunTimeError(ErrorNumber::PathNotFound);
    Descriptor file(open(machinePath->constData(), O_WRONLY | O_CREAT | kNoWaiting, 0666));
    if (!file) {
        const int error = errno;
        throw RunTimeError(isAway(error) ? RunTimeError(ErrorNumber::PathNotFound) : fileError(error));
    }
    struct stat status {}; // emptied only now: a device with that name must not be touched
    if (fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode) || ftruncate(file.get(), 0) != 0)
        throw RunTimeError(ErrorNumber::PathFileAccess);
    return file;
}

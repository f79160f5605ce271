#include "system/files/systemfiles.h"

#include "base/dospath.h"
#include "base/filenametext.h"
#include "posix/filecopy.h"
#include "posix/fileerror.h"
#include "posix/wholefile.h"
#include "system/drives/systemdrives.h"
#include "system/files/listing.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>

namespace {

bool isWanted(const DirEntry& entry, int attributes)
{
    return entry.attributes == kNormal || (attributes & kDirectory) != 0;
}

// A disk that gives less than the file holds has not been read to the file's end; one of the kernel's files
// may tell no length and hold something.
QByteArray readAll(int file, qint64 expected, qint64 most)
{
    constexpr qsizetype kStep = 65536;
    QByteArray content;
    content.reserve(std::min(expected, most) + 1); // the end shows in the same step
    while (expected <= most && content.size() <= most) {
        const qsizetype held = content.size();
        content.resize(std::max(held + kStep, content.capacity()));
        const ssize_t count =
            ::read(file, content.data() + held, static_cast<std::size_t>(content.size() - held));
        content.truncate(held + std::max<ssize_t>(count, 0));
        if (count < 0 && errno != EINTR)
            throw RunTimeError(ErrorNumber::PathFileAccess);
        if (count == 0 && content.size() < expected)
            throw RunTimeError(ErrorNumber::DeviceIoError);
        if (count == 0)
            return content;
    }
    throw RunTimeError(ErrorNumber::OutOfStringSpace);
}

class WholeReplacement : public FileReplacement {
public:
    explicit WholeReplacement(const QByteArray& path) : m_file(path) {}

    void write(QByteArrayView piece) override { m_file.write(piece); }
    void commit() override { m_file.commit(); }

private:
    FileInPieces m_file;
};

} // namespace

QByteArray SystemFiles::readyPath(const QString& directory)
{
    const std::optional<QByteArray> path = m_drives.machinePath(directory);
    if (!path)
        throw RunTimeError(ErrorNumber::DeviceUnavailable);
    return *path;
}

QByteArray SystemFiles::targetPath(const QString& file)
{
    const std::optional<QByteArray> path = m_drives.machinePath(file);
    if (!path)
        throw RunTimeError(ErrorNumber::PathNotFound);
    return *path;
}

std::vector<DirEntry> SystemFiles::list(const QString& directory)
{
    return readListing(readyPath(directory));
}

std::optional<std::vector<DirEntry>> SystemFiles::enter(const QString& directory, EnteredDirectories& walk)
{
    return readListing(readyPath(directory), walk);
}

// A name without "*" and "?" is looked for directly: there is no need to read the directory.
QStringList SystemFiles::single(const QString& path, int attributes)
{
    const std::optional<QByteArray> found = m_drives.machinePath(path);
    struct stat status {};
    if (!found || stat(found->constData(), &status) != 0)
        return {};
    const bool wanted =
        S_ISREG(status.st_mode) || (S_ISDIR(status.st_mode) && (attributes & kDirectory) != 0);
    return wanted ? QStringList(filenametext::toText(found->mid(found->lastIndexOf('/') + 1)))
                  : QStringList();
}

QStringList SystemFiles::dir(const QString& pattern, int attributes)
{
    if (attributes & kVolumeLabel) {
        const QString label = m_drives.volumeName(pattern);
        return label.isEmpty() ? QStringList() : QStringList(label);
    }
    const QChar* const last = lastName(pattern);
    const QStringView name(last, pattern.end());
    if (!name.isEmpty() && !name.contains(u'*') && !name.contains(u'?'))
        return single(pattern, attributes);
    QStringList names;
    resumeNext([&] {
        for (DirEntry& entry : list(QStringView(pattern.begin(), last).toString()))
            if (isWanted(entry, attributes) && (name.isEmpty() || dospath::matches(entry.name, name)))
                names += std::move(entry.name);
    });
    return names;
}

bool SystemFiles::exists(const QString& path)
{
    const std::optional<QByteArray> found = m_drives.machinePath(path);
    struct stat status {};
    return found && stat(found->constData(), &status) == 0 && S_ISREG(status.st_mode);
}

bool SystemFiles::isTaken(const QString& path)
{
    const std::optional<QByteArray> found = m_drives.machinePath(path);
    struct stat status {};
    return found && lstat(found->constData(), &status) == 0;
}

void SystemFiles::copy(const QString& from, const QString& to)
{
    struct stat status {};
    const Descriptor source = m_opener.forReading(from, status);
    copyToFile(source.get(), targetPath(to));
}

void SystemFiles::replace(const QString& path, const QByteArray& content)
{
    replaceWhole(targetPath(path), content);
}

std::unique_ptr<FileReplacement> SystemFiles::beginReplacement(const QString& path)
{
    return std::make_unique<WholeReplacement>(targetPath(path));
}

QByteArray SystemFiles::read(const QString& path, qint64 most)
{
    struct stat status {};
    const Descriptor file = m_opener.forReading(path, status);
    return readAll(file.get(), status.st_size, most);
}

void SystemFiles::expectTails(const QString& directory, const QStringList& names, int bytes)
{
    if (const std::optional<QByteArray> path = m_drives.literalPath(directory))
        m_readAhead.expectTails(*path, names, bytes);
}

#include "posix/copynotes.h"

#include <QRandomGenerator>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <memory>
#include <optional>
#include <thread>

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace {

constexpr const char* kPrefix = ".songbin-";
constexpr qsizetype kRandomDigits = 16;
constexpr mode_t kPrivate = 0600;
constexpr int kTries = 5;
constexpr off_t kLongest = 8192;

QByteArray randomDigits()
{
    return QByteArray::number(QRandomGenerator::system()->generate64(), 16)
        .rightJustified(kRandomDigits, '0');
}

qsizetype nameAt(const QByteArray& path)
{
    return path.lastIndexOf('/') + 1;
}

bool isRandom(const QByteArray& name)
{
    return name.size() == kRandomDigits && std::all_of(name.begin(), name.end(), [](char digit) {
               return (digit >= '0' && digit <= '9') || (digit >= 'a' && digit <= 'f');
           });
}

bool isFreshName(const QByteArray& path)
{
    const QByteArray name = path.sliced(nameAt(path));
    return path.startsWith('/') && name.startsWith(kPrefix) &&
           isRandom(name.sliced(qsizetype(qstrlen(kPrefix))));
}

// Where the last step is a link, it leads to a directory of somebody's own.
Descriptor opened(const QByteArray& directory)
{
    return Descriptor(open(directory.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

bool lock(int file)
{
    return flock(file, LOCK_EX | LOCK_NB) == 0;
}

// Returns nothing when it is none, be it that a person put it there, or could not be read.
std::optional<QByteArray> contentOf(int file)
{
    struct stat facts {};
    if (fstat(file, &facts) != 0 || !S_ISREG(facts.st_mode) || facts.st_uid != geteuid() ||
        facts.st_nlink != 1 || facts.st_size >= kLongest)
        return {};
    QByteArray content(facts.st_size, '\0');
    if (pread(file, content.data(), static_cast<std::size_t>(content.size()), 0) != content.size())
        return {};
    return content.isEmpty() || content.startsWith('/') ? std::optional(content) : std::nullopt;
}

bool isLinked(int file)
{
    struct stat facts {};
    return fstat(file, &facts) == 0 && facts.st_nlink > 0;
}

QByteArray directoryOf(const QByteArray& path)
{
    return path.first(nameAt(path));
}

bool isDirectory(const QByteArray& path)
{
    struct stat facts {};
    return stat(path.constData(), &facts) == 0;
}

} // namespace

CopyNotes::Note::Note(const CopyNotes& notes, const QByteArray& file)
{
    std::error_code error;
    fs::create_directories(notes.directory().toStdString(), error);
    if (m_directory = opened(notes.directory()); m_directory)
        make();
    const QByteArray text = notes.textFor(file);
    if (m_lock && write(m_lock.get(), text.constData(), static_cast<std::size_t>(text.size())) == text.size())
        fsync(m_lock.get());
}

CopyNotes::Note::~Note()
{
    if (m_lock)
        unlinkat(m_directory.get(), m_name.constData(), 0);
}

// Another program that looks for left-overs may hold the lock of a note that was made just now, and remove
// it. Where the file system knows no locks, nobody could ever tell that a note is left over.
void CopyNotes::Note::make()
{
    for (int i = 0; i < kTries && !m_lock; ++i) {
        m_name = randomDigits();
        m_lock.reset(openat(m_directory.get(), m_name.constData(),
                            O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, kPrivate));
        if (!m_lock)
            continue;
        const int refusal = lock(m_lock.get()) ? 0 : errno;
        if (refusal == 0 && isLinked(m_lock.get()))
            return;
        m_lock.reset();
        if (refusal != 0 && refusal != EWOULDBLOCK) {
            unlinkat(m_directory.get(), m_name.constData(), 0);
            return;
        }
    }
}

QByteArray CopyNotes::freshName(const QByteArray& directory)
{
    return directory + kPrefix + randomDigits();
}

QByteArray CopyNotes::textFor(const QByteArray& file) const
{
    return file + '\0' + m_volumes.ofDirectory(directoryOf(file));
}

// Tells whether nothing is left to do, as the file is removed or was never made. That it is not there tells
// nothing while its disk is away: the place where that was mounted is a directory still, or holds another
// disk.
bool CopyNotes::remove(const QByteArray& note) const
{
    const qsizetype end = note.indexOf('\0');
    const QByteArray path = end < 0 ? note : note.first(end);
    const QByteArray volume = end < 0 ? QByteArray() : note.sliced(end + 1);
    if (!isFreshName(path)) // a note that was not finished: its file is made only then
        return true;
    struct stat facts {};
    if (lstat(path.constData(), &facts) == 0)
        return !S_ISREG(facts.st_mode) || unlink(path.constData()) == 0;
    return errno == ENOENT && isDirectory(directoryOf(path)) &&
           (volume.isEmpty() || volume == m_volumes.ofDirectory(directoryOf(path)));
}

void CopyNotes::settle(int directory, const char* name) const
{
    const Descriptor file(openat(directory, name, O_RDWR | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC));
    if (!file || !lock(file.get()))
        return;
    if (const std::optional<QByteArray> note = contentOf(file.get()); note && remove(*note))
        unlinkat(directory, name, 0);
}

void CopyNotes::removeLeftOvers() const
{
    Descriptor directory = opened(m_directory);
    const std::unique_ptr<DIR, int (*)(DIR*)> list(directory ? fdopendir(directory.get()) : nullptr,
                                                   closedir);
    if (!list)
        return;
    const int handle = directory.release(); // the list closes it
    while (const dirent* const entry = readdir(list.get()))
        if (isRandom(entry->d_name))
            settle(handle, entry->d_name);
}

void CopyNotes::removeLeftOversInBackground() const
{
    std::thread([notes = *this] { notes.removeLeftOvers(); }).detach();
}

#include "platform/copynotes.h"

#include <QRandomGenerator>

#include <array>
#include <cerrno>
#include <filesystem>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace {

constexpr const char* kPrefix = ".songbin-";
constexpr qsizetype kRandomDigits = 16;
constexpr mode_t kPrivate = 0600;
constexpr int kTries = 5;

QByteArray randomDigits()
{
    return QByteArray::number(QRandomGenerator::system()->generate64(), 16)
        .rightJustified(kRandomDigits, '0');
}

qsizetype nameAt(const QByteArray& path)
{
    return path.lastIndexOf('/') + 1;
}

bool isFreshName(const QByteArray& path)
{
    const QByteArray name = path.sliced(nameAt(path));
    return path.startsWith('/') && name.startsWith(kPrefix) &&
           name.size() == qsizetype(qstrlen(kPrefix)) + kRandomDigits;
}

// False when it is somebody else's at this moment, or a regular file no more.
bool lock(int file)
{
    struct stat facts {};
    return flock(file, LOCK_EX | LOCK_NB) == 0 && fstat(file, &facts) == 0 && S_ISREG(facts.st_mode) &&
           facts.st_nlink > 0;
}

QByteArray contentOf(int file)
{
    std::array<char, 8192> bytes{};
    const ssize_t count = pread(file, bytes.data(), bytes.size(), 0);
    return count > 0 ? QByteArray(bytes.data(), count) : QByteArray();
}

// Whether nothing is left to do: the file is removed, or was never made.
bool remove(const QByteArray& path)
{
    if (!isFreshName(path)) // a note that was not finished: its file is made only then
        return true;
    struct stat facts {};
    const bool isThere = lstat(path.constData(), &facts) == 0;
    if (isThere)
        return !S_ISREG(facts.st_mode) || unlink(path.constData()) == 0;
    return errno == ENOENT && stat(path.first(nameAt(path)).constData(), &facts) == 0;
}

void settle(const QByteArray& note)
{
    const Descriptor file(open(note.constData(), O_RDWR | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC));
    if (file && lock(file.get()) && remove(contentOf(file.get())))
        unlink(note.constData());
}

} // namespace

// Another program that looks for left-overs may hold the lock of a note that was made just now, and remove
// it.
CopyNotes::Note::Note(const QByteArray& directory, const QByteArray& file)
{
    std::error_code error;
    fs::create_directories(directory.toStdString(), error);
    for (int i = 0; i < kTries && !m_lock && !error; ++i) {
        m_path = directory + '/' + randomDigits();
        m_lock.reset(open(m_path.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, kPrivate));
        if (m_lock && !lock(m_lock.get()))
            m_lock.reset();
    }
    if (m_lock && write(m_lock.get(), file.constData(), static_cast<std::size_t>(file.size())) == file.size())
        fsync(m_lock.get());
}

CopyNotes::Note::~Note()
{
    if (m_lock)
        unlink(m_path.constData());
}

QByteArray CopyNotes::freshName(const QByteArray& directory)
{
    return directory + kPrefix + randomDigits();
}

void CopyNotes::removeLeftOvers() const
{
    std::error_code error;
    for (fs::directory_iterator it(m_directory.toStdString(), error), end; !error && it != end;
         it.increment(error))
        settle(QByteArray::fromStdString(it->path().string()));
}

void CopyNotes::removeLeftOversInBackground() const
{
    std::thread([notes = *this] { notes.removeLeftOvers(); }).detach();
}

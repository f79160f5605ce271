// Is the new content of a file while it lies beside the old one, for whoever replaces a file whole. Paths are
// absolute paths of this machine. What refuses throws RunTimeError 61, 70, 75 or 76.
#pragma once

#include "posix/descriptor.h"

#include <QByteArray>
#include <QByteArrayView>

#include <sys/stat.h>

#include <utility>

struct ReplacedFile {
    QByteArray path; // links followed
    QByteArray directory{};
    struct stat old {};
    bool exists = false;

    // Throws also when the file does not allow writing, although another could take its place.
    static ReplacedFile of(const QByteArray& file);
};

// Is removed again unless it took its place. Each user has one name in a directory, so that what a killed
// program left there does not grow in number. Who holds the file's lock may use it; whoever gets the lock of
// an older one removes that.
class NewFile {
public:
    // Waits a little for others that use the name.
    static NewFile ofAnInstant(const QByteArray& directory);
    // Takes another name, one that nobody uses: others need not wait for it.
    static NewFile ofAWhile(const QByteArray& directory);
    ~NewFile();
    NewFile(NewFile&& other) noexcept
        : m_path(std::exchange(other.m_path, {})), m_file(std::move(other.m_file)), m_written(other.m_written)
    {
    }
    NewFile& operator=(NewFile&&) = delete;

    void takeOver(const struct stat& old); // its owner and rights
    void write(QByteArrayView piece);
    void sync();
    void becomes(const QByteArray& path);
    // Takes the name only where nothing is; it is false where something is, or where nobody can tell.
    bool becomesNew(const QByteArray& path);
    bool holdsAnything() const { return m_written > 0; }

private:
    NewFile() = default;
    bool becomesNewByLooking(const QByteArray& path);
    bool took(const QByteArray& path);
    bool isStillAt(const QByteArray& path) const;

    QByteArray m_path;
    Descriptor m_file;
    qsizetype m_written = 0;
};

// Without it a power cut could bring the old file back. Nothing is lost where a file system cannot do that.
void makeDurable(const QByteArray& directory);

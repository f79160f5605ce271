// Serves a small file that several processes read and replace as a whole. Paths are absolute paths of the
// machine.
#pragma once

#include <QByteArray>

#include <chrono>
#include <cstdint>
#include <optional>

// Holds the exclusive right to replace a file, an advisory lock on "<file>.lock", which stays behind.
class FileLock {
public:
    FileLock() = default;
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    // Is called once and makes the file's directories. It is false when the lock is not to be had in that
    // time or cannot be made.
    bool take(const QByteArray& file, std::chrono::milliseconds patience);

private:
    int m_descriptor = -1;
};

// These change when a file is replaced or written.
struct FileStamp {
    std::uint64_t device = 0;
    std::uint64_t node = 0;
    std::int64_t size = -1;    // there is no file
    std::int64_t modified = 0; // nanoseconds since 1970
    std::int64_t changed = 0;
    bool operator==(const FileStamp&) const = default;
};

// Gives nothing when it cannot be told.
std::optional<FileStamp> stampOf(const QByteArray& file);

struct SmallFile {
    QByteArray content; // empty when there is no file
    FileStamp stamp;
    bool settled; // whatever changes from now on changes the stamp
};

// Gives nothing when the name is no regular file's, the file is larger than 16 MB or cannot be read to its
// end. Only a name that does not exist is a missing file: a link to nothing is one that cannot be read.
std::optional<SmallFile> readSmallFile(const QByteArray& file);

// Works under its lock: the content goes to "<file>.new", to the disk, and is renamed over the file (over
// what it leads to, where it is a link), whose owner and rights stay. It is false when that fails, the file
// does not allow writing or the content is too large to be read again.
bool replaceFile(const QByteArray& file, const QByteArray& content);

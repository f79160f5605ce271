// Lists directories, tells what exists, copies and replaces files. Paths are the program's (drive letter,
// backslashes).
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <limits>
#include <memory>
#include <optional>
#include <vector>

class EnteredDirectories;

// These are the attribute bits of an entry.
enum FileAttribute : int {
    kNormal = 0,
    kVolumeLabel = 8,
    kDirectory = 16,
};

struct DirEntry {
    QString name;
    int attributes; // kNormal or kDirectory
};

// Is a file that is written piece by piece, beside the one whose place it takes. One that ends without commit
// leaves nothing behind, and the old file as it was.
class FileReplacement {
public:
    virtual ~FileReplacement() = default;

    // Both throw RunTimeError as Files::replace does; nothing can follow then.
    virtual void write(QByteArrayView piece) = 0;
    virtual void commit() = 0; // to the disk, and then in one step into the old one's place
};

class Files {
public:
    virtual ~Files() = default;

    // Lists regular files and directories of a directory, links followed, "." and ".." left out, ordered by
    // name without regard to case. A directory link that leads to one of its own ancestors, and what is
    // neither file nor directory (sockets, pipes, devices), is left out. Throws RunTimeError PathNotFound
    // when there is no such directory, DeviceUnavailable when the drive does not exist or is not ready,
    // PathFileAccess when it cannot be read.
    virtual std::vector<DirEntry> list(const QString& directory) = 0;

    // Works like list, for a walk that enters each directory once, whatever links lead to it, and none of the
    // kernel's file systems (platform/entereddirectories.h); it gives nothing for one that is not to be
    // entered.
    virtual std::optional<std::vector<DirEntry>> enter(const QString& directory, EnteredDirectories&)
    {
        return list(directory);
    }

    // Lists names that match a path with "*" and "?" in its last part ("D:\Music\*.MP3"): regular files, and
    // directories too when asked for. With kVolumeLabel it gives the volume's label alone. It is empty when
    // nothing is found, and after errors.
    virtual QStringList dir(const QString& pattern, int attributes = kNormal) = 0;

    virtual bool exists(const QString& path) = 0; // a regular file
    // Something has that name, be it a directory, a pipe, or a link that leads nowhere at the moment.
    virtual bool isTaken(const QString& path) = 0;

    // Copies byte by byte, through a temporary file beside the target that is then renamed over it. Throws
    // RunTimeError FileNotFound, DiskFull, PermissionDenied, PathFileAccess or PathNotFound; the old target
    // stays as it was.
    virtual void copy(const QString& from, const QString& to) = 0;

    // The content goes beside the file, to the disk, and takes its place in one step. Throws RunTimeError
    // DiskFull, PermissionDenied, PathFileAccess or PathNotFound; the old file stays then, and what could be
    // written lies beside it as "NAME.partial" or the like.
    virtual void replace(const QString& path, const QByteArray& content) = 0;

    // Begins to do so with a content that comes in pieces, and never leaves a part of it. Throws RunTimeError
    // as replace does.
    virtual std::unique_ptr<FileReplacement> beginReplacement(const QString& path) = 0;

    // Returns the whole content. Throws RunTimeError FileNotFound, PermissionDenied, PathFileAccess or
    // PathNotFound; DeviceIoError when the file gives less than its length, OutOfStringSpace when it holds
    // more bytes than `most`.
    static constexpr qint64 kWhateverLength = std::numeric_limits<qint64>::max();
    virtual QByteArray read(const QString& path, qint64 most = kWhateverLength) = 0;

    // Tells that the last bytes of these files of one directory will be read next, so that a slow disk can
    // fetch them ahead. It reads nothing itself, changes nothing and never fails.
    virtual void expectTails(const QString& directory, const QStringList& names, int bytes) = 0;
};

// Opens regular files of the program's paths. What is no regular file (a directory, a pipe, a device) is
// refused with PathFileAccess and never waited for.
#pragma once

#include "posix/descriptor.h"

#include <QByteArray>
#include <QString>

class SystemDrives;
struct stat;

// Opens for reading, without changing the time of the last access where that is permitted. It returns -1 and
// errno on failure.
int openQuietly(int directory, const char* name);

class FileOpener {
public:
    explicit FileOpener(SystemDrives& drives) : m_drives(drives) {}

    // Throws RunTimeError FileNotFound, PermissionDenied, PathFileAccess or PathNotFound.
    Descriptor forReading(const QString& path, struct stat& status);
    // Makes the file or empties it. Throws RunTimeError DiskFull, PermissionDenied, PathFileAccess or
    // PathNotFound.
    Descriptor forWriting(const QString& path);

private:
    bool hasDirectory(const QString& path);

    SystemDrives& m_drives;
};

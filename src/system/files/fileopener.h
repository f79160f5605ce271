// Opens regular files of the program's paths. What is no regular file (a directory, a pipe, a device) is
// refused with error 75 and never waited for.
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

    // Throws RunTimeError 53, 70, 75 or 76.
    Descriptor forReading(const QString& path, struct stat& status);
    // Makes the file or empties it. Throws RunTimeError 61, 70, 75 or 76.
    Descriptor forWriting(const QString& path);

private:
    bool hasDirectory(const QString& path);

    SystemDrives& m_drives;
};

// Opens the files of one directory one after the other without walking the way to it each time.
#pragma once

#include "platform/descriptor.h"

#include <QByteArray>

#include <chrono>

class Siblings {
public:
    // Opens a file of this machine by its absolute path; -1 and errno on failure, as open().
    int open(const QByteArray& path);

private:
    using Clock = std::chrono::steady_clock;

    bool isHeld() const;
    void hold();

    QByteArray m_path;       // of the last file's directory, with its "/"
    Descriptor m_directory;  // open from the second file on
    Clock::time_point m_until; // another directory may take its name meanwhile: not trusted for longer
};

// Tells what the scan window's controls hold; its default instance serves it, loaded again, hidden, when it
// was closed.
#pragma once

#include <QString>

class ScanSetup {
public:
    virtual ~ScanSetup() = default;

    virtual QString searchString() const = 0; // "D:\Music\*.MP3"
    virtual QString directory() const = 0;    // "D:\Music"; "D:\" at the root
    virtual bool includesSubdirectories() const = 0;
    virtual QString customExt() const = 0; // the extension in force, as typed
};

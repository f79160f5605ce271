// Hands files and addresses to the desktop, and starts other programs. Nothing here waits for what was
// started.
#pragma once

#include <QString>

class Launcher {
public:
    virtual ~Launcher() = default;

    // Opens a file (a path of the program) or an address ("https://...") with its default application. What
    // the desktop does with it is its own affair: no handler and no file are not told. Throws RunTimeError
    // FileNotFound when nothing on this machine takes such requests.
    virtual void open(const QString& target) = 0;

    // Starts a program by its path, or the desktop's volume mixer by its old name "sndvol32.exe"; throws
    // RunTimeError FileNotFound when there is none or it cannot be started.
    virtual void start(const QString& program) = 0;
};

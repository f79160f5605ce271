// Is the running program with its event loop, its end, its directory and its clock.
#pragma once

#include <QByteArray>
#include <QString>

class Program {
public:
    virtual ~Program() = default;

    // Lets waiting events be handled, once. Windows may be closed and the program may be ended while it does.
    virtual void yield() = 0;

    // Ends the program with that status: no window's unload code runs. It returns; loops test ending() after
    // a yield.
    virtual void end(int status = 0) = 0;
    virtual bool ending() const = 0;

    // Tells where the program's own files and the archive are, without a trailing backslash.
    virtual QString directory() const = 0;
    virtual QString title() const = 0;   // "Songbin"
    virtual QString version() const = 0; // "major.minor.revision"
    virtual QString
    executableName() const = 0; // without directory and extension; names the per-user settings

    virtual double secondsSinceMidnight() const = 0;
    virtual void randomize() = 0; // seeds the generator from the clock
    virtual double random() = 0;  // in [0, 1)

    // Tells this run of the program from one that does not run any more, also when its number was given out
    // again and after the machine was started anew. It has no blanks.
    virtual QByteArray ownMark() const = 0;
    virtual bool isRunning(const QByteArray& mark) const = 0; // false for a text that is none

    virtual void setBusyPointer(bool busy) = 0; // the hourglass, for every window
    virtual void beep() = 0;
};

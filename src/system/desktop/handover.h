// A second start hands its file to the program that already runs, over a socket that programs of one user on
// one X display know. system/desktop/handoverlistener.h is the other end.
#pragma once

#include <QByteArray>
#include <QByteArrayList>

#include <chrono>
#include <optional>

struct UserDirectories;

namespace handover {

// Returns the socket's absolute path, in the runtime directory when that is the user's own and nobody else
// may write to it, else in the user's state directory. It is empty when there is no display or no path that
// is short enough for a socket's name; nothing can be handed over then.
QByteArray place(const QByteArray& runtimeDirectory, const UserDirectories& user, const QByteArray& display);
// Tells where a program of this user on this display may be found: the place to listen at, and that of a
// program which was started before there was a runtime directory.
QByteArrayList places(const QByteArray& runtimeDirectory, const UserDirectories& user,
                      const QByteArray& display);
QByteArrayList placesOfEnvironment(const UserDirectories& user); // $XDG_RUNTIME_DIR, $DISPLAY

// Returns what may be handed over for a FILE of the command line: an absolute path of this machine, made with
// the current directory, or a "file://" address as it stands. It is nothing when there is no current
// directory.
std::optional<QByteArray> absoluteFile(const QByteArray& file);

} // namespace handover

class HandOver {
public:
    static constexpr std::chrono::milliseconds kPatience{2000};

    explicit HandOver(QByteArray place) : m_place(std::move(place)) {}

    // Is true when a running program has taken the file. It is false when there is none, when it does not
    // answer in time (it will not open the file later either), or when this is nothing that can be handed
    // over.
    bool offer(const QByteArray& absoluteFile, std::chrono::milliseconds patience = kPatience) const;

private:
    QByteArray m_place;
};

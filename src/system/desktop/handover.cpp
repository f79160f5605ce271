#include "system/desktop/handover.h"

#include "posix/descriptor.h"
#include "posix/xdg.h"
#include "system/desktop/handoverprotocol.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds kPause{5};

// The windows of all of a display's screens are one program's.
QByteArray withoutScreen(const QByteArray& display)
{
    const qsizetype dot = display.indexOf('.', std::max<qsizetype>(display.lastIndexOf(':'), 0));
    return dot < 0 ? display : display.first(dot);
}

bool isOurs(const QByteArray& directory)
{
    struct stat status {};
    return directory.startsWith('/') && stat(directory.constData(), &status) == 0 &&
           S_ISDIR(status.st_mode) && status.st_uid == geteuid() &&
           (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

// The lock is only asked about, because a lock that this one took for a moment could turn away a program that
// wants to listen.
bool isLocked(const QByteArray& place)
{
    const Descriptor file(
        open(handover::lockOf(place).constData(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    struct flock lock {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    return file && fcntl(file.get(), F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

bool waitFor(int socket, short events, Clock::time_point end)
{
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
        pollfd waited{socket, events, 0};
        const int ready = left > 0 ? poll(&waited, 1, static_cast<int>(left)) : 0;
        if (ready >= 0 || errno != EINTR)
            return ready > 0;
    }
}

// A program that has the lock and no socket yet, or whose queue is full, is waited for.
Descriptor connected(const QByteArray& place, Clock::time_point end)
{
    const sockaddr_un address = handover::addressOf(place);
    for (;;) {
        Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
        if (!socket)
            return {};
        if (connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0)
            return socket;
        const bool isFull = errno == EAGAIN;
        const bool isAbsent = errno == ENOENT || errno == ECONNREFUSED;
        if (!(isFull || (isAbsent && isLocked(place))) || Clock::now() + kPause > end)
            return {};
        std::this_thread::sleep_for(kPause);
    }
}

bool sendAll(int socket, const QByteArray& bytes, Clock::time_point end)
{
    for (qsizetype sent = 0; sent < bytes.size();) {
        const ssize_t now = send(socket, bytes.constData() + sent,
                                 static_cast<std::size_t>(bytes.size() - sent), MSG_NOSIGNAL);
        if (now > 0)
            sent += now;
        else if ((errno != EAGAIN && errno != EINTR) || !waitFor(socket, POLLOUT, end))
            return false;
    }
    return shutdown(socket, SHUT_WR) == 0;
}

bool isTaken(int socket, Clock::time_point end)
{
    char answer = 0;
    return waitFor(socket, POLLIN, end) && recv(socket, &answer, 1, 0) == 1 && answer == handover::kTaken;
}

} // namespace

QByteArray handover::place(const QByteArray& runtimeDirectory, const UserDirectories& user,
                           const QByteArray& display)
{
    if (display.isEmpty())
        return {};
    const QByteArray name = withoutScreen(display).toPercentEncoding(":");
    QByteArray place = runtimeDirectory + "/songbin-" + name;
    if (!isOurs(runtimeDirectory) || !fitsASocket(place))
        place = user.state + "/display-" + name;
    return fitsASocket(place) ? place : QByteArray();
}

QByteArrayList handover::places(const QByteArray& runtimeDirectory, const UserDirectories& user,
                                const QByteArray& display)
{
    QByteArrayList places{place(runtimeDirectory, user, display)};
    if (const QByteArray other = place({}, user, display); !other.isEmpty() && !places.contains(other))
        places += other;
    return places;
}

QByteArrayList handover::placesOfEnvironment(const UserDirectories& user)
{
    return places(qgetenv("XDG_RUNTIME_DIR"), user, qgetenv("DISPLAY"));
}

std::optional<QByteArray> handover::absoluteFile(const QByteArray& file)
{
    if (file.startsWith('/') || isFileAddress(file))
        return file;
    std::error_code error;
    const std::string current = std::filesystem::current_path(error).native();
    const bool isRoot = current == "/";
    return error ? std::nullopt
                 : std::optional(QByteArray::fromStdString(isRoot ? current : current + '/') + file);
}

bool HandOver::offer(const QByteArray& absoluteFile, std::chrono::milliseconds patience) const
{
    if (!handover::fitsASocket(m_place) || !handover::canBeHandedOver(absoluteFile))
        return false;
    const auto end = Clock::now() + patience;
    const Descriptor socket = connected(m_place, end);
    return socket && handover::isOfThisUser(socket.get()) &&
           sendAll(socket.get(), handover::kGreeting.toByteArray() + absoluteFile, end) &&
           isTaken(socket.get(), end);
}

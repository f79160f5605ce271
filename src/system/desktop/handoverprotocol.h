// Both ends of a hand-over know this. The sender writes the greeting and the file's bytes and ends its half;
// the listener answers with one byte when it has taken the file, else it hangs up.
#pragma once

#include <QByteArray>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>

namespace handover {

constexpr QByteArrayView kGreeting("Songbin open 1\n");
constexpr qsizetype kMostBytes = 65536; // of the file's path or address
constexpr char kTaken = '+';

constexpr qsizetype kLongestPlace = sizeof(sockaddr_un::sun_path) - 1;

inline bool isFileAddress(QByteArrayView text)
{
    constexpr QByteArrayView kScheme("file://");
    return text.size() > kScheme.size() &&
           text.first(kScheme.size()).compare(kScheme, Qt::CaseInsensitive) == 0;
}

inline bool canBeHandedOver(QByteArrayView file)
{
    return file.size() <= kMostBytes && !file.contains('\0') && (file.startsWith('/') || isFileAddress(file));
}

inline bool fitsASocket(const QByteArray& place)
{
    return place.startsWith('/') && place.size() <= kLongestPlace;
}

// Returns the address of a place that fits.
inline sockaddr_un addressOf(const QByteArray& place)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, place.constData(), static_cast<std::size_t>(place.size()));
    return address;
}

// Whoever may get past the directory's and the socket's rights is still asked for.
inline bool isOfThisUser(int socket)
{
    ucred peer{};
    socklen_t size = sizeof peer;
    return getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == geteuid();
}

inline QByteArray lockOf(const QByteArray& place)
{
    return place + ".lock";
}

} // namespace handover

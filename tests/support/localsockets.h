// Makes sockets of this machine with a path.
#pragma once

#include "posix/descriptor.h"

#include <QByteArray>

#include <algorithm>
#include <stdexcept>
#include <vector>

#include <sys/socket.h>
#include <sys/un.h>

inline sockaddr_un socketName(const QByteArray& path)
{
    sockaddr_un name{};
    name.sun_family = AF_UNIX;
    if (static_cast<std::size_t>(path.size()) >= sizeof name.sun_path)
        throw std::runtime_error("too long for a socket");
    std::copy(path.begin(), path.end(), name.sun_path);
    return name;
}

inline Descriptor localSocket()
{
    return Descriptor(socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
}

inline Descriptor listenAt(const QByteArray& path)
{
    const sockaddr_un name = socketName(path);
    Descriptor at = localSocket();
    if (bind(at.get(), reinterpret_cast<const sockaddr*>(&name), sizeof name) != 0 ||
        listen(at.get(), 5) != 0)
        throw std::runtime_error("cannot listen");
    return at;
}

// Connections that the listener has not taken yet, as many as fit.
inline std::vector<Descriptor> fullQueue(const QByteArray& path)
{
    const sockaddr_un name = socketName(path);
    std::vector<Descriptor> waiting;
    for (;;) {
        Descriptor next = localSocket();
        if (connect(next.get(), reinterpret_cast<const sockaddr*>(&name), sizeof name) != 0)
            return waiting;
        waiting.push_back(std::move(next));
    }
}

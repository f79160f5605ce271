#include "system/mpris/busgreeting.h"

#include <QList>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

#include <sys/socket.h>
#include <sys/un.h>

namespace {

// Holds what "unix:path=/run/user/0/bus,guid=4f" names.
struct Place {
    QByteArray path{};
    bool isAbstract = false;

    QByteArray address() const
    {
        return (isAbstract ? "unix:abstract=" : "unix:path=") + path.toPercentEncoding("/", "~");
    }
};

QByteArray busOfSession()
{
    const QByteArray directory = qgetenv("XDG_RUNTIME_DIR");
    return directory.isEmpty() ? QByteArray() : directory + "/bus";
}

std::optional<Place> placeOf(const QByteArray& address)
{
    constexpr QByteArrayView kTransport("unix:");
    if (!address.startsWith(kTransport))
        return std::nullopt;
    for (const QByteArray& pair : address.mid(kTransport.size()).split(',')) {
        const qsizetype equals = pair.indexOf('=');
        const QByteArray key = pair.first(std::max<qsizetype>(equals, 0));
        const QByteArray value = pair.mid(equals + 1).percentDecoded();
        if (key == "path" || key == "abstract")
            return Place{value, key == "abstract"};
        if (key == "runtime")
            return Place{busOfSession()};
    }
    return std::nullopt;
}

// Kept: it takes nothing but sockets of this machine. The other kinds start a bus that no desktop listens to,
// or wait for a network.
QList<Place> placesOfSession()
{
    const QByteArray told = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    if (told.isEmpty())
        return {Place{busOfSession()}};
    QList<Place> places;
    for (const QByteArray& address : told.split(';'))
        if (const std::optional<Place> place = placeOf(address))
            places += *place;
    return places;
}

// It does not wait, also when the bus has too many in its queue.
Descriptor connectedTo(const Place& place)
{
    sockaddr_un name{};
    name.sun_family = AF_UNIX;
    const auto size = static_cast<std::size_t>(place.path.size());
    const std::size_t before = place.isAbstract ? 1 : 0;
    if (place.path.isEmpty() || size + 1 > sizeof name.sun_path || place.path.contains('\0'))
        return {};
    std::copy(place.path.begin(), place.path.end(), name.sun_path + before);
    const std::size_t length = offsetof(sockaddr_un, sun_path) + size + 1;
    Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    const bool isConnected = socket && connect(socket.get(), reinterpret_cast<const sockaddr*>(&name),
                                               static_cast<socklen_t>(length)) == 0;
    return isConnected ? std::move(socket) : Descriptor();
}

// Asks for the ways to say who one is; every bus answers with "REJECTED" and a list.
bool greet(int socket)
{
    constexpr char kQuestion[] = "\0AUTH\r\n";
    constexpr ssize_t kSize = sizeof kQuestion - 1;
    return send(socket, kQuestion, kSize, MSG_NOSIGNAL) == kSize;
}

} // namespace

BusGreeting::BusGreeting(Answered answered) : m_answered(std::move(answered))
{
    for (const Place& place : placesOfSession()) {
        m_socket = connectedTo(place);
        m_address = place.address();
        if (m_socket && greet(m_socket.get())) {
            listen();
            break;
        }
    }
}

void BusGreeting::listen()
{
    m_notifier = std::make_unique<QSocketNotifier>(m_socket.get(), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, [this] { read(); });
}

void BusGreeting::read()
{
    char answer[64];
    const ssize_t got = recv(m_socket.get(), answer, sizeof answer, 0);
    m_notifier->setEnabled(false);
    m_socket.reset();
    if (QByteArrayView(answer, std::max<ssize_t>(got, 0)).startsWith("REJECTED"))
        m_answered(QString::fromLatin1(m_address));
}

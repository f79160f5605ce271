// Is a server that is no bus: it says one thing to the first who comes, and lets all others wait.
#pragma once

#include "tests/support/localsockets.h"
#include "tests/support/temporary.h"

#include <QSocketNotifier>

#include <utility>

class Stranger {
public:
    explicit Stranger(QByteArray says) : m_says(std::move(says))
    {
        QObject::connect(&m_comes, &QSocketNotifier::activated, [this] {
            const Descriptor caller(accept(m_socket.get(), nullptr, nullptr));
            const auto size = static_cast<std::size_t>(m_says.size());
            m_hasSpoken = send(caller.get(), m_says.constData(), size, MSG_NOSIGNAL) == m_says.size();
            m_comes.setEnabled(false);
        });
    }

    QByteArray address() const { return "unix:path=" + m_directory.at("bus"); }
    bool hasSpoken() const { return m_hasSpoken; }

private:
    QByteArray m_says;
    bool m_hasSpoken = false;
    Temporary m_directory;
    Descriptor m_socket = listenAt(m_directory.at("bus"));
    QSocketNotifier m_comes{m_socket.get(), QSocketNotifier::Read};
};

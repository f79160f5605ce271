// Looks for the desktop's session bus without ever waiting for it: whoever opens a connection to a bus that
// hangs waits for as long as it hangs, so a bus must have said something first.
#pragma once

#include "posix/descriptor.h"

#include <QByteArray>
#include <QSocketNotifier>
#include <QString>

#include <functional>
#include <memory>

class BusGreeting {
public:
    // Is called from the event loop, once, with an address that libdbus takes, and never when there is no bus
    // or it does not answer. It may not destroy the greeting.
    using Answered = std::function<void(const QString& address)>;

    // Reads DBUS_SESSION_BUS_ADDRESS and XDG_RUNTIME_DIR.
    explicit BusGreeting(Answered answered);

private:
    void listen();
    void read();

    Answered m_answered;
    QByteArray m_address{};
    Descriptor m_socket{};
    std::unique_ptr<QSocketNotifier> m_notifier{};
};

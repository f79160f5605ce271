// Is a message bus of its own on a private socket, for one test.
#pragma once

#include "tests/support/temporary.h"
#include "tests/support/variable.h"

#include <QProcess>

#include <csignal>
#include <stdexcept>

#include <sys/prctl.h>

class MessageBus {
public:
    // Returns when it listens. `listen` is where, if not at a path of the test's own.
    explicit MessageBus(const QByteArray& listen = {})
        : m_address(listen.isEmpty() ? "unix:path=" + m_directory.at("bus") : listen),
          m_session("DBUS_SESSION_BUS_ADDRESS", m_address)
    {
        m_directory.write("config", "<busconfig><type>session</type><listen>" + m_address +
                                        "</listen><auth>EXTERNAL</auth><policy context='default'>"
                                        "<allow send_destination='*'/><allow receive_sender='*'/>"
                                        "<allow own='*'/></policy></busconfig>");
        // A test that crashes must not leave a bus behind.
        m_process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
        m_process.start(QStringLiteral("dbus-daemon"),
                        {QStringLiteral("--nofork"), QStringLiteral("--print-address"),
                         QStringLiteral("--config-file=") + QString::fromUtf8(m_directory.at("config"))});
        if (!m_process.waitForReadyRead(10000)) // its address
            throw std::runtime_error("no bus: " + m_process.readAllStandardError().toStdString());
    }
    ~MessageBus() { kill(); }
    MessageBus(const MessageBus&) = delete;
    MessageBus& operator=(const MessageBus&) = delete;

    void kill()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    void freeze() { ::kill(static_cast<pid_t>(m_process.processId()), SIGSTOP); }
    void thaw() { ::kill(static_cast<pid_t>(m_process.processId()), SIGCONT); }

    QString address() const { return QString::fromUtf8(m_address); }
    const Temporary& directory() const { return m_directory; }

private:
    Temporary m_directory;
    QByteArray m_address;
    Variable m_session;
    QProcess m_process;
};

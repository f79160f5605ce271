// Is the running program's end of system/desktop/handover.h.
#pragma once

#include "posix/descriptor.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QElapsedTimer>
#include <QObject>

#include <functional>
#include <memory>

class QSocketNotifier;

// The socket is bound unless another living program has it; one that a dead program left is replaced. It may
// be made before there is an event loop: who offers something then waits in its queue. It is removed at the
// end.
class HandOverSocket {
public:
    explicit HandOverSocket(QByteArray place); // an empty one: nobody listens
    ~HandOverSocket();
    HandOverSocket(const HandOverSocket&) = delete;
    HandOverSocket& operator=(const HandOverSocket&) = delete;

    bool listens() const { return static_cast<bool>(m_socket); }
    int descriptor() const { return m_socket.get(); }

private:
    bool lock();
    bool holdsPlace() const;
    void bind();

    QByteArray m_place;
    Descriptor m_lock;
    Descriptor m_socket;
};

namespace handover {

// Is null when a running program has taken the file, at whichever place; else it is the socket of this one at
// the first place, which listens unless another program has it and does not answer. An empty file is not
// offered. Takes no longer than HandOver::kPatience.
std::unique_ptr<HandOverSocket> offerOrListen(const QByteArrayList& places, const QByteArray& file);

} // namespace handover

// Answers in every event loop, a modal dialog's too. Whoever says nothing sensible, too much or nothing at
// all within a second is hung up on and has no other effect.
class HandOverListener : public QObject {
    Q_OBJECT

public:
    struct Receiver {
        std::function<bool()> isReady; // else the file stays with the other program
        // Gets the absolute path on this machine, or a "file://" address. It may run event loops, and may not
        // throw.
        std::function<void(const QByteArray&)> open;
    };

    HandOverListener(const HandOverSocket& socket, Receiver receiver);

private:
    class Caller;

    void accept();
    void pause();
    void openSoon(const QByteArray& file);
    void waitToOpen();
    void openNext();

    Receiver m_receiver;
    QByteArrayList m_taken; // and not opened yet
    QElapsedTimer m_waits;
    int m_socket;
    QSocketNotifier* m_notifier = nullptr;
    int m_callers = 0;
};

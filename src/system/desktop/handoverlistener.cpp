#include "system/desktop/handoverlistener.h"

#include "system/desktop/handover.h"
#include "system/desktop/handoverprotocol.h"

#include <QSocketNotifier>
#include <QTimer>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <utility>

namespace {

using namespace std::chrono_literals;

constexpr auto kPatience = 1000ms; // less than the sender's
constexpr auto kPause = 1000ms;
constexpr qint64 kLongestWait = 300; // milliseconds, of a file that was taken
constexpr auto kStep = 5ms;
constexpr int kMostCallers = 16;
constexpr int kQueue = 16;
constexpr int kMostTries = 10;
constexpr mode_t kOwnerAlone = S_IRUSR | S_IWUSR;

bool isSame(const struct stat& a, const struct stat& b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

} // namespace

// --- the socket -----------------------------------------------------------------------------------

HandOverSocket::HandOverSocket(QByteArray place) : m_place(std::move(place))
{
    if (!handover::fitsASocket(m_place))
        return;
    std::error_code error; // the state directory, at the first start
    std::filesystem::create_directories(std::filesystem::path(m_place.toStdString()).parent_path(), error);
    if (lock())
        bind();
}

HandOverSocket::~HandOverSocket()
{
    if (!m_lock || !holdsPlace())
        return;
    if (m_socket)
        unlink(m_place.constData());
    unlink(handover::lockOf(m_place).constData()); // last, and while the lock is held
}

// The lock file is removed at the end, so what was locked may no longer be what others find under its name.
bool HandOverSocket::lock()
{
    for (int tries = 0; tries < kMostTries; ++tries) {
        m_lock.reset(open(handover::lockOf(m_place).constData(),
                          O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, kOwnerAlone));
        struct flock whole {};
        whole.l_type = F_WRLCK;
        whole.l_whence = SEEK_SET;
        if (!m_lock || fcntl(m_lock.get(), F_OFD_SETLK, &whole) != 0)
            break;
        if (holdsPlace())
            return true;
    }
    m_lock.reset();
    return false;
}

bool HandOverSocket::holdsPlace() const
{
    struct stat held {};
    struct stat found {};
    return fstat(m_lock.get(), &held) == 0 && lstat(handover::lockOf(m_place).constData(), &found) == 0 &&
           isSame(held, found);
}

// Nobody else may bind or remove anything here while the lock is held.
void HandOverSocket::bind()
{
    struct stat left {};
    if (lstat(m_place.constData(), &left) == 0 && S_ISSOCK(left.st_mode))
        unlink(m_place.constData());
    Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    const sockaddr_un address = handover::addressOf(m_place);
    // The rights are set before anybody can find it.
    if (socket && fchmod(socket.get(), kOwnerAlone) == 0 &&
        ::bind(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
        listen(socket.get(), kQueue) == 0)
        m_socket = std::move(socket);
}

// Whoever began to listen after the first offer is asked, too.
std::unique_ptr<HandOverSocket> handover::offerOrListen(const QByteArrayList& places, const QByteArray& file)
{
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + HandOver::kPatience;
    const auto takes = [&](const QByteArray& place) {
        const auto left = std::chrono::floor<std::chrono::milliseconds>(end - Clock::now());
        return !file.isEmpty() && HandOver(place).offer(file, left);
    };
    if (std::any_of(places.begin(), places.end(), takes))
        return nullptr;
    auto socket = std::make_unique<HandOverSocket>(places.value(0));
    const bool taken = !socket->listens() && takes(places.value(0));
    return taken ? nullptr : std::move(socket);
}

// --- who calls ------------------------------------------------------------------------------------

class HandOverListener::Caller : public QObject {
public:
    Caller(HandOverListener& listener, Descriptor socket)
        : QObject(&listener), m_listener(listener), m_socket(std::move(socket)),
          m_notifier(m_socket.get(), QSocketNotifier::Read)
    {
        ++m_listener.m_callers;
        connect(&m_notifier, &QSocketNotifier::activated, this, &Caller::read);
        m_patience.setSingleShot(true);
        connect(&m_patience, &QTimer::timeout, this, &Caller::hangUp);
        m_patience.start(kPatience);
    }

private:
    void read()
    {
        char part[4096];
        const ssize_t got = recv(m_socket.get(), part, sizeof part, 0);
        if (got < 0 && (errno == EAGAIN || errno == EINTR))
            return;
        if (got > 0)
            m_said.append(part, got);
        if (got < 0 || m_said.size() > handover::kGreeting.size() + handover::kMostBytes)
            hangUp();
        else if (got == 0)
            take();
    }

    // One that has stopped waiting no longer hears the answer, and opens the file itself.
    void take()
    {
        const QByteArray file =
            m_said.startsWith(handover::kGreeting) ? m_said.sliced(handover::kGreeting.size()) : QByteArray();
        const bool taken = handover::canBeHandedOver(file) && m_listener.m_receiver.isReady() &&
                           send(m_socket.get(), &handover::kTaken, 1, MSG_NOSIGNAL) == 1;
        hangUp();
        if (taken)
            m_listener.openSoon(file);
    }

    void hangUp()
    {
        m_notifier.setEnabled(false);
        m_patience.stop();
        m_socket.reset();
        --m_listener.m_callers;
        deleteLater();
    }

    HandOverListener& m_listener;
    Descriptor m_socket;
    QSocketNotifier m_notifier;
    QTimer m_patience;
    QByteArray m_said;
};

// --- the listener ---------------------------------------------------------------------------------

HandOverListener::HandOverListener(const HandOverSocket& socket, Receiver receiver)
    : m_receiver(std::move(receiver)), m_socket(socket.descriptor())
{
    if (!socket.listens())
        return;
    m_notifier = new QSocketNotifier(m_socket, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &HandOverListener::accept);
}

// It takes one at a time, so that many callers do not hold up the windows.
void HandOverListener::accept()
{
    Descriptor caller(accept4(m_socket, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
    if (!caller) {
        if (errno != EAGAIN && errno != EINTR && errno != ECONNABORTED)
            pause();
        return;
    }
    if (m_callers < kMostCallers && handover::isOfThisUser(caller.get()))
        new Caller(*this, std::move(caller));
}

// Those who wait for an answer come first: opening takes longer than they may have. But files do not wait for
// ever.
void HandOverListener::openSoon(const QByteArray& file)
{
    m_taken += file;
    if (m_taken.size() == 1)
        waitToOpen();
}

void HandOverListener::waitToOpen()
{
    m_waits.start();
    QTimer::singleShot(0, this, &HandOverListener::openNext);
}

void HandOverListener::openNext()
{
    pollfd queue{m_socket, POLLIN, 0};
    const bool isAsked = m_callers > 0 || poll(&queue, 1, 0) > 0;
    if (isAsked && m_waits.elapsed() < kLongestWait)
        return QTimer::singleShot(kStep, this, &HandOverListener::openNext);
    const QByteArray file = m_taken.takeFirst();
    if (!m_taken.isEmpty())
        waitToOpen();
    m_receiver.open(file);
}

// The program may have no descriptors left: who waits would then wake us at every turn of the loop.
void HandOverListener::pause()
{
    m_notifier->setEnabled(false);
    QTimer::singleShot(kPause, this, [this] { m_notifier->setEnabled(true); });
}

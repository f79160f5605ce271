// Has both ends of a hand-over, in a directory of the test's own.
#pragma once

#include "posix/xdg.h"
#include "system/desktop/handover.h"
#include "system/desktop/handoverlistener.h"
#include "system/desktop/handoverprotocol.h"
#include "tests/support/childprocess.h"
#include "tests/support/hung.h"
#include "tests/support/temporary.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <atomic>
#include <chrono>
#include <thread>

inline bool turnUntil(const std::function<bool()>& done, int milliseconds = kHung)
{
    QElapsedTimer clock;
    clock.start();
    while (!done() && clock.elapsed() < milliseconds) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return done();
}

inline void turnFor(int milliseconds)
{
    turnUntil([] { return false; }, milliseconds);
}

// It lies midway, in milliseconds: what needs no answer takes none of the patience, and what waits for one
// all of it.
constexpr qint64 kAtOnce = HandOver::kPatience.count() / 2;

struct HandOverTest : testing::Test {
    Temporary directory;
    UserDirectories user{directory.at("home"), directory.at("config"), directory.at("state"),
                         directory.at("data")};
    QByteArray place = directory.at("songbin-:0");
    QByteArrayList opened;
    bool ready = true;

    HandOverListener::Receiver receiver()
    {
        return {[this] { return ready; }, [this](const QByteArray& file) { opened += file; }};
    }

    // Returns "1" or "0", said by a process of its own.
    static QByteArray offered(const QByteArray& place, const QByteArray& file)
    {
        return HandOver(place).offer(file) ? "1" : "0";
    }
    // Offers while the events of this process are handled.
    QByteArray answer(const QByteArray& file)
    {
        QByteArray said;
        std::thread offering([&] { said = offered(place, file); });
        // The thread never takes more than two seconds.
        std::atomic<bool> done = false;
        std::thread joining([&] {
            offering.join();
            done = true;
        });
        turnUntil([&] { return done.load(); });
        joining.join();
        turnFor(20); // what was taken is opened when nobody waits for an answer
        return said;
    }

    // Makes a connection by hand.
    Descriptor caller() const
    {
        Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
        const sockaddr_un address = handover::addressOf(place);
        EXPECT_EQ(connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        return socket;
    }
    static void tell(const Descriptor& socket, const QByteArray& bytes)
    {
        send(socket.get(), bytes.constData(), static_cast<std::size_t>(bytes.size()), MSG_NOSIGNAL);
    }
    // Tells whether it was hung up without having taken anything.
    static bool isRefused(const Descriptor& socket, int milliseconds = kHung)
    {
        char answer = 0;
        ssize_t got = -1;
        const bool ended = turnUntil(
            [&] {
                got = recv(socket.get(), &answer, 1, MSG_DONTWAIT);
                return got >= 0 || (errno != EAGAIN && errno != EINTR);
            },
            milliseconds);
        return ended && got <= 0;
    }
    bool exists(const QByteArray& path) const
    {
        struct stat status {};
        return lstat(path.constData(), &status) == 0;
    }
};

#include "system/mpris/busgreeting.h"
#include "tests/support/messagebus.h"
#include "tests/support/stranger.h"

#include <QCoreApplication>
#include <QTest>

#include <gtest/gtest.h>

namespace {

// Returns where a bus answered, or nothing within a short time.
QString answeredBy(const QByteArray& session, const QByteArray& runtimeDirectory = {}, int patience = 300)
{
    const Variable address("DBUS_SESSION_BUS_ADDRESS", session);
    const Variable runtime("XDG_RUNTIME_DIR", runtimeDirectory);
    QString answer;
    int answers = 0;
    const BusGreeting greeting([&](const QString& at) {
        answer = at;
        ++answers;
    });
    EXPECT_EQ(answers, 0) << "not before the event loop";
    const bool isAnswered = QTest::qWaitFor([&] { return answers > 0; }, patience);
    QTest::qWait(20);
    EXPECT_EQ(answers, isAnswered ? 1 : 0);
    return answer;
}

constexpr int kLong = 5000;

} // namespace

TEST(BusGreeting, findsTheBusOfTheSession)
{
    const MessageBus bus;
    const QByteArray address = bus.address().toUtf8();
    EXPECT_EQ(answeredBy(address, {}, kLong), bus.address());
    EXPECT_EQ(answeredBy(address + ",guid=0123456789abcdef0123456789abcdef", {}, kLong), bus.address());
    EXPECT_EQ(answeredBy("unix:guid=01,path=" + bus.directory().at("bus"), {}, kLong), bus.address());
}

TEST(BusGreeting, looksInTheRuntimeDirectory)
{
    const MessageBus bus;
    const QByteArray directory = bus.directory().path();
    EXPECT_EQ(answeredBy({}, directory, kLong), bus.address());
    EXPECT_EQ(answeredBy("unix:runtime=yes", directory, kLong), bus.address());
    EXPECT_EQ(answeredBy("unix:path=/nonexistent/bus", directory), QString());
    EXPECT_EQ(answeredBy({}, {}), QString());
}

TEST(BusGreeting, takesTheFirstOfAListThatIsThere)
{
    const MessageBus bus;
    const QByteArray address = bus.address().toUtf8();
    EXPECT_EQ(answeredBy("unix:path=/nonexistent/bus;" + address + ";unix:path=/other", {}, kLong),
              bus.address());
}

TEST(BusGreeting, namesMayBeOfAnyCharacters)
{
    const Temporary directory;
    directory.makeDirectory("a b;~%,=");
    const QByteArray path = directory.at("a b;~%,=/bus").toPercentEncoding("/", "~");
    const MessageBus bus("unix:path=" + path);
    EXPECT_EQ(answeredBy(bus.address().toUtf8(), {}, kLong), bus.address());
}

TEST(BusGreeting, findsABusWithoutAFile)
{
    const QByteArray name = "songbin-test-" + QByteArray::number(QCoreApplication::applicationPid());
    const MessageBus bus("unix:abstract=" + name);
    EXPECT_EQ(answeredBy(bus.address().toUtf8(), {}, kLong), bus.address());
}

// Such addresses would run a program or go to the network.
TEST(BusGreeting, startsNothing)
{
    const Temporary directory;
    const QByteArray mark = directory.at("mark");
    EXPECT_EQ(answeredBy("unixexec:path=/usr/bin/touch,argv1=" + mark), QString());
    EXPECT_EQ(answeredBy("autolaunch:"), QString());
    EXPECT_FALSE(directory.exists("mark"));
}

TEST(BusGreeting, believesNoStranger)
{
    for (const QByteArray& says :
         {QByteArray(), QByteArray("ERROR\r\n"), QByteArray("REJ"), QByteArray(100'000, 'R')}) {
        const Stranger stranger(says);
        EXPECT_EQ(answeredBy(stranger.address()), QString()) << says.left(9).constData();
        EXPECT_TRUE(stranger.hasSpoken());
    }
    const Stranger bus("REJECTED EXTERNAL\r\n");
    EXPECT_EQ(answeredBy(bus.address(), {}, kLong), QString::fromUtf8(bus.address()));
}

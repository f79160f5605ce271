#include "tests/support/localsockets.h"
#include "tests/support/rerun.h"
#include "tests/support/stranger.h"
#include "tests/system/mpris/mpristest.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <vector>

namespace {

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

// Milliseconds, midway: nobody is held up at all, and whoever waits for a bus waits for 25 seconds.
constexpr int kAtOnce = 10'000;

QString instanceName()
{
    return QString::fromUtf8(kPlayerName) +
           QStringLiteral(".instance%1").arg(QCoreApplication::applicationPid());
}

// Does all that controls do on a bus that may not be there, and returns the milliseconds; nothing may be said
// of it.
qint64 lifeOfControls(RecordingPlayer& player)
{
    QElapsedTimer timer;
    timer.start();
    CaptureStderr();
    {
        const std::unique_ptr<DesktopControls> controls = makeMprisControls(player);
        for (int i = 0; i < 5; ++i) {
            controls->refresh();
            controls->jumped(i);
            QTest::qWait(10);
        }
    }
    const qint64 took = timer.elapsed();
    EXPECT_EQ(GetCapturedStderr(), "");
    return took;
}

} // namespace

using Mpris = MprisTest;

TEST_F(Mpris, takesItsName)
{
    EXPECT_EQ(client.names(), QStringList{QString::fromUtf8(kPlayerName)});
    EXPECT_EQ(player.calls, QStringList());
}

TEST_F(Mpris, describesItself)
{
    const QVariantList said = client.call("org.freedesktop.DBus.Introspectable", "Introspect").arguments();
    ASSERT_EQ(said.size(), 1);
    for (const char* part :
         {"org.mpris.MediaPlayer2\"", "org.mpris.MediaPlayer2.Player\"", "<signal name=\"Seeked\"",
          "<method name=\"SetPosition\"", "name=\"Metadata\" type=\"a{sv}\" access=\"read\"",
          "name=\"Volume\" type=\"d\" access=\"readwrite\"", "name=\"Position\" type=\"x\" access=\"read\""})
        EXPECT_TRUE(said.first().toString().contains(QString::fromUtf8(part))) << part;
    EXPECT_FALSE(said.first().toString().contains(u"deleteLater"_qs));
}

TEST_F(Mpris, aSecondPlayerTakesANameOfItsOwn)
{
    RecordingPlayer other;
    auto otherControls = makeMprisControls(other);
    ASSERT_TRUE(QTest::qWaitFor([&] { return client.sees(instanceName()); }, kHung));
    EXPECT_EQ(client.names(), (QStringList{QString::fromUtf8(kPlayerName), instanceName()}));
    client.player = instanceName();
    EXPECT_EQ(callsAfter(kPlayerInterface, "Play"), QStringList());
    EXPECT_EQ(other.calls, QStringList{u"play"_qs});
    client.player = QString::fromUtf8(kPlayerName);
    EXPECT_EQ(callsAfter(kPlayerInterface, "Stop"), QStringList{u"stop"_qs});
    EXPECT_EQ(other.calls.size(), 1);
}

TEST_F(Mpris, theEndGivesEverythingBack)
{
    const qsizetype connections = client.connections();
    controls.reset();
    EXPECT_TRUE(QTest::qWaitFor([&] { return client.names().isEmpty(); }, kHung));
    EXPECT_EQ(client.connections(), connections - 1);
    client.call(kPlayerInterface, "Play");
    EXPECT_EQ(player.calls, QStringList());
    controls = makeMprisControls(player);
    EXPECT_TRUE(QTest::qWaitFor([&] { return client.sees(QString::fromUtf8(kPlayerName)); }, kHung));
}

TEST_F(Mpris, mayEndAtAnyTime)
{
    controls.reset();
    for (int i = 0; i < 100; ++i) {
        controls = makeMprisControls(player);
        QElapsedTimer timer;
        timer.start();
        while (timer.nsecsElapsed() < i * 100'000)
            QCoreApplication::processEvents();
        controls->refresh();
        controls.reset();
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return client.names().isEmpty(); }, kHung));
    EXPECT_TRUE(QTest::qWaitFor([&] { return client.connections() == 1; }, kHung));
}

TEST_F(Mpris, theBusMayDie)
{
    CaptureStderr();
    bus.kill();
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 20; ++i) {
        player.state.entry = 100 + i;
        controls->refresh();
        controls->jumped(i);
        QTest::qWait(10);
    }
    const int reports = player.reports;
    controls->refresh();
    EXPECT_EQ(player.reports, reports) << "asks the player for nobody";
    controls.reset();
    EXPECT_LT(timer.elapsed(), kAtOnce);
    EXPECT_EQ(GetCapturedStderr(), "");
}

TEST_F(Mpris, theBusMayHang)
{
    CaptureStderr();
    bus.freeze();
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 5000; ++i) { // more than the socket holds
        player.state.title = QString(100, QChar(u'a' + i % 26));
        controls->refresh();
        controls->jumped(i);
    }
    controls.reset();
    EXPECT_LT(timer.elapsed(), kAtOnce);
    EXPECT_EQ(GetCapturedStderr(), "");
    bus.thaw();
    EXPECT_TRUE(QTest::qWaitFor([&] { return client.names().isEmpty(); }, kHung));
}

TEST(MprisWithoutABus, doesNothing)
{
    const Temporary directory;
    const Variable runtime("XDG_RUNTIME_DIR", directory.path());
    const QByteArray nowhere = "unix:path=" + directory.at("bus");
    directory.write("file");
    for (const QByteArray& address :
         {QByteArray(), nowhere, "unix:path=" + directory.at("file"), QByteArray("autolaunch:"),
          QByteArray("unix:"), QByteArray("unix:path="), QByteArray(";;=,"),
          QByteArray("tcp:host=192.0.2.1,port=1"), "unix:path=/" + QByteArray(500, 'x'),
          QByteArray("unix:path=/a%00b"), QByteArray("unix:abstract=%zz")}) {
        const Variable session("DBUS_SESSION_BUS_ADDRESS", address);
        RecordingPlayer player;
        EXPECT_LT(lifeOfControls(player), kAtOnce) << address.constData();
        EXPECT_EQ(player.reports, 0);
    }
}

TEST(MprisWithAHangingBus, waitsForNothing)
{
    MessageBus bus;
    bus.freeze();
    RecordingPlayer player;
    EXPECT_LT(lifeOfControls(player), kAtOnce);
    const std::vector<Descriptor> waiting = fullQueue(bus.directory().at("bus"));
    ASSERT_GT(waiting.size(), 0u);
    EXPECT_LT(lifeOfControls(player), kAtOnce);
    EXPECT_EQ(player.reports, 0);
}

// What waits for the answer to "Hello" waits here.
TEST(MprisWithAHangingBus, mayGreetBefore)
{
    const Stranger bus("REJECTED EXTERNAL\r\n");
    const Variable session("DBUS_SESSION_BUS_ADDRESS", bus.address());
    RecordingPlayer player;
    EXPECT_LT(lifeOfControls(player), kAtOnce);
    EXPECT_TRUE(bus.hasSpoken());
    EXPECT_EQ(player.reports, 0);
}

TEST(MprisWithAHangingBus, isThereWhenItGoesOn)
{
    MessageBus bus;
    bus.freeze();
    RecordingPlayer player;
    const std::unique_ptr<DesktopControls> controls = makeMprisControls(player);
    QTest::qWait(50);
    bus.thaw();
    BusClient client(bus.address());
    EXPECT_TRUE(QTest::qWaitFor([&] { return client.sees(QString::fromUtf8(kPlayerName)); }, kHung));
}

TEST(MprisWithAHangingBus, DISABLED_program)
{
    static auto* const bus = new MessageBus; // it must outlive the program's end
    RecordingPlayer player;
    const std::unique_ptr<DesktopControls> controls = makeMprisControls(player);
    ASSERT_TRUE(QTest::qWaitFor([&] { return player.reports > 0; }, kHung));
    bus->freeze();
    player.state.entry = 5;
    controls->refresh();
    const std::unique_ptr<DesktopControls> late = makeMprisControls(player);
    const Stranger stranger("REJECTED EXTERNAL\r\n");
    const Variable session("DBUS_SESSION_BUS_ADDRESS", stranger.address());
    const std::unique_ptr<DesktopControls> later = makeMprisControls(player);
    EXPECT_TRUE(QTest::qWaitFor([&] { return stranger.hasSpoken(); }, kHung));
    QTest::qWait(50);
}

TEST(MprisWithAHangingBus, theProgramEndsAtOnce)
{
    QElapsedTimer timer;
    timer.start();
    const Rerun run("MprisWithAHangingBus.DISABLED_program", QProcessEnvironment::systemEnvironment());
    EXPECT_TRUE(run.passed) << run.output.toStdString();
    EXPECT_LT(timer.elapsed(), kAtOnce);
}

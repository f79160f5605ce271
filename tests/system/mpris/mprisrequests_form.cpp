#include "tests/system/mpris/mpristest.h"

#include <QDBusObjectPath>

#include <limits>

namespace {

constexpr qlonglong kLeast = std::numeric_limits<qlonglong>::min();
constexpr qlonglong kMost = std::numeric_limits<qlonglong>::max();

QVariant path(const char* text)
{
    return QVariant::fromValue(QDBusObjectPath(QString::fromUtf8(text)));
}

struct Plain {
    const char* interface;
    const char* method;
    const char* call;
};

constexpr Plain kPlain[] = {
    {kApplicationInterface, "Raise", "bringToFront"},
    {kApplicationInterface, "Quit", "quit"},
    {kPlayerInterface, "Next", "next"},
    {kPlayerInterface, "Previous", "previous"},
    {kPlayerInterface, "Pause", "pause"},
    {kPlayerInterface, "PlayPause", "playPause"},
    {kPlayerInterface, "Stop", "stop"},
    {kPlayerInterface, "Play", "play"},
};

} // namespace

struct MprisRequests : MprisTest {
    QStringList seek(qlonglong offset) { return callsAfter(kPlayerInterface, "Seek", {offset}); }
    QStringList setPosition(const char* track, qlonglong position)
    {
        return callsAfter(kPlayerInterface, "SetPosition", {path(track), position});
    }
    QStringList open(const QString& address) { return callsAfter(kPlayerInterface, "OpenUri", {address}); }
};

TEST_F(MprisRequests, plainOnesReachThePlayer)
{
    for (const Plain& each : kPlain) {
        EXPECT_EQ(callsAfter(each.interface, each.method), QStringList{QString::fromUtf8(each.call)});
        EXPECT_TRUE(isAnswered()) << each.method;
    }
}

// While the player is still at it, as it is when it asks its user something.
TEST_F(MprisRequests, areAnsweredBeforeThePlayerHasDoneThem)
{
    bool wasAnswered = false;
    QDBusPendingCall* asked = nullptr;
    player.onCall = [&] { wasAnswered = QTest::qWaitFor([&] { return asked->isFinished(); }, kHung); };
    QDBusPendingCall question = client.begin(kPlayerInterface, "Play");
    asked = &question;
    EXPECT_TRUE(QTest::qWaitFor([&] { return !player.calls.isEmpty() && wasAnswered; }, kHung));
    EXPECT_FALSE(question.isError());
}

TEST_F(MprisRequests, seek)
{
    EXPECT_EQ(seek(10'000'000), QStringList{u"goTo 60000"_qs});
    EXPECT_EQ(seek(-10'000'000), QStringList{u"goTo 40000"_qs});
    EXPECT_EQ(seek(-50'000'001), QStringList{u"goTo 0"_qs});
    EXPECT_EQ(seek(150'000'000), QStringList{u"goTo 200000"_qs});
    EXPECT_EQ(seek(150'000'001), QStringList{u"next"_qs});
    EXPECT_EQ(seek(kMost), QStringList{u"next"_qs});
    EXPECT_EQ(seek(kLeast), QStringList{u"goTo 0"_qs});
    EXPECT_TRUE(isAnswered());
    player.state.position = 300000; // behind the end that the entry told
    EXPECT_EQ(seek(0), QStringList{u"goTo 200000"_qs});
    EXPECT_EQ(seek(kLeast), QStringList{u"goTo 0"_qs});
}

TEST_F(MprisRequests, seekWhereThereIsNothingToSeek)
{
    const auto nothing = [this](const char* why) {
        EXPECT_EQ(seek(1000), QStringList()) << why;
        EXPECT_EQ(setPosition("/org/songbin/track/3", 0), QStringList()) << why;
        EXPECT_TRUE(isAnswered()) << why;
    };
    const PlayerReport before = player.state;
    player.state.status = PlayerReport::Stopped;
    nothing("stopped");
    player.state = before;
    player.state.length = 0;
    nothing("length not known");
    player.state = before;
    player.state.entry = 0;
    nothing("no entry");
}

TEST_F(MprisRequests, setPosition)
{
    EXPECT_EQ(setPosition("/org/songbin/track/3", 61'234'567), QStringList{u"goTo 61234"_qs});
    EXPECT_EQ(setPosition("/org/songbin/track/3", 0), QStringList{u"goTo 0"_qs});
    EXPECT_EQ(setPosition("/org/songbin/track/3", 200'000'000), QStringList{u"goTo 200000"_qs});
    for (const qlonglong outside : {qlonglong(200'000'001), qlonglong(-1), kMost, kLeast})
        EXPECT_EQ(setPosition("/org/songbin/track/3", outside), QStringList()) << outside;
    for (const char* other : {"/org/songbin/track/2", "/", "/org/mpris/MediaPlayer2/TrackList/NoTrack"})
        EXPECT_EQ(setPosition(other, 1000), QStringList()) << other;
    EXPECT_TRUE(isAnswered());
}

TEST_F(MprisRequests, openUri)
{
    const QString file = u"openAndPlay file:///m/a%E6%20b.mp3"_qs;
    for (const QString& address : {u"file:///m/a%E6%20b.mp3"_qs, u"FILE:///m/a%E6%20b.mp3"_qs,
                                   u"file://LocalHost/m/a%E6%20b.mp3"_qs, u"file:/m/a%E6%20b.mp3"_qs}) {
        EXPECT_EQ(open(address), QStringList{file}) << address.toStdString();
        EXPECT_TRUE(isAnswered());
    }
    EXPECT_EQ(open(u"file:///m/Blåbær #1?.mp3"_qs), QStringList{u"openAndPlay file:///m/Blåbær #1?.mp3"_qs});
}

TEST_F(MprisRequests, openUriOfWhatIsNoFile)
{
    for (const QString& address :
         {u""_qs, u"http://example.org/a.mp3"_qs, u"/m/a.mp3"_qs, u"a.mp3"_qs, u"file:"_qs, u"file://"_qs,
          u"file:a.mp3"_qs, u"file://elsewhere/a.mp3"_qs, u"file://localhost.example.org/a.mp3"_qs,
          u"file:///m/a%00.mp3"_qs, u"javascript:file:///a"_qs, u" file:///a"_qs,
          u"file:///"_qs + QString(2'000'000, u'a')}) {
        EXPECT_EQ(open(address), QStringList()) << address.left(60).toStdString();
        EXPECT_EQ(answer.errorName(), u"org.freedesktop.DBus.Error.InvalidArgs"_qs);
    }
}

TEST_F(MprisRequests, propertiesThatCanBeSet)
{
    EXPECT_EQ(callsAfterSet("Shuffle", true), QStringList{u"setShuffle 1"_qs});
    EXPECT_EQ(callsAfterSet("Shuffle", false), QStringList{u"setShuffle 0"_qs});
    EXPECT_EQ(callsAfterSet("LoopStatus", u"Track"_qs), QStringList{u"setRepeatsEntry 1"_qs});
    EXPECT_EQ(callsAfterSet("LoopStatus", u"None"_qs), QStringList{u"setRepeatsEntry 0"_qs});
    EXPECT_EQ(callsAfterSet("Volume", 0.75), QStringList{u"setVolume 0.75"_qs});
    EXPECT_EQ(callsAfterSet("Rate", 0.0), QStringList{u"pause"_qs});
    EXPECT_TRUE(isAnswered());
}

TEST_F(MprisRequests, valuesThatMeanNothing)
{
    constexpr double kInfinite = std::numeric_limits<double>::infinity();
    EXPECT_EQ(callsAfterSet("Volume", -3.0), QStringList{u"setVolume 0"_qs});
    EXPECT_EQ(callsAfterSet("Volume", 1e300), QStringList{u"setVolume 1"_qs});
    for (const double none : {std::numeric_limits<double>::quiet_NaN(), kInfinite, -kInfinite}) {
        EXPECT_EQ(callsAfterSet("Volume", none), QStringList()) << none;
        EXPECT_EQ(callsAfterSet("Rate", none), QStringList()) << none;
        EXPECT_TRUE(isAnswered());
    }
    EXPECT_EQ(callsAfterSet("Rate", 2.0), QStringList());
    for (const QString& status : {u"Playlist"_qs, u"track"_qs, u""_qs})
        EXPECT_EQ(callsAfterSet("LoopStatus", status), QStringList()) << status.toStdString();
}

TEST_F(MprisRequests, whatCannotBeSetOrIsNotThereIsAnError)
{
    for (const char* property : {"Position", "PlaybackStatus", "Metadata", "CanPlay", "Nothing"}) {
        EXPECT_EQ(callsAfterSet(property, qlonglong(0)), QStringList());
        EXPECT_FALSE(isAnswered()) << property;
    }
    EXPECT_EQ(callsAfterSet("Volume", QStringList{u"a"_qs}), QStringList());
    EXPECT_FALSE(isAnswered());
    EXPECT_EQ(callsAfterSet("Shuffle", path("/a")), QStringList());
    EXPECT_FALSE(isAnswered());
    for (const QVariantList& wrong : {QVariantList{}, QVariantList{u"1"_qs}, QVariantList{1.0, 2.0}}) {
        EXPECT_EQ(callsAfter(kPlayerInterface, "Seek", wrong), QStringList());
        EXPECT_FALSE(isAnswered());
    }
    for (const char* method : {"deleteLater", "Nothing", "setVolume"}) {
        EXPECT_EQ(callsAfter(kPlayerInterface, method), QStringList());
        EXPECT_FALSE(isAnswered()) << method;
    }
}

// The window may go in whatever it is asked.
TEST_F(MprisRequests, mayDestroyTheControls)
{
    player.onCall = [this] { controls.reset(); };
    const auto destroys = [this](const std::function<void()>& ask) {
        ASSERT_TRUE(QTest::qWaitFor([this] { return client.sees(client.player); }, kHung));
        ask();
        EXPECT_TRUE(isAnswered());
        EXPECT_TRUE(QTest::qWaitFor([this] { return !controls; }, kHung));
        EXPECT_TRUE(QTest::qWaitFor([this] { return client.names().isEmpty(); }, kHung));
        controls = makeMprisControls(player);
    };
    for (const Plain& each : kPlain)
        destroys([&] { answer = client.call(each.interface, each.method); });
    destroys([&] { answer = client.call(kPlayerInterface, "Seek", {qlonglong(1)}); });
    destroys([&] { answer = client.call(kPlayerInterface, "Seek", {kMost}); });
    destroys([&] {
        answer = client.call(kPlayerInterface, "SetPosition", {path("/org/songbin/track/3"), qlonglong(1)});
    });
    destroys([&] { answer = client.call(kPlayerInterface, "OpenUri", {u"file:///a"_qs}); });
    destroys([&] { answer = client.set("Volume", 1.0); });
    destroys([&] { answer = client.set("Shuffle", true); });
    destroys([&] { answer = client.set("LoopStatus", u"None"_qs); });
    destroys([&] { answer = client.set("Rate", 0.0); });
}

TEST_F(MprisRequests, thatWaitWhenTheControlsGoAreDropped)
{
    player.onCall = [this] { controls.reset(); };
    const QDBusPendingCall first = client.begin(kPlayerInterface, "Stop");
    const QDBusPendingCall second = client.begin(kPlayerInterface, "Play");
    EXPECT_TRUE(QTest::qWaitFor([&] { return first.isFinished() && second.isFinished(); }, kHung));
    EXPECT_TRUE(QTest::qWaitFor([this] { return client.names().isEmpty(); }, kHung));
    EXPECT_EQ(player.calls, QStringList{u"stop"_qs});
}

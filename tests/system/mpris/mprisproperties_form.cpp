#include "tests/system/mpris/mpristest.h"

#include <QDBusObjectPath>

#include <limits>

namespace {

QStringList changedKeys(const BusClient::Change& change)
{
    return change.values.keys();
}

QString trackIn(const QVariantMap& metadata)
{
    return metadata.value(u"mpris:trackid"_qs).value<QDBusObjectPath>().path();
}

} // namespace

using MprisProperties = MprisTest;

TEST_F(MprisProperties, theApplication)
{
    const QVariantMap all = client.getAll(kApplicationInterface);
    EXPECT_EQ(all.size(), 7);
    EXPECT_EQ(all[u"Identity"_qs], QVariant(u"Tonedeck"_qs));
    EXPECT_EQ(all[u"DesktopEntry"_qs], QVariant(u"songbin"_qs));
    EXPECT_EQ(all[u"CanQuit"_qs], QVariant(true));
    EXPECT_EQ(all[u"CanRaise"_qs], QVariant(true));
    EXPECT_EQ(all[u"HasTrackList"_qs], QVariant(false));
    EXPECT_EQ(all[u"SupportedUriSchemes"_qs], QVariant(QStringList{u"file"_qs}));
    const QStringList types = all[u"SupportedMimeTypes"_qs].toStringList();
    EXPECT_TRUE(types.contains(u"audio/mpeg"_qs));
    for (const QString& type : types)
        EXPECT_EQ(type.count(u'/'), 1) << type.toStdString();
}

TEST_F(MprisProperties, thePlayer)
{
    const QVariantMap all = client.getAll(kPlayerInterface);
    EXPECT_EQ(all.size(), 15);
    EXPECT_EQ(all[u"PlaybackStatus"_qs], QVariant(u"Playing"_qs));
    EXPECT_EQ(all[u"LoopStatus"_qs], QVariant(u"None"_qs));
    EXPECT_EQ(all[u"Shuffle"_qs], QVariant(false));
    EXPECT_EQ(all[u"Volume"_qs], QVariant(0.25));
    EXPECT_EQ(all[u"Position"_qs], QVariant(qlonglong(50'000'000)));
    for (const QString& rate : {u"Rate"_qs, u"MinimumRate"_qs, u"MaximumRate"_qs})
        EXPECT_EQ(all[rate], QVariant(1.0)) << rate.toStdString();
    for (const QString& can : {u"CanGoNext"_qs, u"CanGoPrevious"_qs, u"CanPlay"_qs, u"CanPause"_qs,
                               u"CanSeek"_qs, u"CanControl"_qs})
        EXPECT_EQ(all[can], QVariant(true)) << can.toStdString();
}

TEST_F(MprisProperties, theEntry)
{
    const QVariantMap data = mapOf(client.get(kPlayerInterface, "Metadata"));
    EXPECT_EQ(data.size(), 7);
    EXPECT_EQ(trackIn(data), u"/org/songbin/track/3"_qs);
    EXPECT_EQ(data[u"mpris:length"_qs], QVariant(qlonglong(200'000'000)));
    EXPECT_EQ(data[u"mpris:artUrl"_qs], QVariant(u"file:///music/front.png"_qs));
    EXPECT_EQ(data[u"xesam:title"_qs], QVariant(u"Blåbær"_qs));
    EXPECT_EQ(data[u"xesam:artist"_qs], QVariant(QStringList{u"Trio"_qs}));
    EXPECT_EQ(data[u"xesam:album"_qs], QVariant(u"Skog"_qs));
    EXPECT_EQ(data[u"xesam:url"_qs], QVariant(u"file:///music/3%20%23%E6%25.mp3"_qs));
}

TEST_F(MprisProperties, anEntryThatTellsNothing)
{
    player.state = {.entry = 1, .entries = 1};
    controls->refresh();
    const QVariantMap all = client.getAll(kPlayerInterface);
    EXPECT_EQ(all[u"PlaybackStatus"_qs], QVariant(u"Stopped"_qs));
    EXPECT_EQ(all[u"CanSeek"_qs], QVariant(false));
    EXPECT_EQ(all[u"CanPlay"_qs], QVariant(true));
    const QVariantMap data = mapOf(all[u"Metadata"_qs]);
    EXPECT_EQ(data.keys(), QStringList{u"mpris:trackid"_qs});
    EXPECT_EQ(trackIn(data), u"/org/songbin/track/1"_qs);
}

TEST_F(MprisProperties, anEmptyPlaylist)
{
    player.state.entry = 0;
    player.state.entries = 0;
    player.state.status = PlayerReport::Stopped;
    controls->refresh();
    const QVariantMap all = client.getAll(kPlayerInterface);
    for (const QString& can :
         {u"CanGoNext"_qs, u"CanGoPrevious"_qs, u"CanPlay"_qs, u"CanPause"_qs, u"CanSeek"_qs})
        EXPECT_EQ(all[can], QVariant(false)) << can.toStdString();
    const QVariantMap data = mapOf(all[u"Metadata"_qs]);
    EXPECT_EQ(data.keys(), QStringList{u"mpris:trackid"_qs});
    EXPECT_EQ(trackIn(data), u"/org/mpris/MediaPlayer2/TrackList/NoTrack"_qs);
}

TEST_F(MprisProperties, theDesktopIsToldWhatChangedAndNothingElse)
{
    struct Case {
        std::function<void(PlayerReport&)> change;
        QStringList told;
    };
    const QString metadata = u"Metadata"_qs;
    const QString canSeek = u"CanSeek"_qs;
    const Case cases[] = {
        {[](PlayerReport& r) { r.status = PlayerReport::Paused; }, {u"PlaybackStatus"_qs}},
        {[](PlayerReport& r) { r.status = PlayerReport::Stopped; }, {canSeek, u"PlaybackStatus"_qs}},
        {[](PlayerReport& r) { r.status = PlayerReport::Playing; }, {canSeek, u"PlaybackStatus"_qs}},
        {[](PlayerReport& r) { r.volume = 0.5; }, {u"Volume"_qs}},
        {[](PlayerReport& r) { r.shuffle = true; }, {u"Shuffle"_qs}},
        {[](PlayerReport& r) { r.repeatsEntry = true; }, {u"LoopStatus"_qs}},
        {[](PlayerReport& r) { r.entry = 4; }, {metadata}},
        {[](PlayerReport& r) { r.title = u"Tyttebær"_qs; }, {metadata}},
        {[](PlayerReport& r) { r.artist = u"Duo"_qs; }, {metadata}},
        {[](PlayerReport& r) { r.album = u"Fjell"_qs; }, {metadata}},
        {[](PlayerReport& r) { r.file = "/b"; }, {metadata}},
        {[](PlayerReport& r) { r.cover = ""; }, {metadata}},
        {[](PlayerReport& r) { r.length = 100; }, {metadata}},
        {[](PlayerReport& r) { r.length = 0; }, {canSeek, metadata}},
        {[](PlayerReport& r) { r.entry = r.entries = 0; },
         {u"CanGoNext"_qs, u"CanGoPrevious"_qs, u"CanPause"_qs, u"CanPlay"_qs, metadata}},
    };
    for (const Case& each : cases) {
        client.changes.clear();
        each.change(player.state);
        controls->refresh();
        controls->refresh(); // tells nothing new
        settledCalls();
        ASSERT_EQ(client.changes.size(), 1u) << each.told.join(u' ').toStdString();
        EXPECT_EQ(client.changes[0].interface, QString::fromUtf8(kPlayerInterface));
        EXPECT_EQ(changedKeys(client.changes[0]), each.told);
        EXPECT_TRUE(client.changes[0].invalidated.isEmpty());
        const QVariantMap now = client.getAll(kPlayerInterface);
        for (const QString& key : each.told) // metadata comes from the bus in another form
            EXPECT_TRUE(key == metadata || client.changes[0].values[key] == now[key]) << key.toStdString();
    }
}

TEST_F(MprisProperties, theEntryAsToldIsTheEntryAsRead)
{
    player.state.title = u"Multer"_qs;
    player.state.entry = 5;
    controls->refresh();
    settledCalls();
    ASSERT_EQ(client.changes.size(), 1u);
    const QVariantMap told = mapOf(client.changes[0].values[u"Metadata"_qs]);
    EXPECT_EQ(told[u"xesam:title"_qs], QVariant(u"Multer"_qs));
    EXPECT_EQ(told, mapOf(client.get(kPlayerInterface, "Metadata")));
}

TEST_F(MprisProperties, thePositionIsReadAtAnyTimeAndNeverTold)
{
    player.state.position = 61234;
    controls->refresh();
    EXPECT_EQ(client.get(kPlayerInterface, "Position"), QVariant(qlonglong(61'234'000)));
    EXPECT_TRUE(client.changes.empty());
    player.state.position = 61300; // without a refresh
    EXPECT_EQ(client.get(kPlayerInterface, "Position"), QVariant(qlonglong(61'300'000)));
    player.state.position = -5;
    EXPECT_EQ(client.get(kPlayerInterface, "Position"), QVariant(qlonglong(0)));
}

TEST_F(MprisProperties, aJumpIsTold)
{
    controls->jumped(90000);
    controls->jumped(std::numeric_limits<qint32>::max());
    controls->jumped(-1);
    settledCalls();
    EXPECT_EQ(client.jumps, (std::vector<qlonglong>{90'000'000, 2'147'483'647'000, 0}));
    EXPECT_TRUE(client.changes.empty());
}

TEST_F(MprisProperties, textsThatNoBusTakesComeAsNearAsTheyCan)
{
    player.state.title = u"a"_qs + QChar(u'\0') + u"b"_qs + QChar(0xD800) + u"c"_qs;
    player.state.artist = QString(5'000'000, u'x');
    player.state.volume = std::numeric_limits<double>::quiet_NaN();
    controls->refresh();
    controls->refresh();
    const QVariantMap data = mapOf(client.get(kPlayerInterface, "Metadata"));
    const QString title = data[u"xesam:title"_qs].toString();
    EXPECT_TRUE(title.startsWith(u"a\uFFFDb"_qs) && title.endsWith(u'c')) << title.toStdString();
    EXPECT_EQ(data[u"xesam:artist"_qs].toStringList().join(QString()), QString(4096, u'x'));
    EXPECT_EQ(client.get(kPlayerInterface, "Volume"), QVariant(0.0));
    EXPECT_EQ(client.changes.size(), 1u);
}

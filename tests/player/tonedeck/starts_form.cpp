// Starts the player: what its options do, and a file that waits for it.
#include "tests/player/tonedeck/playertest.h"

#include <QFile>
#include <QScreen>

namespace {

struct Starts : PlayerTest {
    Starts() { writeSkin("L14,1,1,50,12,0,0,0,8,Sans Serif,Name\n"); }

    QStringList played()
    {
        loaded();
        QCoreApplication::processEvents(); // it plays once it is there
        return notes();
    }
};

} // namespace

TEST_F(Starts, withAnEmptyStoreAsItComes)
{
    loaded();
    EXPECT_EQ(settings.FriendlyNames, 1);
    EXPECT_EQ(settings.SnoozeTime, u"23:59"_qs);
    EXPECT_EQ(settings.OverlapMs, 0);
    EXPECT_FALSE(w().engine().ShowRemaining);
    EXPECT_EQ(w().playlist().count(), 0);
    EXPECT_EQ(notes(), QStringList());
    EXPECT_TRUE(w().Timer2->isActive());
    EXPECT_LT(w().Timer2->interval(), 1000) << "no second is missed";
    EXPECT_EQ(media.devices.size(), 2U);
}

TEST_F(Starts, inTheStandardSkinWhenTheChosenOneGivesNoFace)
{
    startWith({u"a.mp3"_qs});
    for (const QByteArray& skin :
         {QByteArray("nothing"), QByteArray("Tonedeck Skin\n99999999999999,80\n"),
          QByteArray("Tonedeck Skin\n120,80\n60,40\n120,30\nlost.bmp,lost.bmp\n0,0,0,0,0,0,0,0\n")}) {
        owned.reset();
        world.directory.write("program/other.skin", skin);
        store(u"Skin"_qs, u"P:\\other.skin"_qs);
        loaded();
        EXPECT_EQ(w().size(), kFace) << skin.constData();
        EXPECT_EQ(w().skinLoader().find(u"default.skin"_qs), settings.Skin);
        EXPECT_EQ(w().playlist().count(), 1) << skin.constData();
    }
}

// --- its list -------------------------------------------------------------------------------------

TEST_F(Starts, withTheListOfTheLastTime)
{
    startWith({u"a.mp3"_qs, u"b.mp3"_qs});
    store(u"LastTrack"_qs, u"2"_qs);
    EXPECT_EQ(played(), QStringList());
    EXPECT_EQ(names(), (QStringList{u"a"_qs, u"b"_qs}));
    EXPECT_EQ(w().playlist().CurTrack(), 2);
    EXPECT_EQ(w().playlist().selected(), 1);
}

TEST_F(Starts, withTheNumberOfItsEntryInTheDisplay)
{
    writeSkin("D2,0,60,0,0,9,13,4,0,0,3,Track\n");
    startWith({u"a.mp3"_qs, u"b.mp3"_qs});
    store(u"LastTrack"_qs, u"2"_qs);
    loaded();
    const QImage shown = w().face();
    w().SetDD(DisplayItem::Track, 1.0);
    EXPECT_NE(w().face(), shown);
    w().SetDD(DisplayItem::Track, 2.0);
    EXPECT_EQ(w().face(), shown);
}

TEST_F(Starts, playingWhenItPlaysByItself)
{
    startWith({u"a.mp3"_qs, u"b.mp3"_qs});
    store(u"LastTrack"_qs, u"2"_qs);
    store(u"AutoPlay"_qs, u"1"_qs);
    EXPECT_EQ(played(), kStarts);
    EXPECT_EQ(device().fileName, u"D:\\b.mp3"_qs);
}

TEST_F(Starts, silentlyWithNothingToPlay)
{
    store(u"AutoPlay"_qs, u"1"_qs);
    EXPECT_EQ(played(), QStringList());
    EXPECT_TRUE(world.dialogs.messages.empty());
}

TEST_F(Starts, withItsStartFile)
{
    world.directory.write("program/playlist.m3u", "D:\\a.mp3\r\n"); // of the last time
    world.directory.write("disk/mine.m3u", "x.mp3\r\ny.mp3\r\n");
    songs({u"x.mp3"_qs});
    store(u"StartMd"_qs, u"2"_qs);
    store(u"StartFile"_qs, u"D:\\mine.m3u"_qs);
    EXPECT_EQ(played(), QStringList());
    EXPECT_EQ(names(), (QStringList{u"x"_qs, u"y"_qs}));
    EXPECT_EQ(label(Label::ListName), u"mine"_qs);
    unload();
    media.devices.clear();
    store(u"AutoPlay"_qs, u"1"_qs);
    EXPECT_EQ(played(), kStarts);
}

TEST_F(Starts, withNothingForOtherModes)
{
    world.directory.write("program/playlist.m3u", "D:\\a.mp3\r\n");
    store(u"StartFile"_qs, u"D:\\a.mp3"_qs);
    for (const QString& mode : {u"0"_qs, u"3"_qs, u"-1"_qs, u"x"_qs}) {
        owned.reset();
        store(u"StartMd"_qs, mode);
        loaded();
        EXPECT_EQ(w().playlist().count(), 0) << qPrintable(mode);
    }
}

TEST_F(Starts, withoutAStartFileThatIsNone)
{
    store(u"StartMd"_qs, u"2"_qs);
    for (const QString& file : {QString(), u"D:\\none.m3u"_qs, u"Q:\\none.m3u"_qs, u"*.m3u"_qs}) {
        owned.reset();
        store(u"StartFile"_qs, file);
        loaded();
        EXPECT_EQ(w().playlist().count(), 0) << qPrintable(file);
    }
    EXPECT_TRUE(world.dialogs.errors.empty());
}

// --- a file from outside --------------------------------------------------------------------------

TEST_F(Starts, withAFileThatWaitedForIt)
{
    songs({u"new.mp3"_qs});
    window().openAndPlay(u"D:\\new.mp3"_qs);
    EXPECT_EQ(w().playlist().count(), 0) << "not before it is loaded";
    EXPECT_EQ(played(), kStarts);
    EXPECT_EQ(names(), QStringList(u"new"_qs));
    EXPECT_EQ(label(Label::ListName), u"Commandline: new"_qs);
}

TEST_F(Starts, withTheFileBeforeTheListOfTheLastTime)
{
    startWith({u"a.mp3"_qs, u"b.mp3"_qs});
    store(u"AutoPlay"_qs, u"1"_qs);
    songs({u"new.mp3"_qs});
    window().openAndPlay(u"D:\\new.mp3"_qs);
    EXPECT_EQ(played(), kStarts) << "once";
    EXPECT_EQ(names(), (QStringList{u"a"_qs, u"b"_qs, u"new"_qs}));
    EXPECT_EQ(w().playlist().CurTrack(), 3);
    EXPECT_EQ(label(Label::ListName), u"playlist"_qs);
}

TEST_F(Starts, withAPlaylistInPlaceOfTheLastOneWhenAsked)
{
    startWith({u"a.mp3"_qs, u"x.mp3"_qs});
    store(u"ClearPLFirst"_qs, u"1"_qs);
    world.directory.write("disk/more.m3u", "x.mp3\r\n");
    window().openAndPlay(u"D:\\more.m3u"_qs);
    EXPECT_EQ(played(), kStarts);
    EXPECT_EQ(names(), QStringList(u"x"_qs));
    EXPECT_EQ(label(Label::ListName), u"more"_qs);
}

TEST_F(Starts, withAFileThatIsNotThere)
{
    window().openAndPlay(u"D:\\none.mp3"_qs);
    EXPECT_EQ(played(), QStringList(u"close"_qs));
    EXPECT_EQ(names(), QStringList(u"none [FILE NOT FOUND]"_qs));
}

// --- its window -----------------------------------------------------------------------------------

TEST_F(Starts, mutedAndLeavesTheSystemAsItWas)
{
    media.volume->word = 0x80008000;
    store(u"StartMute"_qs, u"1"_qs);
    loaded();
    EXPECT_EQ(media.volume->word, 0U);
    EXPECT_TRUE(w().muted());
    EXPECT_EQ(label(Label::Volume), u"0%"_qs);
    EXPECT_TRUE(lights().contains(10));
    unload();
    EXPECT_EQ(media.volume->word, 0x80008000U);
}

TEST_F(Starts, withTheVolumeThatThereIs)
{
    media.volume->word = 0x80008000;
    loaded();
    EXPECT_EQ(media.volume->word, 0x80008000U);
    EXPECT_FALSE(w().muted());
    EXPECT_EQ(label(Label::Volume), u"50%"_qs);
}

TEST_F(Starts, minimised)
{
    store(u"StartMin"_qs, u"1"_qs);
    window().showForm();
    EXPECT_TRUE(w().isVisible());
    EXPECT_TRUE(w().isMinimized());
    w().showForm();
    EXPECT_FALSE(w().isMinimized()) << "asked for once more";
}

TEST_F(Starts, notMinimisedUnlessAsked)
{
    window().showForm();
    EXPECT_FALSE(w().isMinimized());
}

TEST_F(Starts, aboveOtherWindowsWhenAsked)
{
    for (const QString& flag : {u"0"_qs, u"1"_qs}) {
        owned.reset();
        store(u"WinOnTop"_qs, flag);
        window().showForm();
        EXPECT_EQ(system()->flags().testFlag(Qt::WindowStaysOnTopHint), flag == u"1");
    }
}

TEST_F(Starts, withAPlaceThatIsNotThereAnyMoreBroughtInside)
{
    const QRect room = window().screen()->availableGeometry();
    const QPoint last = room.topLeft() + QPoint(room.width() - kFace.width(), room.height() - kFace.height());
    const std::vector<std::tuple<QString, QString, QPoint>> places{
        {u"300000"_qs, u"300000"_qs, last},
        {u"-300000"_qs, u"1500"_qs, {room.x(), 100}},
        {u"1500"_qs, u"-300000"_qs, {100, room.y()}},
        {u"1500"_qs, u"2250"_qs, {100, 150}}};
    for (const auto& [x, y, expected] : places) {
        owned.reset();
        store(u"X"_qs, x);
        store(u"Y"_qs, y);
        EXPECT_EQ(loaded().pos(), expected) << qPrintable(x);
        w().showForm();
        EXPECT_EQ(w().pos(), expected) << qPrintable(x);
    }
}

TEST_F(Starts, insideWithoutASkinToo)
{
    ASSERT_TRUE(QFile::remove(QString::fromLocal8Bit(world.directory.at("program/default.skin"))));
    store(u"X"_qs, u"300000"_qs);
    store(u"Y"_qs, u"-300000"_qs);
    loaded();
    const QRect room = w().screen()->availableGeometry();
    EXPECT_TRUE(room.contains(w().geometry().topLeft()));
    EXPECT_EQ(w().pos().y(), room.y());
}

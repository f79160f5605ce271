// Takes the player without a window: its list, its modes and what comes from outside.
#include "player/playback/player.h"
#include "player/playback/playersettings.h"
#include "tests/player/playback/notingview.h"
#include "tests/support/fakemedia.h"
#include "tests/support/fakemodulewindow.h"
#include "tests/support/world.h"

#include <gtest/gtest.h>

namespace {

// Has a list of three songs, as it came back at the start.
struct PlayerAlone : testing::Test {
    PlayerAlone()
    {
        player.keeper().loadOptions();
        settings.StartMd = 1;
        world.directory.write("program/playlist.m3u",
                              songs({u"a.mp3"_qs, u"b.wav"_qs, u"c.mid"_qs}).join(u"\r\n"_qs).toUtf8() +
                                  "\r\n");
        player.restore();
        player.playFirst();
    }

    QStringList songs(const QStringList& names) { return world.songs(names); }
    QString address(const QByteArray& name)
    {
        return u"file://"_qs + QString::fromUtf8(world.directory.at("disk/" + name));
    }
    QStringList names() const
    {
        QStringList names;
        for (const PlaylistEntry& entry : player.list().entries())
            names += entry.name;
        return names;
    }
    int track() const { return player.list().CurTrack(); }
    NotingDevice& device(std::size_t index = 0) { return *media.devices[index]; }
    QStringList notes(std::size_t index = 0) { return device(index).taken(); }
    void tickAt(qint32 milliseconds)
    {
        device().positionMs = milliseconds;
        player.engine().Timer1_Timer();
    }
    void play() { player.engine().PlayIt(); }

    inline static const QStringList kAbc{u"a"_qs, u"b"_qs, u"c"_qs};
    inline static const QStringList kStarts{u"close"_qs, u"open"_qs, u"from 0"_qs, u"play"_qs};
    inline static const QStringList kRewinds{u"from 0"_qs, u"seek"_qs, u"stop"_qs};

    World world;
    PlayerSettings settings;
    FakeMediaMachine media;
    FakeModuleWindow moduleWindow;
    NotingFace view;
    PlayerContext context{
        world.context.platform, world.fileNumbers, settings, world.codePage, media, moduleWindow};
    Player player{context, view};
};

} // namespace

// --- modes ----------------------------------------------------------------------------------------

TEST_F(PlayerAlone, goesOnAsItsModesSay)
{
    player.toggle(&PlaybackEngine::RepeatMode);
    play();
    tickAt(60'000);
    EXPECT_EQ(track(), 1) << "repeated";
    player.toggle(&PlaybackEngine::RepeatMode);
    player.toggle(&PlaybackEngine::IntroMode);
    tickAt(10'000);
    EXPECT_EQ(track(), 1);
    tickAt(10'001);
    EXPECT_EQ(track(), 2) << "the intro is over";
    player.toggle(&PlaybackEngine::IntroMode);
    player.toggle(&PlaybackEngine::StopAfterTrack);
    tickAt(60'000);
    EXPECT_EQ(track(), 3);
    EXPECT_FALSE(player.engine().IsPlaying()) << "stopped behind a track";
    player.toggle(&PlaybackEngine::StopAfterTrack);
    player.toggle(&PlaybackEngine::ShuffleMode);
    world.program.nextRandom = 0.4;
    play();
    tickAt(60'000);
    EXPECT_EQ(track(), 2) << "0.4 * 3 + 1, rounded";
    EXPECT_EQ(world.program.seeded, 1);
}

TEST_F(PlayerAlone, tellsEachChangeOfAMode)
{
    const int before = view.lights;
    player.toggle(&PlaybackEngine::IntroMode);
    EXPECT_TRUE(player.engine().IntroMode);
    EXPECT_EQ(view.lights, before + 1);
    player.toggle(&PlaybackEngine::IntroMode);
    EXPECT_FALSE(player.engine().IntroMode);
    EXPECT_EQ(view.lights, before + 2);
}

TEST_F(PlayerAlone, showsTheOtherTimeAtOnce)
{
    play();
    tickAt(15'000);
    player.toggleTime();
    EXPECT_EQ(view.times.constLast(), u"-0:45"_qs);
    player.toggleTime();
    EXPECT_EQ(view.times.constLast(), u"0:15"_qs);
}

TEST_F(PlayerAlone, overlapsOnTheOtherDevice)
{
    settings.OverlapMs = 3000;
    play();
    notes();
    tickAt(56'999);
    EXPECT_EQ(notes(0) + notes(1), QStringList());
    tickAt(57'000);
    EXPECT_EQ(notes(0), QStringList()) << "it plays its tail";
    EXPECT_EQ(notes(1), kStarts);
    EXPECT_EQ(device(1).fileName, u"D:\\b.wav"_qs);
    player.engine().StopIt();
    EXPECT_EQ(notes(0), kRewinds);
    EXPECT_EQ(notes(1), kRewinds);
}

// --- the list -------------------------------------------------------------------------------------

TEST_F(PlayerAlone, playsWhatItHasLoadedWhenItPlaysByItself)
{
    settings.AutoPlay = 1;
    songs({u"x.mp3"_qs});
    world.directory.write("disk/more.m3u", "x.mp3\r\n");
    player.loadPlaylist();
    EXPECT_EQ(notes(), QStringList()) << "none chosen";
    world.dialogs.fileAnswer = u"D:\\more.m3u"_qs;
    player.loadPlaylist();
    EXPECT_EQ(notes(), kStarts);
    EXPECT_EQ(track(), 4);
    EXPECT_EQ(device().fileName, u"D:\\x.mp3"_qs);
    world.directory.write("disk/empty.m3u", "");
    world.dialogs.fileAnswer = u"D:\\empty.m3u"_qs;
    player.loadPlaylist();
    EXPECT_EQ(notes(), QStringList()) << "nothing in it";
}

TEST_F(PlayerAlone, addsAFileAndADirectory)
{
    settings.ClearPLFirst = 1; // of playlists alone
    songs({u"m/x.mp3"_qs, u"m/y.wav"_qs, u"m/z.txt"_qs});
    world.dialogs.fileAnswer = u"D:\\m\\z.txt"_qs;
    player.addFile();
    EXPECT_EQ(names(), kAbc + QStringList(u"z"_qs));
    world.dialogs.folderAnswer = u"D:\\m"_qs;
    player.addDirectory();
    EXPECT_EQ(names(), kAbc + QStringList({u"z"_qs, u"x"_qs, u"y"_qs}));
    EXPECT_EQ(world.dialogs.asked.constLast(), u"folder|Select Directory containing Media Files:"_qs);
}

TEST_F(PlayerAlone, opensOneFileInPlaceOfItsList)
{
    player.EjectDirect();
    EXPECT_EQ(names(), kAbc) << "none chosen";
    EXPECT_TRUE(world.dialogs.asked.value(0).startsWith(u"open|Open Media file|"_qs));
    songs({u"new.mp3"_qs});
    world.dialogs.fileAnswer = u"D:\\new.mp3"_qs;
    player.engine().NextTrack();
    notes();
    player.EjectDirect();
    EXPECT_EQ(names(), QStringList(u"new"_qs)) << "the whole list";
    EXPECT_EQ(track(), 1);
    EXPECT_EQ(notes(), kStarts);
    EXPECT_EQ(device().fileName, u"D:\\new.mp3"_qs);
}

TEST_F(PlayerAlone, tellsThatTheOneFileIsNotThere)
{
    world.dialogs.fileAnswer = u"D:\\special\u2047.mp3"_qs;
    player.EjectDirect();
    EXPECT_EQ(
        view.errors,
        QStringList(u"It is a special character in your MP3 filename. You have to open it manually"_qs));
    EXPECT_EQ(names(), kAbc);
    EXPECT_EQ(notes(), QStringList());
}

TEST_F(PlayerAlone, addsOneEntryForWhatTheEditorGives)
{
    world.directory.write("disk/more.m3u", "x.mp3\r\n");
    player.PlAddFileFromEditor(u"D:\\more.m3u"_qs);
    player.PlAddFileFromEditor(QString());
    EXPECT_EQ(names(), kAbc + QStringList(u"more"_qs));
}

TEST_F(PlayerAlone, clearsTheCoverWithTheList)
{
    player.PlClear();
    EXPECT_EQ(names(), QStringList());
    EXPECT_EQ(view.covers, QStringList(u"none"_qs));
}

TEST_F(PlayerAlone, findsTheEntryThatPlaysByItsPath)
{
    EXPECT_EQ(player.playingRow(), -1);
    player.playEntry(1);
    EXPECT_EQ(player.playingRow(), 1);
    player.list().remove(0);
    EXPECT_EQ(player.playingRow(), 0);
    player.list().remove(0);
    EXPECT_EQ(player.playingRow(), -1) << "it is gone";
}

TEST_F(PlayerAlone, playsNothingInAWindowThatWasClosed)
{
    view.isClosed = true;
    player.playEntry(1);
    EXPECT_EQ(notes(), QStringList());
    EXPECT_EQ(track(), 1);
}

// --- files from outside ---------------------------------------------------------------------------

TEST_F(PlayerAlone, addsAndPlaysWhatIsOpened)
{
    songs({u"x.mp3"_qs});
    player.openAndPlay(u"D:\\x.mp3"_qs);
    EXPECT_EQ(track(), 4);
    EXPECT_EQ(notes(), kStarts);
    player.openAndPlay(QString::fromLocal8Bit(world.directory.at("disk/x.mp3")));
    EXPECT_EQ(track(), 5);
    EXPECT_EQ(device().fileName, u"D:\\x.mp3"_qs);
    EXPECT_EQ(player.list().name(), u"playlist"_qs) << "the list keeps its name";
}

TEST_F(PlayerAlone, keepsWhatIsOpenedUntilItsStart)
{
    songs({u"x.mp3"_qs});
    Player later(context, view);
    later.openAndPlay(u"D:\\x.mp3"_qs);
    EXPECT_EQ(later.list().count(), 0);
    later.playFirst();
    EXPECT_EQ(later.list().count(), 1);
    EXPECT_TRUE(later.engine().IsPlaying());
}

TEST_F(PlayerAlone, beginsAListWithASingleFile)
{
    player.PlClear();
    songs({u"x.mp3"_qs});
    player.openAndPlay(u"D:\\x.mp3"_qs);
    EXPECT_EQ(player.list().name(), u"Commandline: x"_qs);
}

TEST_F(PlayerAlone, beginsAListOfADirectorysNameOrOfAnAddressesEntry)
{
    player.PlClear();
    songs({u"Tides/x.mp3"_qs, u"Tides/y z.mp3"_qs});
    player.openAndPlay(u"D:\\Tides"_qs);
    EXPECT_EQ(player.list().name(), u"Commandline: Tides"_qs);
    player.PlClear();
    player.openAndPlay(address("Tides/y%20z.mp3"));
    EXPECT_EQ(player.list().name(), u"Commandline: y z"_qs);
}

TEST_F(PlayerAlone, playsAnOpenedPlaylistFromItsBeginning)
{
    songs({u"x.mp3"_qs});
    world.directory.write("disk/more.m3u", "x.mp3\r\n");
    player.openAndPlay(u"D:\\more.m3u"_qs);
    EXPECT_EQ(track(), 4);
    EXPECT_EQ(notes(), kStarts);
    settings.ClearPLFirst = 1;
    player.openAndPlay(u"D:\\more.m3u"_qs);
    EXPECT_EQ(names(), QStringList(u"x"_qs));
    EXPECT_EQ(track(), 1);
    EXPECT_EQ(player.list().name(), u"more"_qs);
}

// Holds what the player's window keeps when something cannot be read or saved, and when nobody closes it.
#include "player/face/statusline.h"
#include "tests/player/tonedeck/playertest.h"

#include <sys/stat.h>
#include <unistd.h>

namespace {

using namespace std::chrono_literals;

const QByteArray kList = "program/playlist.m3u";
const QByteArray kSettings = "home/.config/Songbin/settings.conf";

struct Saves : PlayerTest {
    Saves() { writeSkin("D2,0,60,0,0,9,13,4,0,0,3,Track\n"); }

    QString line() { return w().findChild<StatusLine*>()->text(); }
    QByteArray kept() { return world.directory.exists(kList) ? world.directory.read(kList) : "(absent)"; }
    QByteArray at(const QByteArray& name) const { return world.directory.at(name); }
    // Changes it so that it cannot be read, and everything else can.
    void blocked(const QByteArray& name)
    {
        ASSERT_TRUE(!world.directory.exists(name) ||
                    rename(at(name).constData(), at(name + ".aside").constData()) == 0);
        world.directory.makeDirectory(name);
    }
    void unblocked(const QByteArray& name)
    {
        ASSERT_EQ(rmdir(at(name).constData()), 0);
        ASSERT_EQ(rename(at(name + ".aside").constData(), at(name).constData()), 0);
    }
    // Lets two seconds pass, and the ticks at both their ends.
    void soon()
    {
        w().Timer2_Timer();
        pass(2s);
        w().Timer2_Timer();
    }
};

} // namespace

// --- what could not be read -----------------------------------------------------------------------

TEST_F(Saves, noListOverOneThatCouldNotBeRead)
{
    startWith({u"a.mp3"_qs, u"b.mp3"_qs});
    store(u"LastTrack"_qs, u"2"_qs);
    const QByteArray list = kept();
    blocked(kList);
    shown();
    EXPECT_EQ(line(), u"playlist.m3u could not be read. It stays as it is; this list is not kept."_qs);
    unblocked(kList);
    w().PlAddFileFromEditor(u"D:\\c.mp3"_qs);
    soon();
    EXPECT_EQ(kept(), list);
    unload();
    EXPECT_EQ(kept(), list);
    EXPECT_EQ(stored(u"LastTrack"_qs), u"2"_qs);
    EXPECT_TRUE(world.dialogs.messages.empty());
    shown();
    EXPECT_EQ(names(), (QStringList{u"a"_qs, u"b"_qs})) << "the next time all is as it was";
    EXPECT_EQ(w().playlist().CurTrack(), 2);
    EXPECT_EQ(line(), QString());
}

TEST_F(Saves, theListThatWasNotToBeReadAsEver)
{
    world.directory.write(kList, "D:\\old.mp3\r\n");
    shown();
    unload();
    EXPECT_EQ(kept(), QByteArray());
}

TEST_F(Saves, noDefaultsOverSettingsThatCouldNotBeRead)
{
    startWith({u"a.mp3"_qs});
    store(u"Skin"_qs, u"P:\\mine.skin"_qs);
    store(u"OtherKey"_qs, u"1"_qs);
    const QByteArray settingsFile = world.directory.read(kSettings);
    const QByteArray list = kept();
    blocked(kSettings);
    shown();
    EXPECT_EQ(line(), u"The settings could not be read. They stay as they are. This list is not kept."_qs);
    EXPECT_EQ(w().playlist().count(), 0);
    unblocked(kSettings);
    settings.WinOnTop = 1;
    soon();
    unload();
    EXPECT_EQ(world.directory.read(kSettings), settingsFile);
    EXPECT_EQ(kept(), list) << "nobody knew whether it was wanted";
}

TEST_F(Saves, aLineAboutAPlaylistThatCannotBeRead)
{
    shown();
    world.directory.makeDirectory("disk/dir.m3u");
    drop(w(), "file://" + at("disk/dir.m3u") + "\r\n");
    EXPECT_EQ(line(), u"dir.m3u could not be read."_qs);
    world.dialogs.fileAnswer = u"D:\\none.m3u"_qs;
    w().DoIt(Command::LoadPlaylist);
    EXPECT_EQ(line(), u"There is no playlist none.m3u."_qs);
}

TEST_F(Saves, theListWhenAFileFromOutsideCannotTakeItsPlace)
{
    startWith({u"a.mp3"_qs});
    store(u"ClearPLFirst"_qs, u"1"_qs);
    shown();
    w().openAndPlay(u"D:\\none.m3u"_qs);
    EXPECT_EQ(names(), QStringList(u"a"_qs));
    EXPECT_EQ(line(), u"There is no playlist none.m3u."_qs);
}

// --- without being closed -------------------------------------------------------------------------

TEST_F(Saves, notTheSkinOfALoadThatRuns)
{
    shown();
    writeSkin(QByteArray("U\n").repeated(10), "second.skin");
    QStringList meanwhile;
    world.program.onYield = [&] {
        if (!meanwhile.isEmpty())
            return;
        settings.WinOnTop = 1;
        soon();
        meanwhile += stored(u"Skin"_qs);
    };
    w().LoadSkin(u"second.skin"_qs, true);
    ASSERT_EQ(meanwhile.size(), 1);
    ASSERT_EQ(settings.Skin, u"P:\\second.skin"_qs);
    EXPECT_NE(meanwhile.value(0), u"P:\\second.skin"_qs) << "killed now, each start would load it again";
    soon();
    EXPECT_EQ(stored(u"Skin"_qs), u"P:\\second.skin"_qs);
}

TEST_F(Saves, listOptionsAndPlaceSoonAfterTheyChanged)
{
    startWith({u"a.mp3"_qs});
    store(u"WinSavePos"_qs, u"1"_qs);
    shown();
    soon();
    EXPECT_EQ(stored(u"WinOnTop"_qs), u"(absent)"_qs) << "nothing has changed";
    w().PlAddFileFromEditor(u"D:\\c.mp3"_qs);
    settings.WinOnTop = 1;
    w().move(70, 90);
    w().Timer2_Timer();
    EXPECT_EQ(kept(), "D:\\a.mp3\r\n");
    soon();
    EXPECT_EQ(kept(), "D:\\a.mp3\r\nD:\\c.mp3\r\n");
    EXPECT_EQ(stored(u"WinOnTop"_qs), u"1"_qs);
    EXPECT_EQ(stored(u"X"_qs), u"1050"_qs);
    EXPECT_EQ(stored(u"Y"_qs), u"1350"_qs);
    EXPECT_EQ(stored(u"LastTrack"_qs), u"1"_qs);
}

TEST_F(Saves, byItsOwnTimer)
{
    shown();
    w().moment = std::chrono::steady_clock::now;
    w().Timer2->setInterval(100);
    w().PlAddFileFromEditor(u"D:\\c.mp3"_qs);
    EXPECT_TRUE(QTest::qWaitFor([this] { return kept() == "D:\\c.mp3\r\n"; }, kHung));
}

TEST_F(Saves, whatHasJustChangedWhenTheProgramEnds)
{
    startWith({u"a.mp3"_qs});
    songs({u"c.mp3"_qs});
    shown();
    w().PlAddFileFromEditor(u"D:\\c.mp3"_qs);
    w().DoIt(Command::Next);
    world.program.end(0);
    owned.reset();
    EXPECT_EQ(kept(), "D:\\a.mp3\r\nD:\\c.mp3\r\n");
}

TEST_F(Saves, aLineAboutWhatCannotBeSaved)
{
    shown();
    world.directory.makeDirectory(kList);
    w().PlAddFileFromEditor(u"D:\\c.mp3"_qs);
    soon();
    EXPECT_EQ(line(), u"What has changed could not be saved yet."_qs);
    EXPECT_TRUE(world.dialogs.messages.empty());
}

// --- the current entry ----------------------------------------------------------------------------

TEST_F(Saves, theNumberThatItsDisplayShowsAtOnce)
{
    startWith({u"a.mp3"_qs, u"b.mp3"_qs, u"c.mp3"_qs});
    store(u"LastTrack"_qs, u"3"_qs);
    loaded();
    EXPECT_EQ(w().controls.Dig[DisplayItem::Track]->accessibleDescription(), u"003"_qs);
}

// --- the volume -----------------------------------------------------------------------------------

TEST_F(Saves, theVolumeThatAKilledProgramHasTakenAway)
{
    store(u"VolumeBeforeMute"_qs, u"0.5 1-2-3"_qs); // that program does not run
    media.volume->word = 0;
    loaded();
    EXPECT_NEAR(static_cast<double>(media.volume->word & 0xFFFF), 0x8000, 2);
    EXPECT_FALSE(w().muted());
    EXPECT_EQ(label(Label::Volume), u"50%"_qs);
    EXPECT_EQ(stored(u"VolumeBeforeMute"_qs), QString());
}

TEST_F(Saves, theVolumeOfAMachineThatIsSlowToTellIt)
{
    store(u"StartMute"_qs, u"1"_qs);
    media.volume->known = false;
    shown();
    EXPECT_FALSE(w().muted()) << "nobody knows yet what to come back to";
    media.volume->word = 0x40004000;
    media.volume->known = true;
    EXPECT_TRUE(QTest::qWaitFor([this] { return w().muted(); }, kHung));
    EXPECT_TRUE(stored(u"VolumeBeforeMute"_qs).startsWith(u"0.25"_qs));
    unload();
    EXPECT_EQ(media.volume->word, 0x40004000U);
    EXPECT_EQ(stored(u"VolumeBeforeMute"_qs), QString());
}

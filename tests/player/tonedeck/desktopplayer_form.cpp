// Holds what the desktop's own player controls see of the player, and what they make it do.
#include "tests/player/tonedeck/desktoptest.h"

#include <cmath>
#include <limits>

using namespace std::chrono_literals;

// --- what is told ---------------------------------------------------------------------------------

TEST_F(Desktop, isToldOfThePlayerAsItStands)
{
    const PlayerReport report = asked->report();
    EXPECT_EQ(report.status, PlayerReport::Stopped);
    EXPECT_EQ(report.entry, 1);
    EXPECT_EQ(report.entries, 3);
    EXPECT_EQ(report.artist, QString());
    EXPECT_EQ(report.cover, QByteArray());
    EXPECT_FALSE(report.shuffle);
    EXPECT_FALSE(report.repeatsEntry);
    EXPECT_NEAR(report.volume, 1, 0.001);
}

TEST_F(Desktop, isToldOfTheSong)
{
    w().DoIt(Command::Play);
    tickAt(12'345);
    const PlayerReport report = asked->report();
    EXPECT_EQ(report.status, PlayerReport::Playing);
    EXPECT_EQ(report.title, u"The Title"_qs) << "of its tag";
    EXPECT_EQ(report.artist, u"The Artist"_qs);
    EXPECT_EQ(report.album, u"The Album"_qs);
    EXPECT_EQ(report.file, world.directory.at("disk/a.mp3"));
    EXPECT_EQ(report.length, 60'000);
    EXPECT_EQ(report.position, 12'345);
    w().DoIt(Command::Pause);
    EXPECT_EQ(asked->report().status, PlayerReport::Paused);
    w().DoIt(Command::Stop);
    EXPECT_EQ(asked->report().status, PlayerReport::Stopped);
    EXPECT_EQ(asked->report().position, 0);
}

TEST_F(Desktop, isToldTheShownNameOfASongWithoutATag)
{
    w().DoIt(Command::Play);
    w().DoIt(Command::Next); // a wave file: the tag before is not its own
    PlayerReport report = asked->report();
    EXPECT_EQ(report.entry, 2);
    EXPECT_EQ(report.title, u"b"_qs);
    EXPECT_EQ(report.artist, QString());
    EXPECT_EQ(report.album, QString());
    w().DoIt(Command::Next); // without a tag
    report = asked->report();
    EXPECT_EQ(report.title, u"c"_qs);
    EXPECT_EQ(report.artist, QString());
}

TEST_F(Desktop, isToldNothingOfAnEmptyList)
{
    w().DoIt(Command::Play);
    w().DoIt(Command::Stop);
    w().DoIt(Command::ClearPlaylist);
    const PlayerReport report = asked->report();
    EXPECT_EQ(report.entry, 0);
    EXPECT_EQ(report.entries, 0);
    EXPECT_EQ(report.title, QString());
    EXPECT_EQ(report.file, QByteArray());
}

TEST_F(Desktop, isToldThatNothingPlaysAfterAnError)
{
    w().DoIt(Command::Play);
    device().errorNumber = MediaError::kDamaged;
    w().DoIt(Command::Next);
    EXPECT_EQ(controls->last.status, PlayerReport::Stopped);
    EXPECT_EQ(asked->report().status, PlayerReport::Stopped);
}

TEST_F(Desktop, isToldThatNothingPlaysWhenAFileIsGone)
{
    w().DoIt(Command::Play);
    QFile::remove(QString::fromLocal8Bit(world.directory.at("disk/b.wav")));
    w().DoIt(Command::Next);
    EXPECT_EQ(controls->last.status, PlayerReport::Stopped);
}

TEST_F(Desktop, isToldOfTheCover)
{
    write(u"cover.bmp"_qs, counted({20, 20}, 90));
    w().LoadCover(u"P:\\cover.bmp"_qs);
    EXPECT_EQ(controls->last.cover, world.directory.at("program/cover.bmp"));
    w().DoIt(Command::ClearPlaylist);
    EXPECT_EQ(controls->last.cover, QByteArray());
}

TEST_F(Desktop, isToldOfTheCoverOfTheLastTime)
{
    unload();
    write(u"cover.bmp"_qs, counted({20, 20}, 90));
    store(u"LastCover"_qs, u"P:\\cover.bmp"_qs);
    window();
    controls->asks = true;
    shown();
    EXPECT_EQ(controls->last.cover, world.directory.at("program/cover.bmp"));
}

TEST_F(Desktop, isToldOfEveryChange)
{
    const auto expectTold = [this](const char* what, const std::function<void()>& change) {
        controls->refreshed = 0;
        change();
        EXPECT_GT(controls->refreshed, 0) << what;
    };
    for (const Command command :
         {Command::Play, Command::Pause, Command::Pause, Command::Next, Command::Previous, Command::Stop,
          Command::Intro, Command::StopAfterTrack, Command::RepeatTrack, Command::Shuffle, Command::Mute,
          Command::Mute, Command::VolumeDown, Command::VolumeUp})
        expectTold(qPrintable(captionOf(command)), [&] { w().DoIt(command); });
    expectTold("a file", [&] { w().PlAddFileFromEditor(u"D:\\c.mp3"_qs); });
    EXPECT_EQ(controls->last.entries, 4);
    expectTold("one less", [&] { w().DoIt(Command::RemoveEntry); });
    EXPECT_EQ(controls->last.entries, 3);
    expectTold("somebody else's volume", [&] {
        media.volume->word = 0x40004000;
        w().Timer2_Timer();
    });
    EXPECT_NEAR(controls->last.volume, 0.25, 0.001);
    expectTold("the list", [&] { w().DoIt(Command::ClearPlaylist); });
    EXPECT_EQ(controls->last.entries, 0);
}

TEST_F(Desktop, isNotToldOfEachTick)
{
    w().DoIt(Command::Play);
    controls->refreshed = 0;
    for (int tick = 1; tick < 40; ++tick)
        tickAt(100 * tick);
    w().Timer2_Timer();
    w().Timer2_Timer();
    EXPECT_EQ(controls->refreshed, 0);
    EXPECT_EQ(controls->jumps, std::vector<int>());
}

// --- jumps ----------------------------------------------------------------------------------------

TEST_F(Desktop, isToldOfAJump)
{
    w().DoIt(Command::Play);
    tickAt(100);
    tickAt(200);
    tickAt(30'000);
    EXPECT_EQ(controls->jumps, std::vector<int>{30'000});
    tickAt(30'100);
    tickAt(10'000);
    EXPECT_EQ(controls->jumps, (std::vector<int>{30'000, 10'000}));
}

TEST_F(Desktop, isToldOfTheJumpOfALoop)
{
    w().DoIt(Command::Play);
    tickAt(10'000);
    w().DoIt(Command::LoopStart);
    tickAt(20'000);
    w().DoIt(Command::LoopEnd);
    controls->jumps.clear();
    tickAt(20'100);
    EXPECT_EQ(controls->jumps, std::vector<int>());
    tickAt(10'000);
    EXPECT_EQ(controls->jumps, std::vector<int>{10'000});
}

TEST_F(Desktop, isToldWhereTheNextSongBegins)
{
    w().DoIt(Command::Play);
    tickAt(59'000);
    controls->jumps.clear();
    tickAt(60'000);
    tickAt(0);
    EXPECT_EQ(controls->jumps, (std::vector<int>{60'000, 0}));
}

TEST_F(Desktop, isToldOfAJumpWhileItIsPaused)
{
    w().DoIt(Command::Play);
    tickAt(5'000);
    w().DoIt(Command::Pause);
    controls->jumps.clear();
    tickAt(5'050);
    tickAt(5'050);
    EXPECT_EQ(controls->jumps, std::vector<int>());
    tickAt(8'000);
    EXPECT_EQ(controls->jumps, std::vector<int>{8'000});
}

TEST_F(Desktop, isToldOfNoJumpWhileNothingPlays)
{
    w().Timer1_Timer();
    pass(700ms);
    w().Timer1_Timer();
    EXPECT_EQ(controls->jumps, std::vector<int>());
    w().DoIt(Command::Play);
    tickAt(100);
    w().DoIt(Command::Pause);
    w().Timer1_Timer();
    pass(700ms);
    w().Timer1_Timer();
    EXPECT_EQ(controls->jumps, std::vector<int>());
}

TEST_F(Desktop, isToldOfNoJumpWhenTicksAreLate)
{
    w().DoIt(Command::Play);
    tickAt(100);
    pass(700ms);
    tickAt(800);
    EXPECT_EQ(controls->jumps, std::vector<int>());
}

// --- what it asks ---------------------------------------------------------------------------------

TEST_F(Desktop, playsAndPauses)
{
    asked->pause();
    EXPECT_EQ(notes(), QStringList());
    asked->play();
    EXPECT_EQ(notes(), kStarts);
    asked->play();
    EXPECT_EQ(notes(), QStringList()) << "it plays already";
    asked->pause();
    EXPECT_EQ(notes(), QStringList(u"stop"_qs));
    asked->pause();
    EXPECT_EQ(notes(), QStringList()) << "it is paused already";
    asked->play();
    EXPECT_EQ(notes(), QStringList(u"play"_qs));
    asked->playPause();
    EXPECT_EQ(notes(), QStringList(u"stop"_qs));
    asked->stop();
    EXPECT_EQ(notes(), kRewinds);
    asked->playPause();
    EXPECT_EQ(notes(), kStarts);
}

TEST_F(Desktop, goesThroughTheList)
{
    asked->next();
    EXPECT_EQ(w().playlist().CurTrack(), 2);
    asked->previous();
    EXPECT_EQ(w().playlist().CurTrack(), 1);
    clearNotes();
    asked->goTo(30'000);
    EXPECT_EQ(notes(), jumpsTo(30'000));
    asked->goTo(std::numeric_limits<qint32>::min());
    EXPECT_EQ(notes(), jumpsTo(0));
    asked->goTo(std::numeric_limits<qint32>::max());
    EXPECT_EQ(notes(), jumpsTo(59'000));
}

TEST_F(Desktop, setsModes)
{
    asked->setShuffle(false);
    EXPECT_FALSE(w().engine().ShuffleMode);
    asked->setShuffle(true);
    asked->setShuffle(true);
    EXPECT_TRUE(w().engine().ShuffleMode);
    asked->setRepeatsEntry(true);
    asked->setRepeatsEntry(true);
    EXPECT_TRUE(w().engine().RepeatMode);
    EXPECT_TRUE(controls->last.shuffle);
    EXPECT_TRUE(controls->last.repeatsEntry);
}

TEST_F(Desktop, setsTheVolumeWhateverNumberItGives)
{
    asked->setVolume(0.5);
    EXPECT_EQ(label(Label::Volume), u"50%"_qs);
    const double kInfinity = std::numeric_limits<double>::infinity();
    for (const double loud : {1.0, 7.0, 1e30, 1e300, kInfinity}) {
        media.volume->word = 0;
        asked->setVolume(loud);
        EXPECT_EQ(media.volume->word, 0xFFFFFFFF) << loud;
        EXPECT_EQ(label(Label::Volume), u"100%"_qs) << loud;
    }
    for (const double silent : {-1e-9, -7.0, -1e300, -kInfinity, std::nan("")}) {
        media.volume->word = 0xFFFFFFFF;
        asked->setVolume(silent);
        EXPECT_EQ(media.volume->word, 0U) << silent;
        EXPECT_EQ(label(Label::Volume), u"0%"_qs) << silent;
    }
}

TEST_F(Desktop, opensFiles)
{
    songs({u"d.mp3"_qs});
    asked->openAndPlay(QString::fromUtf8("file://" + world.directory.at("disk/d.mp3")));
    EXPECT_EQ(w().playlist().CurTrack(), 4);
    EXPECT_EQ(device().fileName, u"D:\\d.mp3"_qs);
    for (const QString& odd :
         {QString(), u"file:///none"_qs, u"http://x/y.mp3"_qs, QString(QChar(0)), u"*"_qs})
        asked->openAndPlay(odd);
    EXPECT_TRUE(world.dialogs.errors.empty());
}

TEST_F(Desktop, bringsTheWindowBack)
{
    w().DoIt(Command::Minimise);
    ASSERT_TRUE(w().isMinimized());
    asked->bringToFront();
    EXPECT_FALSE(w().isMinimized());
    EXPECT_TRUE(w().isVisible());
}

TEST_F(Desktop, closesTheWindow)
{
    asked->quit();
    expectGone();
}

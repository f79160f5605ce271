// Ends the player, also from inside whatever lets events in.
#include "tests/player/tonedeck/playertest.h"

#include <QPointer>

namespace {

struct Closes : PlayerTest {
    Closes()
    {
        writeSkin("B49,1,2,30,20,0,0,Q,skin,second.skin\n");
        writeSkin("B2,40,2,30,20,0,0,Q,two\n", "second.skin");
        startWith({u"a.mp3"_qs, u"b.mp3"_qs});
    }
    // The window closes at the next yield.
    void closeAtYield()
    {
        world.program.onYield = [closed = QPointer<frmTonedeck>(&window())] {
            if (closed)
                closed->unload();
            QCoreApplication::processEvents();
        };
    }
    void closeWhileAsked()
    {
        world.dialogs.onAskFile = [this] { w().unload(); };
    }
    QByteArray keptList() { return world.directory.read("program/playlist.m3u"); }
    const QByteArray ab = "D:\\a.mp3\r\nD:\\b.mp3\r\n";
};

} // namespace

// --- its end --------------------------------------------------------------------------------------

TEST_F(Closes, itsDevicesBeforeAnythingIsSaved)
{
    shown();
    w().DoIt(Command::Play);
    clearNotes();
    settings.TimeFmt = 7;
    world.directory.write("program/playlist.m3u", "");
    QStringList savedAtClose;
    for (const auto& each : media.devices)
        each->onSend = [&](const QString&) {
            savedAtClose += stored(u"TimeFmt"_qs) + QString::fromUtf8(keptList());
        };
    unload();
    EXPECT_EQ(notes(0), QStringList(u"close"_qs));
    EXPECT_EQ(notes(1), QStringList(u"close"_qs));
    EXPECT_EQ(savedAtClose, (QStringList{u"(absent)"_qs, u"(absent)"_qs}));
    EXPECT_EQ(stored(u"TimeFmt"_qs), u"7"_qs);
    EXPECT_EQ(keptList(), ab);
    EXPECT_EQ(media.devicesInUse(), 0);
}

TEST_F(Closes, withItsButton)
{
    shown();
    w().DoIt(Command::Close);
    expectGone();
    EXPECT_EQ(stored(u"LastTrack"_qs), u"1"_qs);
}

TEST_F(Closes, withTheWindowSystemsWish)
{
    shown();
    w().close();
    expectGone();
}

TEST_F(Closes, whileItPlaysWithAnOverlap)
{
    shown();
    settings.OverlapMs = 3000;
    w().DoIt(Command::Play);
    tickAt(58'000);
    clearNotes();
    unload();
    EXPECT_EQ(notes(0), QStringList(u"close"_qs));
    EXPECT_EQ(notes(1), QStringList(u"close"_qs));
}

// --- from inside ----------------------------------------------------------------------------------

TEST_F(Closes, insideATick)
{
    shown();
    w().DoIt(Command::Play);
    clearNotes();
    closeAtYield();
    device().positionMs = 60'000; // the song is over, the next one would start
    w().Timer1->setInterval(1);
    const QPointer<frmTonedeck> closed(&w());
    ASSERT_TRUE(QTest::qWaitFor([&] { return closed.isNull(); }, kHung));
    static_cast<void>(owned.release()); // it has deleted itself
    EXPECT_EQ(media.devicesInUse(), 0);
    EXPECT_FALSE(notes().contains(u"open"_qs));
    EXPECT_EQ(stored(u"LastTrack"_qs), u"1"_qs) << "the song that played";
}

TEST_F(Closes, insideAnErrorReport)
{
    shown();
    world.dialogs.onMessage = [this](const Message&) { w().unload(); };
    device().errorNumber = MediaError::kDamaged;
    w().guard([this] { w().DoIt(Command::Play); });
    expectGone();
    EXPECT_EQ(keptList(), ab);
}

TEST_F(Closes, insideAQuestionForAFile)
{
    songs({u"x.mp3"_qs});
    world.directory.write("disk/more.m3u", "x.mp3\r\n");
    for (const Command command : {Command::OpenFile, Command::LoadPlaylist, Command::SavePlaylist,
                                  Command::AddFile, Command::AddDirectory, Command::SelectSkin}) {
        settings = {};
        store(u"AutoPlay"_qs, u"1"_qs);
        media.devices.clear();
        shown();
        clearNotes();
        closeWhileAsked();
        world.dialogs.folderAnswer = u"D:\\"_qs;
        world.dialogs.fileAnswer = command == Command::LoadPlaylist || command == Command::SavePlaylist
                                       ? u"D:\\more.m3u"_qs
                                       : u"D:\\x.mp3"_qs;
        w().guard([&] { w().DoIt(command); });
        world.dialogs.onAskFile = {};
        EXPECT_FALSE(notes().contains(u"open"_qs)) << codeOf(command) << " plays in a window that was closed";
        expectGone();
        world.directory.write("program/playlist.m3u", ab);
    }
}

TEST_F(Closes, insideASwitchOfSkins)
{
    shown();
    closeAtYield();
    w().guard([this] { w().DoIt(Command::PreviousSkin); });
    expectGone();
    EXPECT_EQ(keptList(), ab);
}

TEST_F(Closes, insideASwitchToASkinThatIsNotTheNextStarts)
{
    writeSkin(QByteArray("U\n").repeated(10), "second.skin");
    store(u"SkinImport"_qs, u"P:\\mine"_qs);
    shown();
    const QString whole = settings.Skin;
    closeAtYield();
    w().guard([this] { w().LoadSkin(u"second.skin"_qs, true); });
    expectGone();
    EXPECT_EQ(stored(u"Skin"_qs), whole) << "nobody has seen the other one, which may never end";
    EXPECT_EQ(stored(u"SkinImport"_qs), u"P:\\mine"_qs);
}

TEST_F(Closes, insideItsFirstSkinAndLosesNothing)
{
    write(u"cover.bmp"_qs, counted({20, 20}, 90));
    store(u"LastCover"_qs, u"P:\\cover.bmp"_qs);
    store(u"LastTrack"_qs, u"2"_qs);
    closeAtYield();
    window().load();
    expectGone();
    EXPECT_EQ(keptList(), ab) << "it was not read yet";
    EXPECT_EQ(stored(u"LastTrack"_qs), u"2"_qs);
    EXPECT_EQ(stored(u"LastCover"_qs), u"P:\\cover.bmp"_qs);
}

TEST_F(Closes, insideAWalkThatEndsThen)
{
    shown();
    for (int file = 0; file < 30; ++file)
        world.directory.write("disk/many/" + QByteArray::number(file) + ".mp3", "x");
    closeWhileAsked();
    world.dialogs.folderAnswer = u"D:\\many"_qs;
    w().guard([this] { w().DoIt(Command::AddDirectory); });
    EXPECT_LE(w().playlist().count(), 3);
    expectGone();
}

TEST_F(Closes, withTheProgramAndSavesNothing)
{
    shown();
    w().DoIt(Command::Play);
    world.program.end(0);
    clearNotes();
    world.directory.write("program/playlist.m3u", "");
    w().Timer1_Timer();
    owned.reset();
    EXPECT_EQ(keptList(), QByteArray());
    EXPECT_EQ(media.devicesInUse(), 0);
}

// --- what goes on ---------------------------------------------------------------------------------

TEST_F(Closes, nothingWhenASkinIsSwitchedWhilePlaying)
{
    shown();
    w().DoIt(Command::Play);
    clearNotes();
    w().DoIt(Command::PreviousSkin);
    EXPECT_EQ(notes(), QStringList());
    EXPECT_TRUE(w().engine().IsPlaying());
    EXPECT_TRUE(w().Timer1->isActive());
    tickAt(12'000);
    EXPECT_EQ(label(Label::Time), u"0:12"_qs);
}

TEST_F(Closes, nothingByAPauseWhileASkinLoads)
{
    shown();
    world.program.onYield = [this] { w().DoIt(Command::Pause); }; // nothing plays: nothing to pause
    w().DoIt(Command::PreviousSkin);
    world.program.onYield = {};
    EXPECT_FALSE(w().engine().IsPaused());
    EXPECT_EQ(notes(), QStringList());
}

TEST_F(Closes, nothingByAListThatIsClearedWhilePlaying)
{
    shown();
    w().DoIt(Command::Play);
    w().DoIt(Command::ClearPlaylist);
    for (int tick = 0; tick < 40'000; ++tick)
        tickAt(60'000);
    EXPECT_FALSE(w().engine().IsPlaying());
    EXPECT_TRUE(world.dialogs.errors.empty());
}

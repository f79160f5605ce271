// Gives the player's commands, and looks at what they do to its devices, labels and displays.
#include "tests/player/tonedeck/playstest.h"

#include <algorithm>

TEST_F(Plays, nothingForCodesThatThereAreNot)
{
    for (const int code : {-32768, -1, 0, 51, 99, 32767})
        expectNothingFor(code);
}

TEST_F(Plays, nothingForCodesThatDoNothing)
{
    for (int code = 37; code <= 48; ++code)
        expectNothingFor(code);
    for (const Command command :
         {Command::TagEditor, Command::Preferences, Command::CoverWindow, Command::VisualPlaylist,
          Command::PreviousSkin, Command::NextSkin}) // no window yet, no skin named
        expectNothingFor(codeOf(command));
}

// --- transport ------------------------------------------------------------------------------------

TEST_F(Plays, theCurrentEntryWith12)
{
    w().DoIt(Command::Play);
    EXPECT_EQ(notes(), kStarts);
    EXPECT_EQ(notes(1), QStringList());
    EXPECT_EQ(device().deviceType, u"ActiveMovie"_qs);
    EXPECT_EQ(device().fileName, u"D:\\Alpha.mp3"_qs);
    EXPECT_EQ(device().timeFormat, u"milliseconds"_qs);
    EXPECT_EQ(label(Label::Name), u"Alpha"_qs);
    EXPECT_EQ(label(Label::EntryNumber), u" 1"_qs);
    EXPECT_EQ(label(Label::Length), u"1:00"_qs);
    EXPECT_EQ(w().controls.PlNames->currentIndex().row(), 0);
    EXPECT_TRUE(w().Timer1->isActive());
    EXPECT_EQ(pixel(0, 40), partPixel('A' % 16 * 8, 16)) << "the name's first letter";
}

TEST_F(Plays, andStopsWith10)
{
    w().DoIt(Command::Play);
    tickAt(30'000);
    clearNotes();
    w().DoIt(Command::Stop);
    EXPECT_EQ(notes(0), kRewinds);
    EXPECT_EQ(notes(1), kRewinds);
    EXPECT_FALSE(playing());
    EXPECT_EQ(label(Label::Time), u"0:00"_qs);
    EXPECT_EQ(w().controls.iSlider[1]->pos(), QPoint(70, 30));
    w().Timer1_Timer();
    EXPECT_EQ(both(), QStringList());
}

TEST_F(Plays, andPausesWith11)
{
    w().DoIt(Command::Pause);
    EXPECT_EQ(both(), QStringList()) << "nothing to pause";
    w().DoIt(Command::Play);
    clearNotes();
    w().DoIt(Command::Pause);
    EXPECT_EQ(notes(), QStringList(u"stop"_qs));
    EXPECT_TRUE(w().engine().IsPaused());
    w().DoIt(Command::Pause);
    EXPECT_EQ(notes(), QStringList(u"play"_qs));
    EXPECT_FALSE(w().engine().IsPaused());
}

TEST_F(Plays, orPausesWith36)
{
    w().DoIt(Command::PlayOrPause);
    EXPECT_EQ(notes(), kStarts);
    w().DoIt(Command::PlayOrPause);
    EXPECT_EQ(notes(), QStringList(u"stop"_qs));
    w().DoIt(Command::PlayOrPause);
    EXPECT_EQ(notes(), QStringList(u"play"_qs));
}

TEST_F(Plays, theEntriesBeforeAndBehindWith14And15)
{
    w().DoIt(Command::Next);
    EXPECT_EQ(track(), 2);
    EXPECT_EQ(device().fileName, u"D:\\Beta.wav"_qs);
    EXPECT_EQ(pixel(18, 60), partPixel(18, 0)) << "the digit 2";
    w().DoIt(Command::Previous);
    EXPECT_EQ(track(), 1);
    w().DoIt(Command::Previous);
    EXPECT_EQ(track(), 3) << "the last one";
    EXPECT_EQ(device().fileName, u"D:\\Gamma.mid"_qs);
    clearNotes();
    w().DoIt(Command::Next);
    EXPECT_EQ(track(), 1);
    EXPECT_FALSE(playing()) << "behind the last one it stops";
    EXPECT_EQ(notes(), kRewinds);
}

TEST_F(Plays, tenSecondsBackAndForwardWith32And33)
{
    w().DoIt(Command::Play);
    tickAt(25'000);
    clearNotes();
    w().DoIt(Command::Back);
    EXPECT_EQ(notes(), jumpsTo(15'000));
    w().DoIt(Command::Forward);
    EXPECT_EQ(notes(), jumpsTo(35'000));
    tickAt(9'999);
    w().DoIt(Command::Back);
    EXPECT_EQ(notes(), jumpsTo(0));
    tickAt(50'001);
    w().DoIt(Command::Forward);
    EXPECT_EQ(notes(), jumpsTo(59'000)) << "one second before the end";
}

TEST_F(Plays, betweenAAndB)
{
    w().DoIt(Command::Play);
    tickAt(20'000);
    w().DoIt(Command::LoopStart);
    EXPECT_EQ(w().engine().loop(), (LoopPoints{20'000, 0}));
    tickAt(30'000);
    w().DoIt(Command::LoopEnd);
    clearNotes();
    w().Timer1_Timer();
    EXPECT_EQ(notes(), jumpsTo(20'000));
    w().DoIt(Command::LoopStart);
    EXPECT_EQ(w().engine().loop(), (LoopPoints{30'000, 0})) << "a button for B: A anew";
}

TEST_F(Plays, betweenAAndBWithOneButton)
{
    w().controls.Btn[Command::LoopEnd]->hide();
    w().DoIt(Command::Play);
    tickAt(20'000);
    w().DoIt(Command::LoopStart);
    tickAt(30'000);
    w().DoIt(Command::LoopStart);
    EXPECT_EQ(w().engine().loop(), (LoopPoints{20'000, 30'000}));
    w().DoIt(Command::LoopStart);
    EXPECT_EQ(w().engine().loop(), LoopPoints{});
}

// --- the time -------------------------------------------------------------------------------------

TEST_F(Plays, whileItShowsTheTime)
{
    w().DoIt(Command::Play);
    tickAt(15'999);
    EXPECT_EQ(label(Label::Time), u"0:15"_qs);
    EXPECT_EQ(w().controls.iSlider[1]->x(), 70 + 11);
    w().DoIt(Command::RemainingTime);
    EXPECT_EQ(label(Label::Time), u"-0:44"_qs) << "at once";
    w().DoIt(Command::RemainingTime);
    EXPECT_EQ(label(Label::Time), u"0:15"_qs);
}

TEST_F(Plays, showsTheTimeOtherwiseWhenItsLabelIsClicked)
{
    writeSkin("L1,10,10,40,12,0,0,0,8,Sans Serif,Time\nL2,60,10,40,12,0,0,0,8,Sans Serif,Name\n");
    w().LoadSkin(u"default.skin"_qs, true);
    w().DoIt(Command::Play);
    tickAt(15'000);
    clickAt(15, 15);
    EXPECT_EQ(label(Label::Time), u"-0:45"_qs);
    clickAt(15, 15);
    EXPECT_EQ(label(Label::Time), u"0:15"_qs);
    moveTo(15, 15);
    pressAt(15, 15);
    releaseAt(100, 70);
    EXPECT_EQ(label(Label::Time), u"0:15"_qs) << "let go elsewhere";
    clearNotes();
    clickAt(65, 15); // what code 4 does
    EXPECT_EQ(both(), QStringList());
    EXPECT_EQ(label(Label::Time), u"0:15"_qs);
}

// --- what goes wrong ------------------------------------------------------------------------------

TEST_F(Plays, nothingThatItsDeviceCannotOpenAndTellsWhy)
{
    device().errorNumber = MediaError::kNoDriver;
    w().DoIt(Command::Play);
    EXPECT_EQ(world.dialogs.said(0),
              u"Songbin|MCI Device: ActiveMovie\r\rthe device's own words\r\rMCI driver is NOT "
              u"installed.\rSee Tonedeck documentation!"_qs);
    EXPECT_EQ(world.dialogs.messages[0].buttons, MessageButtons::Ok);
    device().errorNumber = MediaError::kDamaged;
    w().DoIt(Command::Play);
    EXPECT_TRUE(world.dialogs.said(1).endsWith(
        u"\r\rUnknown file format, corrupt file, or un-supported variation of known format."_qs));
    device().errorNumber = 5;
    w().DoIt(Command::Play);
    EXPECT_TRUE(world.dialogs.said(2).endsWith(u"\r\rUnhandled Tonedeck error"_qs));
    EXPECT_EQ(world.dialogs.messages.size(), 3U);
    EXPECT_FALSE(w().Timer1->isActive());
    EXPECT_FALSE(playing());
    EXPECT_EQ(w().engine().DeviceType(), QString());
}

TEST_F(Plays, noFileThatIsNotThere)
{
    QFile::remove(QString::fromLocal8Bit(world.directory.at("disk/Alpha.mp3")));
    w().DoIt(Command::Play);
    EXPECT_EQ(names()[0], u"Alpha [FILE NOT FOUND]"_qs);
    EXPECT_EQ(w().controls.PlNames->model()->index(0, 0).data().toString(), u"Alpha [FILE NOT FOUND]"_qs);
    EXPECT_EQ(notes(), QStringList(u"close"_qs));
    EXPECT_TRUE(world.dialogs.messages.empty());
    EXPECT_FALSE(w().Timer1->isActive());
    w().DoIt(Command::Play);
    EXPECT_EQ(names()[0], u"Alpha [FILE NOT FOUND]"_qs) << "once";
}

TEST_F(Plays, nothingOfAnEmptyList)
{
    w().DoIt(Command::ClearPlaylist);
    for (const Command command : {Command::Play, Command::Previous, Command::Next, Command::PlayOrPause})
        w().DoIt(command);
    EXPECT_EQ(both(), QStringList());
    EXPECT_FALSE(playing());
}

TEST_F(Plays, withOneErrorToldAtATime)
{
    device().errorNumber = MediaError::kDamaged;
    int open = 0;
    int most = 0;
    world.dialogs.onMessage = [&](const Message&) {
        most = std::max(most, ++open);
        if (world.dialogs.messages.size() == 1)
            for (int key = 0; key < 20; ++key)
                w().DoIt(key % 2 == 0 ? Command::Previous
                                      : Command::Next); // the desktop's keys go on while a box is open
        --open;
    };
    w().DoIt(Command::Play);
    EXPECT_EQ(most, 1);
    EXPECT_EQ(world.dialogs.messages.size(), 2U) << "the first and the last";
    w().DoIt(Command::Play);
    EXPECT_EQ(world.dialogs.messages.size(), 3U);
}

TEST_F(Plays, anEntryWithoutFactsShowsNoneOfTheOneBefore)
{
    QByteArray lines = playersSkin();
    writeSkin(lines + "D4,0,20,0,0,9,13,4,0,0,3,Rate\nD5,30,20,0,0,9,13,4,0,0,2,Sampling\n", "facts.skin");
    w().LoadSkin(u"facts.skin"_qs, true);
    const QImage bare = w().face();
    world.directory.write("disk/Alpha.mp3", QByteArray("\xFF\xFB\x90\x44") + QByteArray(300, 'x'));
    w().DoIt(Command::Play);
    ASSERT_EQ(label(Label::BitRate), u"128"_qs);
    ASSERT_NE(w().face().copy(0, 20, 60, 13), bare.copy(0, 20, 60, 13));
    w().DoIt(Command::Next); // a WAV file
    EXPECT_EQ(label(Label::BitRate), QString());
    EXPECT_EQ(w().face().copy(0, 20, 60, 13), bare.copy(0, 20, 60, 13));
}

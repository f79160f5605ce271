// What the window's own clock does: scrolling name, clock, date, volume.
#include "tests/player/tonedeck/playertest.h"

namespace {

struct Ticks : PlayerTest {
    Ticks()
    {
        writeSkin("D6,0,0,0,0,8,8,4,1,0,10,Name\nD3,0,20,0,0,8,8,4,1,0,8,Clock\n"
                  "L3,0,40,60,10,0,0,0,8,Sans Serif,Clock\nS2,70,60,40,0,150,20,8,6,Volume\n");
    }
    frmTonedeck& at(const QDateTime& time)
    {
        window().now = [this] { return clock; };
        clock = time;
        return shown();
    }
    void tick(const QTime& time)
    {
        clock.setTime(time);
        w().Timer2_Timer();
    }
    // Returns the character that a display of letters shows in a cell of its line.
    char16_t letter(int cell, int y)
    {
        const QRgb first = pixel(cell * 8, y);
        return static_cast<char16_t>(32 + qGreen(first) / 8 * 16 + qRed(first) / 8);
    }
    QString read(int cells, int y)
    {
        QString text;
        for (int cell = 0; cell < cells; ++cell)
            text += QChar(letter(cell, y));
        return text;
    }

    QDateTime clock;
    const QDateTime afternoon{QDate(2026, 11, 21), QTime(14, 4, 30)};
};

} // namespace

// --- clock and date -------------------------------------------------------------------------------

TEST_F(Ticks, renewTheClockWithTheMinute)
{
    at(afternoon);
    EXPECT_EQ(label(Label::Clock), u"02:04 PM"_qs);
    EXPECT_EQ(label(Label::DayHalf), u"PM"_qs);
    tick({14, 4, 59, 900});
    EXPECT_EQ(label(Label::Clock), u"02:04 PM"_qs);
    tick({14, 5, 0, 100});
    EXPECT_EQ(label(Label::Clock), u"02:05 PM"_qs);
    EXPECT_EQ(letter(4, 20), u'5');
    tick({14, 6, 1});
    EXPECT_EQ(label(Label::Clock), u"02:05 PM"_qs)
        << "kept: a minute whose first second had no tick is missed";
}

TEST_F(Ticks, showTheClockOf24HoursWhenAsked)
{
    store(u"TimeFmt"_qs, u"1"_qs);
    at(afternoon);
    EXPECT_EQ(label(Label::Clock), u"14:04   "_qs);
    tick({15, 0, 0});
    EXPECT_EQ(label(Label::Clock), u"15:00   "_qs);
    EXPECT_EQ(read(5, 20), u"15:00"_qs);
    EXPECT_EQ(label(Label::DayHalf).trimmed(), QString());
    settings.TimeFmt = 0;
    tick({15, 1, 0});
    EXPECT_EQ(label(Label::Clock), u"03:01 PM"_qs);
}

TEST_F(Ticks, renewTheDateAtMidnight)
{
    at({QDate(2026, 11, 21), QTime(23, 59, 30)});
    EXPECT_EQ(label(Label::Date), u"Saturday November  21, 2026"_qs);
    EXPECT_EQ(label(Label::Day), u"Sat"_qs);
    EXPECT_EQ(w().dayLetter(), u'S');
    clock = clock.addDays(1);
    tick({0, 0, 0});
    EXPECT_EQ(label(Label::Date), u"Sunday November  22, 2026"_qs);
    EXPECT_EQ(label(Label::Day), u"Sun"_qs);
    EXPECT_EQ(w().dayLetter(), u'U');
    EXPECT_EQ(label(Label::Clock), u"12:00 AM"_qs);
}

TEST_F(Ticks, renewTheDateAtNoOtherTime)
{
    at(afternoon);
    clock = clock.addDays(1);
    tick({0, 0, 1});
    tick({12, 0, 0});
    tick({23, 59, 0});
    EXPECT_EQ(label(Label::Day), u"Sat"_qs);
}

// --- the name -------------------------------------------------------------------------------------

TEST_F(Ticks, scrollTheNameByOneCharacter)
{
    store(u"ScrollName"_qs, u"1"_qs);
    startWith({u"A long name.mp3"_qs});
    at(afternoon);
    w().DoIt(Command::Play);
    const QString circle = u"A long name  *  A long name  *  "_qs;
    const auto place = static_cast<int>(circle.indexOf(read(10, 0)));
    ASSERT_GE(place, 0) << qPrintable(read(10, 0));
    for (int moved = 1; moved < 8; ++moved) {
        w().Timer2_Timer();
        EXPECT_EQ(read(10, 0), circle.mid(place + moved, 10));
    }
}

TEST_F(Ticks, leaveTheNameUnlessItScrolls)
{
    startWith({u"A long name.mp3"_qs});
    at(afternoon);
    w().DoIt(Command::Play);
    w().Timer2_Timer();
    w().Timer2_Timer();
    EXPECT_EQ(read(10, 0), u"A long nam"_qs);
    settings.ScrollName = 2; // 1 alone scrolls by itself
    const QString before = read(10, 0);
    for (int tick = 0; tick < 3; ++tick)
        w().Timer2_Timer();
    EXPECT_EQ(read(10, 0), before);
}

// --- the volume -----------------------------------------------------------------------------------

TEST_F(Ticks, keepTheVolumeInStep)
{
    at(afternoon);
    media.volume->word = 0x40004000;
    w().Timer2_Timer();
    EXPECT_EQ(w().controls.iSlider[2]->pos(), QPoint(80, 60));
    EXPECT_EQ(label(Label::Volume), u"25%"_qs);
    media.volume->word = 0;
    w().Timer2_Timer();
    EXPECT_EQ(w().controls.iSlider[2]->pos(), QPoint(70, 60));
    EXPECT_EQ(label(Label::Volume), u"0%"_qs);
}

TEST_F(Ticks, followStepsOfTheVolume)
{
    at(afternoon);
    w().DoIt(Command::VolumeUp);
    EXPECT_EQ(label(Label::Volume), u"100%"_qs);
    w().DoIt(Command::VolumeDown);
    EXPECT_EQ(label(Label::Volume), u"95%"_qs);
    EXPECT_EQ(w().controls.iSlider[2]->pos(), QPoint(108, 60));
    for (int step = 0; step < 30; ++step)
        w().DoIt(Command::VolumeDown);
    EXPECT_EQ(label(Label::Volume), u"0%"_qs);
    EXPECT_EQ(media.volume->word, 0U);
    w().DoIt(Command::VolumeUp);
    EXPECT_EQ(label(Label::Volume), u"5%"_qs);
}

TEST_F(Ticks, followTheSilence)
{
    at(afternoon);
    w().DoIt(Command::VolumeDown);
    w().DoIt(Command::Mute);
    EXPECT_EQ(media.volume->word, 0U);
    EXPECT_EQ(label(Label::Volume), u"0%"_qs);
    EXPECT_TRUE(lights().contains(10));
    w().DoIt(Command::Mute);
    EXPECT_EQ(label(Label::Volume), u"95%"_qs);
    EXPECT_FALSE(lights().contains(10));
    w().DoIt(Command::Mute);
    media.volume->word = 0x80008000; // somebody else
    w().Timer2_Timer();
    EXPECT_EQ(label(Label::Volume), u"50%"_qs);
    EXPECT_TRUE(lights().contains(16));
}

TEST_F(Ticks, startTheSystemsMixer)
{
    at(afternoon);
    w().DoIt(Command::VolumeMixer);
    EXPECT_EQ(world.launcher.started, QStringList(u"sndvol32.exe"_qs));
    world.launcher.fails = true;
    w().DoIt(Command::VolumeMixer);
    EXPECT_EQ(world.dialogs.said(0), u"Songbin|No volume mixer was found on this system."_qs);
    EXPECT_TRUE(world.dialogs.errors.empty());
}

// --- the window -----------------------------------------------------------------------------------

TEST_F(Ticks, runByThemselvesWhileTheWindowIsThere)
{
    startWith({u"a.mp3"_qs});
    at(afternoon);
    w().DoIt(Command::Play);
    device().positionMs = 7'000;
    w().Timer1->setInterval(10);
    w().Timer2->setInterval(10);
    media.volume->word = 0x80008000;
    EXPECT_TRUE(QTest::qWaitFor([this] { return label(Label::Time) == u"0:07"_qs; }, kHung));
    EXPECT_TRUE(QTest::qWaitFor([this] { return label(Label::Volume) == u"50%"_qs; }, kHung));
}

TEST_F(Ticks, goOnInAMinimisedWindow)
{
    at(afternoon);
    w().DoIt(Command::Minimise);
    EXPECT_TRUE(w().isMinimized());
    tick({14, 5, 0});
    EXPECT_EQ(label(Label::Clock), u"02:05 PM"_qs);
}

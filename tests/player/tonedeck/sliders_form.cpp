// The skin's sliders under the pointer: 1 is the position, 2 the volume, 4 mirrors the volume.
#include "tests/player/tonedeck/playertest.h"

#include <QContextMenuEvent>

#include <cmath>

namespace {

// They are horizontal ones of 40 pixels with thumbs of 8 by 6.
constexpr const char* kAcross = "S1,10,60,40,0,150,20,8,6,Position\nS2,10,20,40,0,150,20,8,6,Volume\n"
                                "S3,60,60,40,0,150,20,8,6,Nothing\nS4,60,20,0,40,150,20,8,6,Mirror\n";

struct Sliders : PlayerTest {
    void skin(const QByteArray& lines = kAcross)
    {
        writeSkin(lines);
        shown();
    }
    void play()
    {
        startWith({u"a.mp3"_qs});
        skin();
        device().lengthMs = 200'000;
        w().DoIt(Command::Play);
        clearNotes();
    }
    void drag(QPoint from, QPoint to)
    {
        moveTo(from.x(), from.y());
        pressAt(from.x(), from.y());
        moveTo(to.x(), to.y());
    }
    QPoint thumb(int slider) { return w().controls.iSlider[slider]->pos(); }
    int percent() { return static_cast<int>(std::lround(w().volume() * 100)); }
};

} // namespace

// --- the position ---------------------------------------------------------------------------------

TEST_F(Sliders, playFromWhereThePositionIsLetGo)
{
    play();
    drag({12, 62}, {22, 62});
    EXPECT_EQ(thumb(1), QPoint(20, 60));
    EXPECT_EQ(w().sliders().SliderDrag(), 1);
    EXPECT_EQ(notes(), QStringList()) << "not while it is held";
    releaseAt(22, 62);
    EXPECT_EQ(notes(), jumpsTo(50'000));
    EXPECT_EQ(w().sliders().SliderDrag(), 0);
}

TEST_F(Sliders, playFromTheWholePart)
{
    play();
    device().lengthMs = 99;
    w().DoIt(Command::Play);
    clearNotes();
    drag({12, 62}, {25, 62}); // 13 of 40
    releaseAt(25, 62);
    EXPECT_EQ(notes(), jumpsTo(32)) << "of 32.175";
    drag({25, 62}, {26, 62}); // 14 of 40
    releaseAt(26, 62);
    EXPECT_EQ(notes(), jumpsTo(34)) << "of 34.65";
}

TEST_F(Sliders, stopAtTheEndsOfTheirTrack)
{
    play();
    drag({12, 62}, {110, 5});
    EXPECT_EQ(thumb(1), QPoint(50, 60));
    releaseAt(110, 5);
    EXPECT_EQ(notes(), jumpsTo(200'000)) << "the full length";
    drag({52, 62}, {1, 79});
    EXPECT_EQ(thumb(1), QPoint(10, 60));
    releaseAt(1, 79);
    EXPECT_EQ(notes(), jumpsTo(0));
}

TEST_F(Sliders, followThePointerAgainFromTheEndThatTheyReached)
{
    play();
    drag({12, 62}, {100, 62});
    moveTo(52, 62); // the same place of the thumb as it was pressed at
    EXPECT_EQ(thumb(1), QPoint(50, 60));
    moveTo(42, 62);
    EXPECT_EQ(thumb(1), QPoint(40, 60));
    releaseAt(42, 62);
    EXPECT_EQ(notes(), jumpsTo(150'000));
}

TEST_F(Sliders, jumpNowhereElseWhenPressedWithoutAMove)
{
    play();
    drag({12, 62}, {42, 62});
    releaseAt(42, 62);
    tickAt(50'000);
    ASSERT_EQ(thumb(1), QPoint(20, 60));
    clearNotes();
    pressAt(22, 62);
    releaseAt(22, 62);
    EXPECT_EQ(notes(), jumpsTo(50'000));
    EXPECT_EQ(thumb(1), QPoint(20, 60));
}

TEST_F(Sliders, playOnFromWhereItPlaysAndFromNoRoundedPixel)
{
    play();
    tickAt(51'234); // a pixel is 5,000
    clearNotes();
    pressAt(22, 62);
    releaseAt(22, 62);
    const QStringList done = notes();
    ASSERT_EQ(done.size(), 3);
    EXPECT_NEAR(done[1].mid(5).toInt(), 51'234, 1) << done[1].toStdString();
}

TEST_F(Sliders, areHeldOnWhenAnotherButtonIsPressedToo)
{
    play();
    drag({12, 62}, {22, 62});
    pressAt(22, 62, Qt::RightButton);
    QContextMenuEvent asks(QContextMenuEvent::Mouse, {22, 62}, w().mapToGlobal(QPoint(22, 62)));
    QCoreApplication::sendEvent(w().controls.iSlider[1], &asks);
    releaseAt(22, 62, Qt::RightButton);
    pressAt(22, 62, Qt::MiddleButton);
    releaseAt(22, 62, Qt::MiddleButton);
    EXPECT_FALSE(w().mnuPopup->isVisible());
    EXPECT_EQ(w().sliders().SliderDrag(), 1);
    EXPECT_EQ(notes(), QStringList());
    moveTo(32, 62);
    EXPECT_EQ(thumb(1), QPoint(30, 60));
    releaseAt(32, 62);
    EXPECT_EQ(notes(), jumpsTo(100'000));
    QCoreApplication::sendEvent(w().controls.iSlider[1], &asks);
    EXPECT_TRUE(w().mnuPopup->isVisible()) << "when nothing is held";
    w().mnuPopup->hide();
}

TEST_F(Sliders, doNotFollowThePlayingWhileTheyAreHeld)
{
    play();
    tickAt(100'000);
    EXPECT_EQ(thumb(1), QPoint(30, 60));
    drag({32, 62}, {42, 62});
    tickAt(110'000);
    EXPECT_EQ(thumb(1), QPoint(40, 60));
    EXPECT_EQ(label(Label::Time), u"1:50"_qs) << "the time goes on";
    releaseAt(42, 62);
    tickAt(150'000);
    EXPECT_EQ(thumb(1), QPoint(40, 60));
    tickAt(50'000);
    EXPECT_EQ(thumb(1), QPoint(20, 60));
}

TEST_F(Sliders, runUpAndDown)
{
    startWith({u"a.mp3"_qs});
    skin("S1,100,10,0,50,150,20,8,6,Position\n");
    device().lengthMs = 100'000;
    w().DoIt(Command::Play);
    EXPECT_EQ(thumb(1), QPoint(100, 10)) << "where the skin put it";
    tickAt(20'000);
    EXPECT_EQ(thumb(1), QPoint(100, 50));
    clearNotes();
    drag({102, 52}, {2, 32});
    EXPECT_EQ(thumb(1), QPoint(100, 30));
    releaseAt(2, 32);
    EXPECT_EQ(notes(), jumpsTo(60'000));
}

// --- the volume -----------------------------------------------------------------------------------

TEST_F(Sliders, setTheVolumeWhileTheyAreMoved)
{
    skin();
    ASSERT_EQ(thumb(2), QPoint(50, 20)) << "full";
    drag({52, 22}, {32, 22});
    EXPECT_EQ(media.volume->word >> 16, media.volume->word & 0xFFFF);
    EXPECT_EQ(percent(), 50);
    EXPECT_EQ(label(Label::Volume), u"50%"_qs);
    EXPECT_EQ(thumb(4), QPoint(60, 40)) << "upwards";
    moveTo(23, 22); // 11 of 40
    EXPECT_EQ(label(Label::Volume), u"27%"_qs) << "the whole part of 27.5";
    releaseAt(23, 22);
    EXPECT_EQ(thumb(2), QPoint(21, 20));
    EXPECT_EQ(notes(), QStringList()) << "nothing that plays is touched";
}

TEST_F(Sliders, setNoVolumeByAPressAlone)
{
    skin();
    media.volume->word = 0x12341234;
    w().Timer2_Timer();
    const QPoint before = thumb(2);
    moveTo(before.x() + 2, 22);
    pressAt(before.x() + 2, 22);
    releaseAt(before.x() + 2, 22);
    EXPECT_EQ(media.volume->word, 0x12341234U);
}

TEST_F(Sliders, areFullAtTheTop)
{
    skin("S2,100,10,0,50,150,20,8,6,Volume\nS4,10,20,40,0,150,20,8,6,Mirror\n");
    media.volume->word = 0;
    w().Timer2_Timer();
    ASSERT_EQ(thumb(2), QPoint(100, 60));
    EXPECT_EQ(label(Label::Volume), u"0%"_qs);
    drag({102, 62}, {102, 3});
    EXPECT_EQ(media.volume->word, 0xFFFFFFFF);
    EXPECT_EQ(label(Label::Volume), u"100%"_qs);
    EXPECT_EQ(thumb(4), QPoint(50, 20));
    releaseAt(102, 3);
    w().Timer2_Timer();
    EXPECT_EQ(label(Label::Volume), u"100%"_qs);
    EXPECT_EQ(thumb(2), QPoint(100, 10));
}

TEST_F(Sliders, leaveTheMirrorAloneWhileItIsHeld)
{
    skin();
    drag({62, 22}, {62, 42}); // the mirror, from full to a half
    ASSERT_EQ(thumb(4), QPoint(60, 40));
    w().Timer2_Timer();
    EXPECT_EQ(thumb(4), QPoint(60, 40)) << "it does not jump back";
    releaseAt(62, 42);
    w().Timer2_Timer();
    EXPECT_EQ(thumb(4), QPoint(60, 20)) << "it shows the volume again";
}

TEST_F(Sliders, followTheSystemsVolumeUnlessTheyAreHeld)
{
    skin();
    media.volume->word = 0x80008000;
    w().Timer2_Timer();
    EXPECT_EQ(thumb(2), QPoint(30, 20));
    EXPECT_EQ(thumb(4), QPoint(60, 40));
    EXPECT_EQ(label(Label::Volume), u"50%"_qs);
    drag({32, 22}, {42, 22});
    media.volume->word = 0x40004000; // somebody else
    w().Timer2_Timer();
    EXPECT_EQ(thumb(2), QPoint(40, 20));
    releaseAt(42, 22);
    w().Timer2_Timer();
    EXPECT_EQ(thumb(2), QPoint(20, 20));
}

TEST_F(Sliders, ofOtherNumbersDoNothing)
{
    play();
    const std::uint32_t before = media.volume->word;
    drag({62, 62}, {82, 62});
    EXPECT_EQ(thumb(3), QPoint(80, 60));
    releaseAt(82, 62);
    drag({62, 22}, {62, 42}); // the mirror
    releaseAt(62, 42);
    EXPECT_EQ(media.volume->word, before);
    EXPECT_EQ(notes(), QStringList());
    w().Timer2_Timer();
    EXPECT_EQ(thumb(4), QPoint(60, 20)) << "the mirror comes back";
}

// --- more than one, and none ----------------------------------------------------------------------

TEST_F(Sliders, ignoreASecondPressWhileOneIsHeld)
{
    play();
    drag({12, 62}, {22, 62});
    QTest::mousePress(w().controls.iSlider[2], Qt::LeftButton, {}, {2, 2});
    EXPECT_EQ(w().sliders().SliderDrag(), 1);
    QTest::mouseMove(w().controls.iSlider[2], {-8, 2});
    EXPECT_EQ(percent(), 100);
    QTest::mouseRelease(w().controls.iSlider[2], Qt::LeftButton, {}, {2, 2});
    EXPECT_EQ(w().sliders().SliderDrag(), 1) << "the first one is still held";
    releaseAt(22, 62);
    EXPECT_EQ(notes(), jumpsTo(50'000));
}

TEST_F(Sliders, areMovedByTheLeftButtonAlone)
{
    play();
    moveTo(12, 62);
    for (const Qt::MouseButton other : {Qt::RightButton, Qt::MiddleButton}) {
        pressAt(12, 62, other);
        w().mnuPopup->close();
        moveTo(32, 62);
        EXPECT_EQ(w().sliders().SliderDrag(), 0);
        releaseAt(32, 62, other);
    }
    EXPECT_EQ(thumb(1), QPoint(10, 60));
    EXPECT_EQ(notes(), QStringList());
}

TEST_F(Sliders, areLetGoWithoutEffectWhenASkinTakesTheirPlace)
{
    play();
    writeSkin("S1,10,20,40,0,150,20,8,6,Position\n", "second.skin");
    drag({12, 62}, {22, 62});
    w().LoadSkin(u"second.skin"_qs, true);
    EXPECT_EQ(w().sliders().SliderDrag(), 0);
    moveTo(30, 62);
    releaseAt(30, 62);
    EXPECT_EQ(notes(), QStringList());
}

TEST_F(Sliders, thatTheSkinDoesNotDefineStayHidden)
{
    startWith({u"a.mp3"_qs});
    skin("S2,10,20,40,0,150,20,8,6,Volume\n");
    w().DoIt(Command::Play);
    tickAt(30'000);
    EXPECT_TRUE(w().controls.iSlider[1]->isHidden());
    EXPECT_EQ(label(Label::Time), u"0:30"_qs);
}

TEST_F(Sliders, ofHostileTracksHarmNothing)
{
    for (const char* lines : {"S1,10,60,0,-5,150,20,8,6,x\nS2,5,5,-7,0,150,20,8,6,x\n",
                              "S1,32767,32767,32767,0,0,0,9,9,x\nS2,-32768,-32768,0,32767,0,0,9,9,x\n",
                              "S1,10,60,1,0,150,20,1,1,x\nS2,10,60,32767,32767,150,20,1,1,x\n"}) {
        owned.reset();
        startWith({u"a.mp3"_qs});
        skin(lines);
        media.devices.back()->lengthMs = 1000;
        w().DoIt(Command::Play);
        for (const int slider : {1, 2}) {
            PictureBox* held = w().controls.iSlider[slider];
            QTest::mousePress(held, Qt::LeftButton, {}, {0, 0});
            QTest::mouseMove(held, {5000, -5000});
            QTest::mouseRelease(held, Qt::LeftButton, {}, {5000, -5000});
        }
        EXPECT_EQ(w().sliders().SliderDrag(), 0) << lines;
    }
    EXPECT_TRUE(world.dialogs.errors.empty());
}

// Shows a face that is larger than its screen: it is smaller as a whole, and everything on it where it is
// seen.
#include "tests/player/tonedeck/playertest.h"

namespace {

// Has the face of 120 by 80 on a screen that has 60 by 60 for it.
struct SmallScreen : PlayerTest {
    SmallScreen()
    {
        writeSkin(
            "B25,80,40,20,16,100,50,I,Intro\nS3,26,60,40,0,150,20,8,6,Nothing\n"
            "L14,40,10,60,12,0,0,0,12,Sans Serif,List\nD2,60,20,0,0,9,13,4,0,1,3,Track\n"
            "I2,4,4,10,10,250,0,0,0,x\nC,70,60,20,16,Cover\nX1,10,30,50,20,0,0,0,9,9,9,12,Sans Serif,List\n"
            "N4\nP20,0\nP100,0\nP100,80\nP20,80\n",
            "default.skin", "2,3,0,0,0,0,0,0");
        window().workArea = [this] { return room; };
    }
    QRect room{100, 100, 60, 60};
    QImage seen() { return w().grab().toImage().convertToFormat(QImage::Format_RGB32); }
};

} // namespace

TEST_F(SmallScreen, hasTheWholeFaceOnIt)
{
    shown();
    EXPECT_EQ(w().size(), QSize(60, 40));
    EXPECT_EQ(w().pos(), QPoint(100, 120)) << "in the bottom right corner, as the skin wants it";
    EXPECT_EQ(w().face().size(), kFace) << "composed at its own pixels";
    EXPECT_EQ(w().mask(), QRegion(10, 0, 40, 40));
}

TEST_F(SmallScreen, showsTheMeanOfTheFace)
{
    shown();
    const QRgb mean = seen().pixel(45, 5); // of facePixel(90..91, 10..11)
    EXPECT_NEAR(qRed(mean), 90, 1);
    EXPECT_NEAR(qGreen(mean), 10, 1);
    EXPECT_NEAR(qBlue(mean), 10, 1);
    EXPECT_EQ(seen().pixel(4, 4), qRgb(250, 0, 0)) << "a light, where it is seen";
}

TEST_F(SmallScreen, placesEveryControlWhereItIsSeen)
{
    const FaceControls& controls = shown().controls;
    EXPECT_EQ(controls.Btn[Command::Intro]->geometry(), QRect(40, 20, 10, 8));
    EXPECT_EQ(controls.iSlider[3]->geometry(), QRect(13, 30, 4, 3));
    EXPECT_EQ(controls.Lbl[Label::ListName]->geometry(), QRect(20, 5, 30, 6));
    EXPECT_EQ(controls.Lbl[Label::ListName]->font().pixelSize(), 8);
    EXPECT_EQ(controls.Dig[DisplayItem::Track]->geometry(), QRect(30, 10, 14, 7));
    EXPECT_EQ(controls.Light[2]->geometry(), QRect(2, 2, 5, 5));
    EXPECT_EQ(controls.iCover->geometry(), QRect(35, 30, 10, 8));
    EXPECT_EQ(controls.PlNames->geometry(), QRect(5, 15, 25, 10));
    EXPECT_EQ(controls.PlNames->font().pixelSize(), 8);
}

TEST_F(SmallScreen, pressesTheButtonThatIsSeenUnderThePointer)
{
    shown();
    moveTo(45, 24);
    EXPECT_EQ(w().buttons().HoverBtn(), codeOf(Command::Intro));
    EXPECT_EQ(w().face().pixel(80, 40), partPixel(100, 50));
    EXPECT_EQ(w().face().pixel(99, 55), partPixel(119, 65));
    EXPECT_NEAR(qRed(seen().pixel(45, 24)), 110, 1);
    pressAt(45, 24);
    releaseAt(45, 24);
    EXPECT_TRUE(w().engine().IntroMode);
    moveTo(85, 45); // where it is on the face
    EXPECT_EQ(w().buttons().HoverBtn(), 0);
}

TEST_F(SmallScreen, dragsASliderAlongItsTrack)
{
    shown();
    moveTo(15, 31);
    pressAt(15, 31);
    moveTo(25, 31);
    EXPECT_EQ(w().controls.iSlider[3]->place(), QRect(46, 60, 8, 6));
    EXPECT_EQ(w().controls.iSlider[3]->geometry(), QRect(23, 30, 4, 3));
    EXPECT_EQ(w().face().pixel(46, 60), partPixel(150, 20));
    moveTo(59, 31);
    EXPECT_EQ(w().controls.iSlider[3]->place().x(), 66) << "its track's end";
    releaseAt(59, 31);
}

TEST_F(SmallScreen, isDraggedAndSavedByTheWindowsOwnPlace)
{
    settings.WinSavePos = 1;
    store(u"WinSavePos"_qs, u"1"_qs);
    shown();
    w().move(110, 110);
    moveTo(15, 38);
    pressAt(15, 38);
    moveTo(20, 41);
    EXPECT_EQ(w().pos(), QPoint(115, 113));
    releaseAt(15, 38);
    w().move(104, 107);
    unload();
    EXPECT_EQ(settings.X, 104 * 15);
    EXPECT_EQ(settings.Y, 107 * 15);
}

TEST_F(SmallScreen, foldsAtTheSameFactor)
{
    shown();
    w().DoIt(Command::NextSize); // 60 by 40 would fit as it is
    EXPECT_EQ(w().size(), QSize(30, 20));
    w().DoIt(Command::NextSize);
    EXPECT_EQ(w().size(), QSize(60, 15));
}

TEST_F(SmallScreen, isGivenRoomByTheNextTick)
{
    shown();
    room = QRect(0, 0, 500, 500);
    w().Timer2_Timer();
    EXPECT_EQ(w().size(), kFace);
    EXPECT_EQ(w().mask(), QRegion(20, 0, 80, 80));
    EXPECT_EQ(w().controls.Btn[Command::Intro]->geometry(), QRect(80, 40, 20, 16));
    EXPECT_EQ(w().controls.Lbl[Label::ListName]->font().pixelSize(), 16);
    EXPECT_EQ(seen().pixel(90, 10), facePixel(90, 10));
    room = QRect(0, 0, 60, 60);
    w().Timer2_Timer();
    EXPECT_EQ(w().size(), QSize(60, 40));
    EXPECT_TRUE(room.contains(w().geometry()));
}

TEST_F(SmallScreen, changesNothingInTheMidstOfADrag)
{
    shown();
    moveTo(15, 38);
    pressAt(15, 38);
    room = QRect(0, 0, 500, 500);
    w().Timer2_Timer();
    EXPECT_EQ(w().size(), QSize(60, 40));
    releaseAt(15, 38);
    w().Timer2_Timer();
    EXPECT_EQ(w().size(), kFace);
}

// Takes the pointer over the skin's buttons.
#include "tests/player/tonedeck/playertest.h"

namespace {

// Has button 25 at 10, 10 with a pressed picture at 100, 50, button 26 beside it, button 27 without a picture
// of its own; they switch modes.
struct Buttons : PlayerTest {
    void skin(const QByteArray& hoverStyle, const QByteArray& more = {})
    {
        writeSkin(
            "B25,10,10,20,16,100,50,I,Intro\nB26,40,10,20,16,130,50,S,Stop\nB27,70,10,20,16,0,0,R,Repeat\n" +
                more,
            "default.skin", hoverStyle + ",0,0,0,0,0,0,0");
        shown();
        moveTo(5, 70);
    }
    HotArea& button(Command command) { return *w().controls.Btn[command]; }
    PictureBox& pressed() { return *w().controls.TmpBtn; }
    bool introIsOn() { return w().engine().IntroMode; }
};

} // namespace

// --- hover ----------------------------------------------------------------------------------------

TEST_F(Buttons, showNothingUnderThePointerWithStyle0)
{
    skin("0");
    moveTo(15, 15);
    EXPECT_EQ(w().buttons().HoverBtn(), codeOf(Command::Intro));
    EXPECT_FALSE(button(Command::Intro).hasBorder());
    EXPECT_TRUE(pressed().isHidden());
    moveTo(5, 70);
    EXPECT_EQ(w().buttons().HoverBtn(), 0);
}

TEST_F(Buttons, haveABorderUnderThePointerWithStyle1)
{
    skin("1");
    moveTo(15, 15);
    EXPECT_TRUE(button(Command::Intro).hasBorder());
    EXPECT_TRUE(pressed().isHidden());
    moveTo(45, 15);
    EXPECT_FALSE(button(Command::Intro).hasBorder());
    EXPECT_TRUE(button(Command::StopAfterTrack).hasBorder());
    EXPECT_EQ(w().buttons().HoverBtn(), codeOf(Command::StopAfterTrack));
    moveTo(5, 70);
    EXPECT_FALSE(button(Command::StopAfterTrack).hasBorder());
    EXPECT_EQ(w().buttons().HoverBtn(), 0);
}

TEST_F(Buttons, areShownPressedUnderThePointerWithStyle2)
{
    skin("2");
    moveTo(15, 15);
    EXPECT_FALSE(button(Command::Intro).hasBorder());
    EXPECT_EQ(pressed().geometry(), QRect(10, 10, 20, 16));
    EXPECT_EQ(pixel(10, 10), partPixel(100, 50));
    moveTo(16, 16);
    EXPECT_FALSE(pressed().isHidden()) << "the picture lies under the pointer now";
    moveTo(45, 15);
    EXPECT_EQ(pressed().geometry(), QRect(40, 10, 20, 16));
    EXPECT_EQ(pixel(10, 10), facePixel(10, 10));
    EXPECT_EQ(pixel(40, 10), partPixel(130, 50));
    moveTo(5, 70);
    EXPECT_TRUE(pressed().isHidden());
    EXPECT_EQ(w().face(), counted(kFace, 10));
    EXPECT_EQ(w().buttons().HoverBtn(), 0);
    EXPECT_FALSE(introIsOn());
}

// Under the pointer it has that picture already: a press has to show.
TEST_F(Buttons, lookDifferentWhenTheyArePressedWithStyle2)
{
    skin("2");
    moveTo(15, 15);
    const QImage hovered = w().face().copy(10, 10, 20, 16);
    pressAt(15, 15);
    const QImage sunk = w().face().copy(10, 10, 20, 16);
    EXPECT_NE(sunk, hovered);
    EXPECT_NEAR(qRed(sunk.pixel(5, 5)), 104 * 205 / 255, 1) << "lower, and darker";
    EXPECT_NEAR(qGreen(sunk.pixel(5, 5)), 54 * 205 / 255, 1);
    EXPECT_EQ(pressed().picture().pixel(5, 5), partPixel(105, 55));
    releaseAt(15, 15);
    EXPECT_TRUE(introIsOn());
    EXPECT_EQ(w().face(), counted(kFace, 10));
    moveTo(16, 15);
    EXPECT_EQ(w().face().copy(10, 10, 20, 16), hovered) << "up again";
}

TEST_F(Buttons, lookDifferentWhenTheKeyboardPressesThemToo)
{
    skin("2");
    w().activateWindow();
    button(Command::Intro).setFocus(Qt::TabFocusReason);
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, u" "_qs);
    QCoreApplication::sendEvent(&button(Command::Intro), &press);
    EXPECT_FALSE(pressed().isHidden());
    EXPECT_NE(pixel(15, 15), partPixel(105, 55));
}

TEST_F(Buttons, areLeftOverTheListToo)
{
    skin("1", "X1,30,10,30,40,1,2,3,250,240,230,8,Sans Serif,List\n");
    moveTo(15, 15);
    EXPECT_TRUE(button(Command::Intro).hasBorder());
    moveTo(50, 40);
    EXPECT_FALSE(button(Command::Intro).hasBorder());
    EXPECT_EQ(w().buttons().HoverBtn(), 0);
}

TEST_F(Buttons, areLeftOverASliderToo)
{
    skin("1", "S3,30,10,5,0,0,0,8,16,A slider\n");
    moveTo(15, 15);
    ASSERT_EQ(w().buttons().HoverBtn(), codeOf(Command::Intro));
    moveTo(34, 15);
    EXPECT_EQ(w().buttons().HoverBtn(), 0);
    EXPECT_FALSE(button(Command::Intro).hasBorder());
}

TEST_F(Buttons, areLeftWithTheWindow)
{
    skin("2", "B28,0,30,20,16,100,50,I,Shuffle\n");
    moveTo(2, 35);
    ASSERT_EQ(w().buttons().HoverBtn(), codeOf(Command::Shuffle));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(w().centralWidget(), &leave);
    EXPECT_EQ(w().buttons().HoverBtn(), 0);
    EXPECT_TRUE(pressed().isHidden());
}

// --- press and release ----------------------------------------------------------------------------

TEST_F(Buttons, showTheirPressedPictureWhileTheyArePressed)
{
    skin("0");
    moveTo(15, 15);
    pressAt(15, 15);
    EXPECT_EQ(pressed().geometry(), QRect(10, 10, 20, 16));
    EXPECT_EQ(pressed().toolTip(), u"Intro"_qs);
    EXPECT_EQ(pixel(10, 10), partPixel(100, 50));
    EXPECT_EQ(pixel(29, 25), partPixel(119, 65));
    EXPECT_EQ(pixel(30, 25), facePixel(30, 25));
    EXPECT_EQ(pixel(29, 26), facePixel(29, 26));
    EXPECT_FALSE(introIsOn());
    releaseAt(15, 15);
    EXPECT_TRUE(introIsOn());
    EXPECT_TRUE(pressed().isHidden());
    EXPECT_EQ(pixel(10, 10), facePixel(10, 10));
}

TEST_F(Buttons, showTheResourceBitmapsCornerWithoutAnOriginOfTheirOwn)
{
    skin("0");
    moveTo(75, 15);
    pressAt(75, 15);
    EXPECT_EQ(pixel(70, 10), partPixel(0, 0));
    EXPECT_EQ(pixel(89, 25), partPixel(19, 15));
    releaseAt(75, 15);
    EXPECT_TRUE(w().engine().RepeatMode);
}

TEST_F(Buttons, countAReleaseWhereverThePointerIs)
{
    for (const char* style : {"0", "1", "2"}) {
        owned.reset();
        skin(style);
        moveTo(15, 15);
        pressAt(15, 15);
        moveTo(45, 15);
        moveTo(60, 70);
        releaseAt(60, 70);
        EXPECT_TRUE(introIsOn()) << style;
        EXPECT_FALSE(w().engine().StopAfterTrack) << style;
        EXPECT_TRUE(pressed().isHidden()) << style;
        EXPECT_EQ(w().buttons().HoverBtn(), 0) << style;
        EXPECT_FALSE(button(Command::Intro).hasBorder()) << style;
    }
}

TEST_F(Buttons, takeAReleaseOnThePictureThatCoversThem)
{
    skin("2");
    moveTo(45, 15);
    ASSERT_EQ(w().centralWidget()->childAt(46, 16), &pressed());
    pressAt(46, 16);
    EXPECT_FALSE(w().engine().StopAfterTrack);
    releaseAt(46, 16);
    EXPECT_TRUE(w().engine().StopAfterTrack);
    EXPECT_TRUE(pressed().isHidden());
    EXPECT_EQ(w().buttons().HoverBtn(), 0);
}

TEST_F(Buttons, areCommandsOncePerClick)
{
    for (const char* style : {"0", "1", "2"}) {
        owned.reset();
        skin(style);
        clickAt(15, 15);
        EXPECT_TRUE(introIsOn()) << style;
        clickAt(15, 15);
        EXPECT_FALSE(introIsOn()) << style;
    }
}

TEST_F(Buttons, takeTheSecondPressOfADoubleClickToo)
{
    skin("0");
    for (int press = 0; press < 2; ++press) { // as fast as a double click
        QTest::mousePress(system(), Qt::LeftButton, {}, {15, 15}, 1);
        QMouseEvent again(QEvent::MouseButtonDblClick, QPointF(5, 5), QPointF(5, 5), Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        if (press == 1)
            QCoreApplication::sendEvent(&button(Command::Intro), &again);
        releaseAt(15, 15);
    }
    EXPECT_FALSE(introIsOn()) << "twice";
}

TEST_F(Buttons, leaveOtherButtonsOfThePointerAlone)
{
    skin("0");
    moveTo(15, 15);
    for (const Qt::MouseButton other : {Qt::RightButton, Qt::MiddleButton, Qt::BackButton}) {
        pressAt(15, 15, other);
        EXPECT_TRUE(pressed().isHidden());
        releaseAt(15, 15, other);
        if (w().mnuPopup->isVisible())
            w().mnuPopup->close();
    }
    EXPECT_FALSE(introIsOn());
}

// --- odd buttons ----------------------------------------------------------------------------------

TEST_F(Buttons, thatAreHiddenOrOffTheFaceShowNoPicture)
{
    skin("0", "B28,500,10,20,16,100,50,X,off\nB29,-30,-30,20,16,100,50,Y,off\n");
    for (const Command command : {Command::Shuffle, Command::VolumeMixer, Command::LoopStart}) {
        w().buttons().ButtonDown(codeOf(command));
        EXPECT_TRUE(pressed().isHidden()) << codeOf(command);
    }
    button(Command::Intro).hide();
    w().buttons().ButtonDown(codeOf(Command::Intro));
    EXPECT_TRUE(pressed().isHidden());
    w().buttons().ButtonUp(codeOf(Command::Intro));
    EXPECT_TRUE(introIsOn()) << "a command all the same";
}

TEST_F(Buttons, thatReachOverTheFaceShowWhatIsSeenOfTheirPicture)
{
    skin("0", "B28,-5,60,20,100,100,50,X,over the corner\n");
    w().buttons().ButtonDown(codeOf(Command::Shuffle));
    EXPECT_EQ(pressed().geometry(), QRect(0, 60, 15, 20));
    EXPECT_EQ(pixel(0, 60), partPixel(105, 50));
    EXPECT_EQ(pixel(14, 79), partPixel(119, 69));
}

TEST_F(Buttons, ofAnySizeAndOriginCostNoMoreThanTheFace)
{
    skin("0", "B28,-32768,-32768,32767,32767,32767,32767,X,far\nB29,0,0,32767,32767,-32768,-32768,Y,huge\n"
              "B30,-32767,-32767,32767,32767,5,5,Z,nearly\nB31,0,0,32767,32767,190,90,Q,end\n");
    for (const Command command :
         {Command::Shuffle, Command::VolumeMixer, Command::LoopStart, Command::LoopEnd}) {
        w().buttons().ButtonDown(codeOf(command));
        EXPECT_LE(pressed().picture().width(), kFace.width()) << codeOf(command);
        EXPECT_LE(pressed().picture().height(), kFace.height()) << codeOf(command);
    }
    EXPECT_EQ(pixel(0, 0), partPixel(190, 90));
    EXPECT_EQ(pixel(10, 9), qRgb(0, 0, 0)) << "beyond the resource bitmap";
}

TEST_F(Buttons, areLetGoWhenASkinTakesTheirPlace)
{
    skin("2");
    writeSkin("B25,90,60,20,16,0,0,I,Intro\n", "second.skin");
    moveTo(15, 15);
    pressAt(15, 15);
    w().LoadSkin(u"second.skin"_qs, true);
    EXPECT_TRUE(pressed().isHidden());
    EXPECT_EQ(w().buttons().HoverBtn(), 0);
    releaseAt(15, 15);
    EXPECT_FALSE(introIsOn()) << "the picture that was pressed is gone";
}

TEST_F(Buttons, arePressedByTheKeyboardToo)
{
    skin("0");
    button(Command::Intro).setFocus(Qt::TabFocusReason);
    QTest::keyPress(system(), Qt::Key_Space);
    EXPECT_EQ(pixel(10, 10), partPixel(100, 50));
    QTest::keyRelease(system(), Qt::Key_Space);
    EXPECT_TRUE(introIsOn());
    EXPECT_TRUE(pressed().isHidden());
}

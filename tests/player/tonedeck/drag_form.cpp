// The face moves its window with the pointer.
#include "tests/player/tonedeck/playertest.h"

#include <QMouseEvent>
#include <QScreen>

namespace {

struct Drag : PlayerTest {
    Drag()
    {
        writeSkin("B25,10,10,20,16,0,0,I,Intro\nL1,40,10,30,12,0,0,0,8,Sans Serif,Time\n"
                  "L5,80,10,30,12,0,0,0,8,Sans Serif,Snooze\nI2,40,30,9,9,255,0,0,0,x\nC,60,30,20,20,Cover\n"
                  "D2,10,40,0,0,9,13,4,0,1,3,Track\n");
        shown().move(300, 200);
    }
    // Presses at a place of the window and takes the pointer to a place of the screen.
    void dragTo(QPoint from, QPoint to)
    {
        moveTo(from.x(), from.y());
        pressAt(from.x(), from.y());
        moveOnScreen(to);
    }
    void moveOnScreen(QPoint to)
    {
        const QPoint place = to - w().pos();
        moveTo(place.x(), place.y());
        pointer = to;
    }
    void release(Qt::MouseButton button = Qt::LeftButton)
    {
        const QPoint place = pointer - w().pos();
        releaseAt(place.x(), place.y(), button);
    }
    QPoint pointer; // on the screen
    QRect room() { return w().screen()->availableGeometry(); }
};

} // namespace

TEST_F(Drag, movesTheWindowWithThePointer)
{
    dragTo({5, 70}, {315, 290});
    EXPECT_EQ(w().pos(), QPoint(310, 220));
    moveOnScreen({320, 295});
    EXPECT_EQ(w().pos(), QPoint(315, 225));
    moveOnScreen({305, 270});
    EXPECT_EQ(w().pos(), QPoint(300, 200));
    release();
    EXPECT_EQ(w().pos(), QPoint(300, 200));
}

TEST_F(Drag, endsWithTheRelease)
{
    dragTo({5, 70}, {315, 290});
    release();
    moveTo(60, 70);
    EXPECT_EQ(w().pos(), QPoint(310, 220));
}

TEST_F(Drag, isOfTheLeftButtonAlone)
{
    moveTo(5, 70);
    for (const Qt::MouseButton other : {Qt::MiddleButton, Qt::RightButton}) {
        pressAt(5, 70, other);
        w().mnuPopup->close();
        moveTo(30, 70);
        EXPECT_EQ(w().pos(), QPoint(300, 200));
        releaseAt(30, 70, other);
    }
}

TEST_F(Drag, goesOnWhenAnotherButtonIsReleased)
{
    dragTo({5, 70}, {315, 290});
    release(Qt::MiddleButton);
    moveOnScreen({325, 300});
    EXPECT_EQ(w().pos(), QPoint(320, 230));
    release();
}

TEST_F(Drag, beginsOnWhateverTakesNoPressItself)
{
    for (const QPoint place : {QPoint(85, 15), QPoint(44, 34), QPoint(65, 35), QPoint(12, 45)}) {
        w().move(300, 200);
        dragTo(place, QPoint(300, 200) + place + QPoint(7, 9));
        EXPECT_EQ(w().pos(), QPoint(307, 209)) << place.x();
        release();
    }
}

TEST_F(Drag, doesNotBeginOnAButtonOrALabelThatIsClicked)
{
    for (const QPoint place : {QPoint(15, 15), QPoint(45, 15)}) {
        dragTo(place, QPoint(300, 200) + place + QPoint(7, 9));
        EXPECT_EQ(w().pos(), QPoint(300, 200)) << place.x();
        release();
    }
}

TEST_F(Drag, comesUponNoButtonOnItsWay)
{
    moveTo(5, 70);
    pressAt(5, 70);
    pointer = w().pos() + QPoint(5, 70);
    w().controls.Btn[Command::Intro]->setGeometry(0, 0, 120, 80);
    moveOnScreen(pointer + QPoint(3, 3));
    EXPECT_EQ(w().buttons().HoverBtn(), 0);
    EXPECT_EQ(w().pos(), QPoint(303, 203));
    release();
    EXPECT_FALSE(w().engine().IntroMode);
}

TEST_F(Drag, leavesAButtonAsItIsWhileItLasts)
{
    moveTo(15, 15);
    ASSERT_EQ(w().buttons().HoverBtn(), codeOf(Command::Intro));
    const auto send = [this](QEvent::Type type, QPoint place) { // a press without a move before it
        QMouseEvent event(type, place, w().mapToGlobal(place), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(w().centralWidget(), &event);
    };
    send(QEvent::MouseButtonPress, {5, 70});
    send(QEvent::MouseMove, {9, 70});
    EXPECT_EQ(w().pos(), QPoint(304, 200));
    EXPECT_EQ(w().buttons().HoverBtn(), codeOf(Command::Intro));
    send(QEvent::MouseButtonRelease, {5, 70});
    send(QEvent::MouseMove, {9, 70});
    EXPECT_EQ(w().buttons().HoverBtn(), 0);
}

TEST_F(Drag, snapsToTheEdgesWhenItIsLetGo)
{
    settings.WinSnap = 1;
    dragTo({5, 70}, room().topLeft() + QPoint(5 + 15, 70 + 15));
    EXPECT_EQ(w().pos(), room().topLeft() + QPoint(15, 15)) << "not before";
    release();
    EXPECT_EQ(w().pos(), room().topLeft());
    const QPoint corner =
        room().topLeft() + QPoint(room().width() - kFace.width(), room().height() - kFace.height());
    dragTo({5, 70}, corner + QPoint(5 - 10, 70 + 10));
    release();
    EXPECT_EQ(w().pos(), corner);
}

TEST_F(Drag, staysFartherFromTheEdgesThanTheySnap)
{
    settings.WinSnap = 1;
    const QPoint place = room().topLeft() + QPoint(16, 16);
    dragTo({5, 70}, place + QPoint(5, 70));
    release();
    EXPECT_EQ(w().pos(), place);
}

TEST_F(Drag, snapsNowhereUnlessWinSnapIsOn)
{
    const QPoint place = room().topLeft() + QPoint(15, 15);
    dragTo({5, 70}, place + QPoint(5, 70));
    release();
    EXPECT_EQ(w().pos(), place);
}

TEST_F(Drag, snapsNothingWithoutADrag)
{
    settings.WinSnap = 1;
    const QPoint place = room().topLeft() + QPoint(15, 15);
    w().move(place);
    clickAt(15, 15); // a button
    EXPECT_EQ(w().pos(), place);
    EXPECT_TRUE(w().engine().IntroMode);
}

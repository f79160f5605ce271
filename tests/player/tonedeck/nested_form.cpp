// Holds what happens while something else is not over yet: a dialog stands, a menu is open, an entry is
// begun.
#include "tests/player/tonedeck/desktoptest.h"
#include "tests/player/tonedeck/playertest.h"

namespace {

struct Nested : PlayerTest {
    Nested()
    {
        writeSkin("S1,10,60,40,0,150,20,8,6,Position\n");
        startWith({u"a.wav"_qs, u"b.wav"_qs});
        shown();
    }
    // The toolkit tells no release to a window that a dialog stands before.
    void loseRelease(QPoint place) { QTest::mouseRelease(&elsewhere, Qt::LeftButton, {}, place); }

    QWindow elsewhere;
};

using NestedDesktop = Desktop;

} // namespace

TEST_F(Nested, aDialogOpenedWithinATickHoldsUpNoOther)
{
    w().DoIt(Command::Play);
    bool stood = false;
    world.program.onYield = [&] {
        if (std::exchange(stood, true))
            return;
        device().positionMs = 7000;
        EXPECT_TRUE(QTest::qWaitFor([&] { return label(Label::Time) == u"0:07"_qs; }, kHung))
            << "it was not followed";
    };
    w().Timer1->start(20);
    EXPECT_TRUE(QTest::qWaitFor([&] { return stood; }, kHung));
}

TEST_F(Nested, aWindowIsNotDraggedOnWhenADialogHadTheRelease)
{
    w().move(300, 200);
    moveTo(5, 70);
    pressAt(5, 70);
    moveTo(15, 75);
    const QPoint place = w().pos();
    EXPECT_EQ(place, QPoint(310, 205));
    loseRelease({15, 75});
    moveTo(40, 75);
    EXPECT_EQ(w().pos(), place);
}

TEST_F(Nested, aSliderIsNotHeldOnWhenADialogHadTheRelease)
{
    w().DoIt(Command::Play);
    for (const QPoint over : {QPoint(60, 20), QPoint(14, 62)}) { // the face, the thumb
        moveTo(12, 62);
        pressAt(12, 62);
        EXPECT_EQ(w().sliders().SliderDrag(), 1);
        loseRelease({12, 62});
        moveTo(over.x(), over.y());
        EXPECT_EQ(w().sliders().SliderDrag(), 0);
        EXPECT_EQ(w().controls.iSlider[1]->pos(), QPoint(10, 60));
    }
}

TEST_F(NestedDesktop, isNeverToldHalfOfAnEntry)
{
    w().DoIt(Command::Play);
    settings.UseTagCover = 1;
    QStringList told;
    controls->note = [&](const PlayerReport& report) {
        told += u"%1 %2 %3"_qs.arg(report.status).arg(report.entry).arg(report.title);
    };
    w().DoIt(Command::Next);
    w().DoIt(Command::Next);
    told.removeDuplicates();
    EXPECT_EQ(told, (QStringList{u"1 2 b"_qs, u"1 3 c"_qs}));
}

TEST_F(Nested, aDroppedFileIsNeverMoved)
{
    QMimeData data;
    data.setData(u"text/uri-list"_qs, "file:///D:/a.wav");
    QDragEnterEvent enter({5, 5}, Qt::MoveAction | Qt::CopyAction, &data, Qt::LeftButton, Qt::ShiftModifier);
    enter.setDropAction(Qt::MoveAction);
    enter.ignore();
    QCoreApplication::sendEvent(&w(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    EXPECT_EQ(enter.dropAction(), Qt::CopyAction);
    QDropEvent dropped({5, 5}, Qt::MoveAction | Qt::CopyAction, &data, Qt::LeftButton, Qt::ShiftModifier);
    dropped.setDropAction(Qt::MoveAction);
    QCoreApplication::sendEvent(&w(), &dropped);
    EXPECT_EQ(dropped.dropAction(), Qt::CopyAction);
    EXPECT_EQ(w().playlist().count(), 3);
}

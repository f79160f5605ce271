// Takes the line of words that the player shows on any face.
#include "player/face/statusline.h"
#include "tests/support/hung.h"
#include "tests/support/tonedecktest.h"

#include <QAccessible>
#include <QTest>

namespace {

struct StatusLineTest : TonedeckTest {
    StatusLine& line() { return *window().findChild<StatusLine*>(u"StatusLine"_qs); }
    QTimer& time() { return *line().findChild<QTimer*>(); }
    QString tip() { return window().controls.Lbl[Label::Name]->toolTip(); }

    void show()
    {
        loaded().showForm();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window()));
    }
    // Waits until what it says has been seen and its time is over.
    void passTime()
    {
        time().setInterval(1);
        line().repaint();
        time().start();
        ASSERT_TRUE(QTest::qWaitFor([this] { return line().isHidden(); }, kHung));
    }
    QImage shown()
    {
        return window().centralWidget()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    }
    bool faceShows(const QPoint& place) { return shown().pixel(place) == facePixel(place.x(), place.y()); }
};

const QByteArray kNameLabel = "L2,10,10,80,20,250,120,30,9,DejaVu Sans,The skin's tip\n";

} // namespace

TEST(LowestBand, liesAtTheFootOfARectangle)
{
    EXPECT_EQ(lowestBand(QRegion(5, 10, 100, 50), 12), QRect(5, 48, 100, 12));
}

TEST(LowestBand, isThereNotWhereTheShapeIsTooLow)
{
    EXPECT_TRUE(lowestBand(QRegion(0, 0, 100, 11), 12).isEmpty());
    EXPECT_FALSE(lowestBand(QRegion(0, 0, 100, 12), 12).isEmpty());
    EXPECT_TRUE(lowestBand(QRegion(), 12).isEmpty());
}

TEST(LowestBand, leavesAThinFootForTheWideBody)
{
    const QRegion lamp = QRegion(0, 0, 200, 60) + QRegion(90, 60, 20, 40);
    EXPECT_EQ(lowestBand(lamp, 20), QRect(0, 40, 200, 20));
}

TEST(LowestBand, takesALittleNarrowerFoot)
{
    const QRegion round = QRegion(0, 0, 200, 60) + QRegion(10, 60, 180, 20);
    EXPECT_EQ(lowestBand(round, 20), QRect(10, 60, 180, 20));
}

TEST(LowestBand, liesBetweenHoles)
{
    const QRegion holed = QRegion(0, 0, 200, 40) - QRegion(50, 30, 10, 5);
    EXPECT_EQ(lowestBand(holed, 20), QRect(60, 20, 140, 20));
}

TEST_F(StatusLineTest, isNotThereWhileNothingIsSaid)
{
    writeSkin(kNameLabel);
    show();
    EXPECT_TRUE(line().isHidden());
    EXPECT_EQ(tip(), u"The skin's tip"_qs);
}

TEST_F(StatusLineTest, showsWhatIsSaidAboveTheLowerEdgeAndInTheTip)
{
    writeSkin(kNameLabel);
    show();
    window().say(u"No sound"_qs);
    EXPECT_FALSE(line().isHidden());
    EXPECT_EQ(line().text(), u"No sound"_qs);
    EXPECT_EQ(tip(), u"No sound"_qs);
    EXPECT_TRUE(QRect({}, kFace).contains(line().geometry()));
    EXPECT_GT(line().geometry().top(), kFace.height() / 2);
    EXPECT_FALSE(faceShows(line().geometry().center()));
    EXPECT_TRUE(faceShows({2, 2}));
}

TEST_F(StatusLineTest, goesAwayByItselfAndGivesTheTipBack)
{
    writeSkin(kNameLabel);
    show();
    window().say(u"No sound"_qs);
    const QPoint middle = line().geometry().center();
    EXPECT_EQ(time().interval(), 5000);
    passTime();
    EXPECT_TRUE(faceShows(middle));
    EXPECT_EQ(tip(), u"The skin's tip"_qs);
    EXPECT_EQ(line().text(), QString());
}

TEST_F(StatusLineTest, takesANewTextInPlaceOfTheOldOneAndBeginsItsTimeAnew)
{
    writeSkin(kNameLabel);
    show();
    window().say(u"No sound"_qs);
    line().repaint();
    ASSERT_TRUE(time().isActive());
    window().say(u"No disk"_qs);
    EXPECT_FALSE(time().isActive()) << "it was not seen yet";
    line().repaint();
    EXPECT_TRUE(time().isActive());
    EXPECT_EQ(time().interval(), 5000);
    EXPECT_EQ(line().text(), u"No disk"_qs);
    EXPECT_EQ(tip(), u"No disk"_qs);
    passTime();
    EXPECT_EQ(tip(), u"The skin's tip"_qs);
}

TEST_F(StatusLineTest, waitsForAWindowThatIsNotShownYet)
{
    writeSkin(kNameLabel);
    loaded().say(u"No sound"_qs);
    QTest::qWait(20);
    EXPECT_FALSE(time().isActive());
    show();
    ASSERT_TRUE(QTest::qWaitFor([this] { return time().isActive(); }, kHung));
    EXPECT_EQ(line().text(), u"No sound"_qs);
}

TEST_F(StatusLineTest, keepsWhatIsSaidFirstUntilItIsSeen)
{
    writeSkin(kNameLabel);
    loaded();
    line().sayFirst(u"No list"_qs);
    window().say(u"No sound"_qs);
    EXPECT_EQ(line().text(), u"No list No sound"_qs);
    window().say(u"No disk"_qs);
    EXPECT_EQ(line().text(), u"No list No disk"_qs);
    show();
    line().repaint();
    window().say(u"No sound"_qs);
    EXPECT_EQ(line().text(), u"No sound"_qs);
}

TEST_F(StatusLineTest, goesAwayFromTheTipWhereItHasNoPlace)
{
    writeSkin(kNameLabel);
    show();
    line().setShape({});
    window().say(u"No sound"_qs);
    EXPECT_TRUE(line().isHidden());
    EXPECT_EQ(tip(), u"No sound"_qs);
    ASSERT_TRUE(time().isActive());
    time().start(1);
    ASSERT_TRUE(QTest::qWaitFor([this] { return line().text().isEmpty(); }, kHung));
    EXPECT_EQ(tip(), u"The skin's tip"_qs);
}

TEST_F(StatusLineTest, leavesTheTipOfASkinThatWasLoadedMeanwhile)
{
    writeSkin(kNameLabel);
    writeSkin("L2,10,10,80,20,250,120,30,9,DejaVu Sans,Another\n", "second.skin");
    show();
    window().say(u"No sound"_qs);
    window().LoadSkin(u"second.skin"_qs, true);
    EXPECT_EQ(line().text(), u"No sound"_qs);
    passTime();
    EXPECT_EQ(tip(), u"Another"_qs);
}

TEST_F(StatusLineTest, staysInsideTheOutlineOfTheFace)
{
    // The face is cut off at half its height.
    writeSkin(kNameLabel + "N4\nP0,0\nP120,0\nP120,40\nP0,40\n");
    show();
    if (window().mask().isEmpty())
        GTEST_FAIL() << "the skin's outline was not read";
    window().say(u"No sound"_qs);
    EXPECT_LE(line().geometry().bottom(), 39);
    EXPECT_FALSE(line().isHidden());
}

TEST_F(StatusLineTest, followsTheFaceToAnotherSize)
{
    writeSkin(kNameLabel);
    show();
    window().say(u"No sound"_qs);
    const int before = line().geometry().bottom();
    window().DoIt(Command::NextSize); // 60 by 40
    EXPECT_EQ(window().size(), QSize(60, 40));
    EXPECT_LT(line().geometry().bottom(), before);
    EXPECT_TRUE(QRect(0, 0, 60, 40).contains(line().geometry()));
}

TEST_F(StatusLineTest, takesSeveralLinesWhereTheFaceIsNarrow)
{
    writeSkin("");
    show();
    window().say(u"No sound"_qs);
    const int oneLine = line().height();
    window().say(u"No sound comes out of here"_qs);
    EXPECT_GT(line().height(), oneLine + 8);
    window().say(QString(5'000'000, u'x'));
    EXPECT_TRUE(QRect({}, kFace).contains(line().geometry()));
    EXPECT_FALSE(shown().isNull());
}

TEST_F(StatusLineTest, letsThePointerThrough)
{
    writeSkin("B25,0,0,120,80,0,0,,Button\n");
    show();
    window().say(u"No sound"_qs);
    const QPoint place = line().geometry().center();
    EXPECT_EQ(window().centralWidget()->childAt(place), window().controls.Btn[Command::Intro]);
}

TEST_F(StatusLineTest, isAPartOfTheFaceForScreenReaders)
{
    writeSkin(kNameLabel);
    show();
    window().say(u"No sound"_qs);
    const QAccessibleInterface* said = QAccessible::queryAccessibleInterface(&line());
    EXPECT_EQ(said->role(), QAccessible::Notification);
    EXPECT_EQ(said->text(QAccessible::Name), u"No sound"_qs);
    const QAccessibleInterface* face = QAccessible::queryAccessibleInterface(window().centralWidget());
    EXPECT_GE(face->indexOfChild(said), 0);
    passTime();
    EXPECT_EQ(face->indexOfChild(said), -1);
}

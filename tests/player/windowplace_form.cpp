#include "player/windowplace.h"

#include "player/playersettings.h"

#include <QScreen>
#include <QWidget>
#include <QWindow>

#include <gtest/gtest.h>

namespace {

class SnapWindowTest : public testing::Test {
protected:
    SnapWindowTest()
    {
        window.resize(200, 100);
        window.show();
    }
    QPoint snapped(int x, int y)
    {
        window.move(x, y);
        SnapWindow(window, settings);
        return window.pos();
    }

    QWidget window{nullptr, Qt::FramelessWindowHint};
    PlayerSettings settings{.WinSnap = 1};
    QRect area = GetWorkArea(window);
};

} // namespace

TEST_F(SnapWindowTest, snapsWithinSixteenPixels)
{
    const int right = area.x() + area.width() - 200;
    const int bottom = area.y() + area.height() - 100;
    EXPECT_EQ(snapped(15, -15), QPoint(0, 0));
    EXPECT_EQ(snapped(16, -16), QPoint(16, -16));
    EXPECT_EQ(snapped(right - 15, bottom + 15), QPoint(right, bottom));
    EXPECT_EQ(snapped(right + 16, bottom - 16), QPoint(right + 16, bottom - 16));
    EXPECT_EQ(snapped(300, 300), QPoint(300, 300));
    EXPECT_EQ(window.size(), QSize(200, 100));
}

TEST_F(SnapWindowTest, doesNothingUnlessWinSnapIsOn)
{
    settings.WinSnap = 0;
    EXPECT_EQ(snapped(5, 5), QPoint(5, 5));
    settings.WinSnap = -1;
    EXPECT_EQ(snapped(5, 5), QPoint(0, 0));
}

TEST_F(SnapWindowTest, aWindowThatStandsRightIsNotMoved)
{
    window.move(0, 300);
    window.setAttribute(Qt::WA_Moved, false);
    SnapWindow(window, settings);
    EXPECT_FALSE(window.testAttribute(Qt::WA_Moved));
}

TEST(windowPlace, aWindowOnTopIsTopmost)
{
    QWidget window;
    SetOnTop(window, true);
    window.show();
    EXPECT_TRUE(window.windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint));
    SetOnTop(window, false);
    EXPECT_FALSE(window.windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint));
}

TEST(windowPlace, theWorkAreaIsThatOfTheWindowsScreen)
{
    const QWidget window;
    EXPECT_EQ(GetWorkArea(window), window.screen()->availableGeometry());
}

// --- inside an area -------------------------------------------------------------------------------

TEST(PlaceInside, leavesAWindowThatIsInside)
{
    const QRect room(100, 50, 800, 600);
    EXPECT_EQ(placeInside({100, 50, 800, 600}, room), QPoint(100, 50));
    EXPECT_EQ(placeInside({300, 200, 120, 80}, room), QPoint(300, 200));
    EXPECT_EQ(placeInside({780, 570, 120, 80}, room), QPoint(780, 570));
}

TEST(PlaceInside, bringsAWindowBackOverEachEdge)
{
    const QRect room(100, 50, 800, 600);
    EXPECT_EQ(placeInside({99, 200, 120, 80}, room), QPoint(100, 200));
    EXPECT_EQ(placeInside({781, 200, 120, 80}, room), QPoint(780, 200));
    EXPECT_EQ(placeInside({300, 49, 120, 80}, room), QPoint(300, 50));
    EXPECT_EQ(placeInside({300, 571, 120, 80}, room), QPoint(300, 570));
    EXPECT_EQ(placeInside({-9000, 9000, 120, 80}, room), QPoint(100, 570));
}

TEST(PlaceInside, showsTheUpperLeftCornerOfAWindowThatIsTooLarge)
{
    const QRect room(100, 50, 800, 600);
    EXPECT_EQ(placeInside({-50, -50, 1000, 700}, room), QPoint(100, 50));
    EXPECT_EQ(placeInside({300, 300, 1000, 80}, room), QPoint(100, 300));
    EXPECT_EQ(placeInside({300, 300, 120, 700}, room), QPoint(300, 50));
}

TEST(PlaceInside, findsAPlaceInNoAreaAtAll)
{
    EXPECT_EQ(placeInside({300, 300, 120, 80}, QRect(5, 6, 0, 0)), QPoint(5, 6));
}

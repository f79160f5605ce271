#include "player/tonedeck/windowplacement.h"

#include "player/playback/playersettings.h"

#include <QGuiApplication>
#include <QProcess>
#include <QProcessEnvironment>
#include <QScreen>
#include <QTemporaryFile>
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

// Two screens, the second one right of the first; the program is run again to have them.
TEST(WorkArea, isThatOfTheScreenWhereTheWindowLies)
{
    QTemporaryFile screens;
    ASSERT_TRUE(screens.open());
    screens.write(R"({"screens": [
        {"name": "one", "x": 0, "y": 0, "width": 800, "height": 600, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1},
        {"name": "two", "x": 800, "y": 0, "width": 640, "height": 480, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    screens.close();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"),
                       QStringLiteral("offscreen:configfile=") + screens.fileName());
    QProcess again;
    again.setProcessEnvironment(environment);
    again.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("--gtest_also_run_disabled_tests"),
                 QStringLiteral("--gtest_filter=WorkArea.DISABLED_*")});
    ASSERT_TRUE(again.waitForFinished());
    EXPECT_EQ(again.exitCode(), 0) << again.readAllStandardOutput().constData();
}

TEST(WorkArea, DISABLED_onTwoScreens)
{
    ASSERT_EQ(QGuiApplication::screens().size(), 2);
    QWidget window;
    window.resize(100, 80);
    window.move(900, 100);
    EXPECT_EQ(GetWorkArea(window), QRect(800, 0, 640, 480)) << "not shown yet";
    window.move(10, 10);
    EXPECT_EQ(GetWorkArea(window), QRect(0, 0, 800, 600));
    window.move(9000, 9000);
    EXPECT_EQ(GetWorkArea(window), QRect(0, 0, 800, 600)) << "on none";
}

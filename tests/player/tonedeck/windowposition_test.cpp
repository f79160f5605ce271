#include "player/tonedeck/windowposition.h"

#include <gtest/gtest.h>

namespace {

const QRect kScreen(100, 50, 800, 600);
const QRect kWindow(300, 200, 200, 100);

QPoint at(int code)
{
    return windowPosition(code, kWindow, kScreen);
}

} // namespace

TEST(WindowPosition, touchesTheEdgesOfItsCode)
{
    EXPECT_EQ(at(1), QPoint(100, 200));
    EXPECT_EQ(at(2), QPoint(700, 200));
    EXPECT_EQ(at(3), QPoint(700, 550));
    EXPECT_EQ(at(4), QPoint(100, 550));
    EXPECT_EQ(at(5), QPoint(400, 300));
}

TEST(WindowPosition, staysWithAnyOtherCode)
{
    for (const int code : {0, 6, -1, 32767})
        EXPECT_EQ(at(code), kWindow.topLeft());
}

TEST(WindowPosition, comesBackInsideTheScreen)
{
    EXPECT_EQ(windowPosition(0, {5000, 5000, 200, 100}, kScreen), QPoint(700, 550));
    EXPECT_EQ(windowPosition(0, {-5000, -5000, 200, 100}, kScreen), QPoint(100, 50));
    EXPECT_EQ(windowPosition(1, {300, 5000, 200, 100}, kScreen), QPoint(100, 550));
}

TEST(WindowPosition, showsTheBeginningOfAWindowLargerThanTheScreen)
{
    for (const int code : {0, 1, 2, 3, 4, 5})
        EXPECT_EQ(windowPosition(code, {300, 200, 2000, 2000}, kScreen), kScreen.topLeft()) << code;
}

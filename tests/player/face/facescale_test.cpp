// Holds how large the window shows the face.
#include "player/face/facescale.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

FaceScale scaleOf(QSize face, QSize room, QSize largest = {})
{
    FaceScale scale;
    scale.fit(face, largest.isEmpty() ? face : largest, room);
    return scale;
}

} // namespace

TEST(FaceScale, isOneWhereThereIsRoom)
{
    const FaceScale scale = scaleOf({1000, 660}, {1000, 660});
    EXPECT_EQ(scale.factor(), 1);
    EXPECT_EQ(scale.window(), QSize(1000, 660));
    EXPECT_EQ(scale.onWindow({3, 4, 50, 60}), QRect(3, 4, 50, 60));
    EXPECT_EQ(scale.onFace({7, -9}), QPoint(7, -9));
}

TEST(FaceScale, keepsTheProportionsAndFitsBothWays)
{
    EXPECT_EQ(scaleOf({1000, 660}, {960, 540}).window(), QSize(818, 540));
    EXPECT_EQ(scaleOf({1000, 660}, {500, 540}).window(), QSize(500, 330));
    EXPECT_EQ(scaleOf({4096, 4096}, {800, 600}).window(), QSize(600, 600));
}

// Else the face would grow under the pointer that folds it.
TEST(FaceScale, isTheSameInEverySizeMode)
{
    const FaceScale folded = scaleOf({1000, 190}, {960, 540}, {1000, 660});
    EXPECT_EQ(folded.factor(), scaleOf({1000, 660}, {960, 540}).factor());
    EXPECT_EQ(folded.window(), QSize(818, 155));
}

TEST(FaceScale, leavesNoGapBetweenPlacesThatMeet)
{
    const FaceScale scale = scaleOf({100, 100}, {77, 77});
    for (int x = 0; x < 90; ++x) {
        const QRect first = scale.onWindow({x, 0, 7, 10});
        const QRect second = scale.onWindow({x + 7, 0, 3, 10});
        EXPECT_EQ(first.right() + 1, second.left()) << x;
    }
}

TEST(FaceScale, showsTheSmallestPlaceToo)
{
    const FaceScale scale = scaleOf({4000, 4000}, {40, 40});
    EXPECT_EQ(scale.onWindow({7, 7, 1, 1}).size(), QSize(1, 1));
    EXPECT_EQ(scaleOf({4000, 3}, {40, 40}).window(), QSize(40, 1));
}

TEST(FaceScale, takesAPlaceOfTheWindowBackToTheFace)
{
    const FaceScale scale = scaleOf({1000, 660}, {960, 540});
    for (int x = 0; x < 900; x += 13)
        EXPECT_NEAR(scale.onFace(scale.onWindow({x, 0, 1, 1}).topLeft()).x(), x, 1);
}

TEST(FaceScale, standsARoomThatIsNone)
{
    EXPECT_EQ(scaleOf({100, 100}, {0, 0}).factor(), 1);
    EXPECT_EQ(scaleOf({0, 0}, {10, 10}).window(), QSize(1, 1));
}

TEST(FaceScale, takesThePointsOfAnyOutline)
{
    FaceScale scale;
    scale.fit({200, 100}, {200, 100}, {100, 50});
    EXPECT_EQ(scale.onWindow(QPoint(11, 20)), QPoint(6, 10));
    constexpr int kFar = std::numeric_limits<int>::max();
    EXPECT_EQ(scale.onWindow(QPoint(kFar, -kFar)), QPoint(kFar / 2 + 1, -kFar / 2 - 1));
}

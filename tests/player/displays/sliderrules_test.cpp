#include "player/displays/sliderrules.h"

#include <gtest/gtest.h>

namespace {

const QRect kAcross(10, 60, 200, 0);
const QRect kUp(10, 60, 0, 100);

} // namespace

TEST(ThumbPlace, runsAlongATrackWithoutHeight)
{
    EXPECT_EQ(thumbPlace(kAcross, 0), QPoint(10, 60));
    EXPECT_EQ(thumbPlace(kAcross, 0.5F), QPoint(110, 60));
    EXPECT_EQ(thumbPlace(kAcross, 1), QPoint(210, 60));
}

TEST(ThumbPlace, isFullAtTheTopOfAnyOther)
{
    EXPECT_EQ(thumbPlace(kUp, 1), QPoint(10, 60));
    EXPECT_EQ(thumbPlace(kUp, 0.25F), QPoint(10, 135));
    EXPECT_EQ(thumbPlace(kUp, 0), QPoint(10, 160));
}

TEST(ThumbPlace, staysOnItsTrack)
{
    EXPECT_EQ(thumbPlace(kAcross, 7), QPoint(210, 60));
    EXPECT_EQ(thumbPlace(kAcross, -7), QPoint(10, 60));
    EXPECT_EQ(thumbPlace({10, 60, -5, 0}, 1), QPoint(10, 60));
    EXPECT_EQ(thumbPlace({10, 60, 0, -5}, 0), QPoint(10, 60));
}

TEST(DraggedThumb, followsThePointerAcross)
{
    const ThumbDrag drag = draggedThumb(kAcross, {60, 60}, {50, 999});
    EXPECT_EQ(drag.place, QPoint(110, 60));
    EXPECT_FLOAT_EQ(drag.fraction, 0.5F);
}

TEST(DraggedThumb, followsThePointerUpAndDown)
{
    const ThumbDrag drag = draggedThumb(kUp, {10, 160}, {999, -75});
    EXPECT_EQ(drag.place, QPoint(10, 85));
    EXPECT_FLOAT_EQ(drag.fraction, 0.75F);
}

TEST(DraggedThumb, stopsAtTheEndsOfItsTrack)
{
    EXPECT_EQ(draggedThumb(kAcross, {60, 60}, {5000, 0}).place, QPoint(210, 60));
    EXPECT_FLOAT_EQ(draggedThumb(kAcross, {60, 60}, {5000, 0}).fraction, 1);
    EXPECT_FLOAT_EQ(draggedThumb(kAcross, {60, 60}, {-5000, 0}).fraction, 0);
    EXPECT_FLOAT_EQ(draggedThumb(kUp, {10, 100}, {0, -5000}).fraction, 1) << "the top is full";
    EXPECT_FLOAT_EQ(draggedThumb(kUp, {10, 100}, {0, 5000}).fraction, 0);
}

TEST(DraggedThumb, hasNoValueOnATrackWithoutLength)
{
    EXPECT_FLOAT_EQ(draggedThumb({10, 60, 0, 0}, {10, 60}, {5, 5}).fraction, 0);
    EXPECT_FLOAT_EQ(draggedThumb({10, 60, 0, -9}, {10, 60}, {5, 5}).fraction, 0);
    EXPECT_EQ(draggedThumb({10, 60, 0, -9}, {10, 60}, {5, 5}).place, QPoint(10, 60));
}

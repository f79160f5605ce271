#include "player/playback/playbackrules.h"

#include <gtest/gtest.h>

TEST(JumpTarget, staysBetweenTheBeginningAndASecondBeforeTheEnd)
{
    EXPECT_EQ(jumpTarget(-1, 60'000), 0);
    EXPECT_EQ(jumpTarget(0, 60'000), 0);
    EXPECT_EQ(jumpTarget(30'000, 60'000), 30'000);
    EXPECT_EQ(jumpTarget(60'000, 60'000), 60'000);
    EXPECT_EQ(jumpTarget(60'001, 60'000), 59'000);
}

TEST(PressedAB, setsASetsBAndClearsWithOneButton)
{
    LoopPoints points = pressedAB({}, 5000, false);
    EXPECT_EQ(points, (LoopPoints{5000, 0}));
    points = pressedAB(points, 9000, false);
    EXPECT_EQ(points, (LoopPoints{5000, 9000}));
    EXPECT_EQ(pressedAB(points, 12'000, false), LoopPoints{});
}

TEST(PressedAB, setsAOnlyWhereBHasAButtonOfItsOwn)
{
    EXPECT_EQ(pressedAB({5000, 9000}, 7000, true), (LoopPoints{7000, 0}));
}

TEST(PressedAB, setsAAgainAsLongAsItIsAtTheBeginning)
{
    EXPECT_EQ(pressedAB({0, 0}, 0, false), (LoopPoints{0, 0}));
    EXPECT_EQ(pressedAB({0, 3000}, 4000, false), (LoopPoints{4000, 0}));
}

TEST(PlanTick, endsTheEntryAtItsLengthLessTheOverlap)
{
    EXPECT_FALSE(planTick({.position = 59'999, .trackLength = 60'000}).over);
    EXPECT_TRUE(planTick({.position = 60'000, .trackLength = 60'000}).over);
    EXPECT_FALSE(planTick({.position = 56'999, .trackLength = 60'000, .overlap = 3000}).over);
    EXPECT_TRUE(planTick({.position = 60'000, .trackLength = 60'000, .overlap = -3000}).over) << "no setting";
    EXPECT_TRUE(planTick({.position = 57'000, .trackLength = 60'000, .overlap = 3000}).over);
}

TEST(PlanTick, endsAnIntroAfterTenSeconds)
{
    EXPECT_FALSE(planTick({.position = 10'000, .trackLength = 60'000, .introMode = true}).over);
    EXPECT_TRUE(planTick({.position = 10'001, .trackLength = 60'000, .introMode = true}).over);
    EXPECT_TRUE(planTick({.position = 4000, .trackLength = 4000, .introMode = true}).over);
}

TEST(PlanTick, jumpsBackAtTheEndOfTheLoop)
{
    EXPECT_EQ(planTick({.position = 8999, .trackLength = 60'000, .loop = {5000, 9000}}), TickPlan{});
    EXPECT_EQ(planTick({.position = 9000, .trackLength = 60'000, .loop = {5000, 9000}}),
              (TickPlan{true, false}));
    EXPECT_EQ(planTick({.position = 60'000, .trackLength = 60'000, .loop = {5000, 9000}}),
              (TickPlan{true, true}));
    EXPECT_EQ(planTick({.position = 9000, .trackLength = 60'000, .loop = {5000, 0}}), TickPlan{})
        << "no end set";
    EXPECT_EQ(planTick({.position = 10'001, .trackLength = 60'000, .loop = {5000, 9000}, .introMode = true}),
              (TickPlan{false, true}));
}

TEST(EntryAfter, isTheNextOne)
{
    EXPECT_EQ(entryAfter(3, 10, false, 0.9), 4);
    EXPECT_EQ(entryAfter(10, 10, false, 0), 11);
}

TEST(EntryAfter, isAnyOneAtRandomAndMayBeOneBehindTheLast)
{
    EXPECT_EQ(entryAfter(3, 10, true, 0), 1);
    EXPECT_EQ(entryAfter(3, 10, true, 0.44), 5);
    EXPECT_EQ(entryAfter(3, 10, true, 0.45), 6) << "5.5 to even";
    EXPECT_EQ(entryAfter(3, 10, true, 0.55), 6) << "6.5 to even";
    EXPECT_EQ(entryAfter(3, 10, true, 0.94), 10);
    EXPECT_EQ(entryAfter(3, 10, true, 0.96), 11);
}

#include "player/displays/clocktick.h"

#include <gtest/gtest.h>

namespace {

constexpr ClockTick kNothing{};
constexpr ClockTick kMinute{.newMinute = true};
constexpr ClockTick kMidnight{.newMinute = true, .newDay = true};

} // namespace

TEST(MinuteWatch, tellsAMinuteOnceInItsFirstSecond)
{
    MinuteWatch watch;
    EXPECT_EQ(watch.tick({10, 4, 59, 900}), kNothing);
    EXPECT_EQ(watch.tick({10, 5, 0, 150}), kMinute);
    EXPECT_EQ(watch.tick({10, 5, 0, 400}), kNothing);
    EXPECT_EQ(watch.tick({10, 5, 0, 900}), kNothing);
    EXPECT_EQ(watch.tick({10, 5, 1, 150}), kNothing);
    EXPECT_EQ(watch.tick({10, 6, 0, 0}), kMinute);
}

TEST(MinuteWatch, tellsTheMinuteThatItBeginsIn)
{
    MinuteWatch watch;
    EXPECT_EQ(watch.tick({14, 5, 0}), kMinute);
}

TEST(MinuteWatch, missesAMinuteWhoseFirstSecondHadNoTick)
{
    MinuteWatch watch;
    EXPECT_EQ(watch.tick({10, 4, 59}), kNothing);
    EXPECT_EQ(watch.tick({10, 5, 1}), kNothing);
    EXPECT_EQ(watch.tick({10, 5, 59}), kNothing);
}

TEST(MinuteWatch, tellsTheNextMinuteThoughNoTickLayBetween)
{
    MinuteWatch watch;
    EXPECT_EQ(watch.tick({10, 5, 0}), kMinute);
    EXPECT_EQ(watch.tick({10, 6, 0}), kMinute);
    EXPECT_EQ(watch.tick({9, 6, 0}), kMinute) << "the clock was put back";
}

TEST(MinuteWatch, tellsTheSameMinuteOfTheNextDay)
{
    MinuteWatch watch;
    EXPECT_EQ(watch.tick({10, 5, 0}), kMinute);
    EXPECT_EQ(watch.tick({10, 5, 30}), kNothing);
    EXPECT_EQ(watch.tick({10, 5, 0}), kMinute);
}

TEST(MinuteWatch, tellsANewDayAtMidnightAlone)
{
    MinuteWatch watch;
    EXPECT_EQ(watch.tick({23, 59, 0}), kMinute);
    EXPECT_EQ(watch.tick({23, 59, 59, 999}), kNothing);
    EXPECT_EQ(watch.tick({0, 0, 0}), kMidnight);
    EXPECT_EQ(watch.tick({0, 0, 0, 250}), kNothing);
    EXPECT_EQ(watch.tick({0, 1, 0}), kMinute);
    EXPECT_EQ(watch.tick({12, 0, 0}), kMinute);
}

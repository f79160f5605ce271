#include "player/playback/playertimes.h"

#include <gtest/gtest.h>

#include <limits>

TEST(ShownTime, countsSecondsThatAreOver)
{
    EXPECT_EQ(shownTimeText(0, false), u"0:00"_qs);
    EXPECT_EQ(shownTimeText(999, false), u"0:00"_qs);
    EXPECT_EQ(shownTimeText(65'999, false), u"1:05"_qs);
    EXPECT_EQ(shownTimeText(600'000, false), u"10:00"_qs);
    EXPECT_EQ(shownTimeText(3'725'000, false), u"62:05"_qs);
}

TEST(ShownTime, hasAMinusInFrontOfWhatRemains)
{
    EXPECT_EQ(shownTimeText(65'000, true), u"-1:05"_qs);
    EXPECT_EQ(shownTimeText(0, true), u"-0:00"_qs);
}

TEST(ShownTime, survivesTheEndsOfItsRange)
{
    EXPECT_EQ(shownTimeText(std::numeric_limits<qint32>::max(), false), u"35791:23"_qs);
    EXPECT_EQ(shownTimeText(-5000, false), u"0:-05"_qs);
    EXPECT_FALSE(shownTimeText(std::numeric_limits<qint32>::min(), true).isEmpty());
}

TEST(LengthText, roundsToTheNearestSecondHalvesToEven)
{
    EXPECT_EQ(lengthText(59'500), u"1:00"_qs);
    EXPECT_EQ(lengthText(60'400), u"1:00"_qs);
    EXPECT_EQ(lengthText(60'500), u"1:00"_qs);
    EXPECT_EQ(lengthText(61'500), u"1:02"_qs);
    EXPECT_EQ(lengthText(125'000), u"2:05"_qs);
    EXPECT_EQ(lengthText(187'000), u"3:07"_qs);
    EXPECT_EQ(lengthText(720'000), u"12:00"_qs);
    EXPECT_EQ(lengthText(0), u"0:00"_qs);
}

#include "player/displays/statelights.h"

#include <gtest/gtest.h>

namespace {

std::vector<int> shown(const PlayerFlags& flags)
{
    std::vector<int> numbers;
    const auto lights = lightsShown(flags);
    for (std::size_t number = 0; number < lights.size(); ++number)
        if (lights[number])
            numbers.push_back(static_cast<int>(number));
    return numbers;
}

} // namespace

TEST(StateLights, showTheSecondOfEachPairWhileNothingIsOn)
{
    EXPECT_EQ(shown({}), (std::vector<int>{2, 11, 12, 13, 14, 15, 16}));
}

TEST(StateLights, showTheFirstOfAPairWhileItsFlagIsSet)
{
    EXPECT_EQ(shown({.playing = true}), (std::vector<int>{4, 11, 12, 13, 14, 15, 16}));
    EXPECT_EQ(shown({.playing = true, .paused = true}), (std::vector<int>{3, 4, 11, 12, 13, 14, 15, 16}));
    EXPECT_EQ(shown({.intro = true}), (std::vector<int>{2, 5, 12, 13, 14, 15, 16}));
    EXPECT_EQ(shown({.stopAfterTrack = true}), (std::vector<int>{2, 6, 11, 13, 14, 15, 16}));
    EXPECT_EQ(shown({.repeat = true}), (std::vector<int>{2, 7, 11, 12, 14, 15, 16}));
    EXPECT_EQ(shown({.loopPoint = true}), (std::vector<int>{2, 8, 11, 12, 13, 15, 16}));
    EXPECT_EQ(shown({.shuffle = true}), (std::vector<int>{2, 9, 11, 12, 13, 14, 16}));
    EXPECT_EQ(shown({.mute = true}), (std::vector<int>{2, 10, 11, 12, 13, 14, 15}));
}

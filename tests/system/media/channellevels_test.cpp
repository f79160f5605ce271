#include "system/media/channellevels.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <vector>

namespace {

pa_channel_map mapOf(unsigned channels)
{
    pa_channel_map map;
    pa_channel_map_init_auto(&map, channels, PA_CHANNEL_MAP_ALSA);
    return map;
}

pa_cvolume levelsOf(std::initializer_list<pa_volume_t> values)
{
    pa_cvolume levels;
    pa_cvolume_init(&levels);
    for (const pa_volume_t value : values)
        levels.values[levels.channels++] = value;
    return levels;
}

std::vector<pa_volume_t> valuesOf(const pa_cvolume& levels)
{
    return {levels.values, levels.values + levels.channels};
}

} // namespace

TEST(ChannelLevels, everyValueOfEachSideComesBack)
{
    const pa_channel_map map = mapOf(2);
    for (std::uint32_t half = 0; half <= 0xFFFF; ++half) {
        const std::uint32_t word = half | (0xFFFF - half) << 16;
        ASSERT_EQ(wordOfLevels(levelsOfWord(word, map), map), word);
    }
}

TEST(ChannelLevels, theEndsAreSilenceAndFull)
{
    EXPECT_EQ(valuesOf(levelsOfWord(0xFFFF0000, mapOf(2))), (std::vector<pa_volume_t>{0, PA_VOLUME_NORM}));
    EXPECT_EQ(wordOfLevels(levelsOf({PA_VOLUME_NORM, 0}), mapOf(2)), 0x0000FFFFU);
}

TEST(ChannelLevels, whatIsAmplifiedBeyondFullIsFull)
{
    EXPECT_EQ(wordOfLevels(levelsOf({98304, PA_VOLUME_MAX}), mapOf(2)), 0xFFFFFFFFU);
}

TEST(ChannelLevels, aMonoSinkIsAsLoudAsTheLouderSide)
{
    const pa_channel_map map = mapOf(1);
    EXPECT_EQ(valuesOf(levelsOfWord(0x40008000, map)), valuesOf(levelsOfWord(0x80004000, map)));
    EXPECT_EQ(wordOfLevels(levelsOfWord(0x40008000, map), map), 0x80008000U);
}

TEST(ChannelLevels, sixChannelsFollowTheirSides)
{
    const pa_channel_map map = mapOf(6); // front, rear, centre, bass
    const pa_volume_t left = levelsOfWord(0x80004000, mapOf(2)).values[0];
    const pa_volume_t right = levelsOfWord(0x80004000, mapOf(2)).values[1];
    EXPECT_EQ(valuesOf(levelsOfWord(0x80004000, map)),
              (std::vector<pa_volume_t>{left, right, left, right, right, right}));
    EXPECT_EQ(wordOfLevels(levelsOf({left, right, 1, 2, 3, 65536}), map), 0x80004000U);
}

TEST(ChannelLevels, channelsOfNoSideCountAsBoth)
{
    pa_channel_map map;
    pa_channel_map_init(&map);
    map.channels = 2;
    map.map[0] = PA_CHANNEL_POSITION_AUX0;
    map.map[1] = PA_CHANNEL_POSITION_AUX1;
    EXPECT_EQ(wordOfLevels(levelsOf({0, PA_VOLUME_NORM}), map), 0xFFFFFFFFU);
}

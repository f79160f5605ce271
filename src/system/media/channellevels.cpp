#include "system/media/channellevels.h"

#include <algorithm>

namespace {

constexpr std::uint64_t kFullWord = 0xFFFF;
constexpr std::uint64_t kFullLevel = PA_VOLUME_NORM;

enum class Side { Left, Right, Neither };

Side sideOf(pa_channel_position_t position)
{
    switch (position) {
    case PA_CHANNEL_POSITION_FRONT_LEFT:
    case PA_CHANNEL_POSITION_REAR_LEFT:
    case PA_CHANNEL_POSITION_SIDE_LEFT:
    case PA_CHANNEL_POSITION_FRONT_LEFT_OF_CENTER:
    case PA_CHANNEL_POSITION_TOP_FRONT_LEFT:
    case PA_CHANNEL_POSITION_TOP_REAR_LEFT:
        return Side::Left;
    case PA_CHANNEL_POSITION_FRONT_RIGHT:
    case PA_CHANNEL_POSITION_REAR_RIGHT:
    case PA_CHANNEL_POSITION_SIDE_RIGHT:
    case PA_CHANNEL_POSITION_FRONT_RIGHT_OF_CENTER:
    case PA_CHANNEL_POSITION_TOP_FRONT_RIGHT:
    case PA_CHANNEL_POSITION_TOP_REAR_RIGHT:
        return Side::Right;
    default:
        return Side::Neither;
    }
}

pa_volume_t levelOf(std::uint32_t half)
{
    return static_cast<pa_volume_t>((half * kFullLevel + kFullWord / 2) / kFullWord);
}

std::uint32_t halfOf(pa_volume_t level)
{
    const std::uint64_t bounded = std::min<std::uint64_t>(level, kFullLevel);
    return static_cast<std::uint32_t>((bounded * kFullWord + kFullLevel / 2) / kFullLevel);
}

pa_volume_t levelOfSide(const pa_cvolume& levels, const pa_channel_map& map, Side side)
{
    for (unsigned i = 0; i < std::min(levels.channels, map.channels); ++i)
        if (sideOf(map.map[i]) == side)
            return levels.values[i];
    return pa_cvolume_max(&levels);
}

} // namespace

std::uint32_t wordOfLevels(const pa_cvolume& levels, const pa_channel_map& map)
{
    return halfOf(levelOfSide(levels, map, Side::Left)) | halfOf(levelOfSide(levels, map, Side::Right)) << 16;
}

pa_cvolume levelsOfWord(std::uint32_t word, const pa_channel_map& map)
{
    const pa_volume_t left = levelOf(word & 0xFFFF);
    const pa_volume_t right = levelOf(word >> 16);
    pa_cvolume levels;
    pa_cvolume_init(&levels);
    levels.channels = map.channels;
    for (unsigned i = 0; i < map.channels; ++i) {
        const Side side = sideOf(map.map[i]);
        levels.values[i] = side == Side::Left ? left : side == Side::Right ? right : std::max(left, right);
    }
    return levels;
}

// Turns the volume's word (left low, right high, 0xFFFF full) into the levels of a sink's channels, and back.
#pragma once

#include <pulse/channelmap.h>
#include <pulse/volume.h>

#include <cstdint>

// Each side is its first channel's level. A side without a channel of its own (a mono sink) is as loud as the
// loudest channel. What a server amplifies beyond full is full.
std::uint32_t wordOfLevels(const pa_cvolume& levels, const pa_channel_map& map);

// The channels of a side get that side's level, those of neither (mono, centre, bass) the louder one's. Each
// of the 65,536 values of a side comes back from wordOfLevels as it was.
pa_cvolume levelsOfWord(std::uint32_t word, const pa_channel_map& map);

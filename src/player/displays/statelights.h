// Tells which state lights and marks are shown.
#pragma once

#include "player/skin/skinelements.h"
#include "player/skin/skinmarks.h"

enum class ChannelMode { Unknown, Mono, Stereo };

// Goes by the text that the file's facts have for it.
ChannelMode channelModeOf(const QString& text);

// Tells what the player does.
struct PlayerFlags {
    bool playing = false;
    bool paused = false;
    bool intro = false;
    bool stopAfterTrack = false;
    bool repeat = false;
    bool shuffle = false;
    bool mute = false;
    bool loopPoint = false; // an A or B point is set
    ChannelMode channels = ChannelMode::Unknown;
};

// Goes by the number of the light; number 0 is none.
std::array<bool, kLights + 1> lightsShown(const PlayerFlags& flags);

bool markShown(MarkState state, const PlayerFlags& flags);

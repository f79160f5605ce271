#include "player/displays/statelights.h"

std::array<bool, kLights + 1> lightsShown(const PlayerFlags& flags)
{
    struct Pair {
        std::size_t whileSet;
        std::size_t whileClear;
        bool flag;
    };
    std::array<bool, kLights + 1> shown{}; // kept: light 1 is never shown
    for (const Pair& pair :
         {Pair{4, 2, flags.playing}, Pair{5, 11, flags.intro}, Pair{6, 12, flags.stopAfterTrack},
          Pair{7, 13, flags.repeat}, Pair{8, 14, flags.loopPoint}, Pair{9, 15, flags.shuffle},
          Pair{10, 16, flags.mute}}) {
        shown[pair.whileSet] = pair.flag;
        shown[pair.whileClear] = !pair.flag;
    }
    shown[3] = flags.paused;
    return shown;
}

ChannelMode channelModeOf(const QString& text)
{
    if (text.trimmed().isEmpty())
        return ChannelMode::Unknown;
    return text.trimmed() == u"mono" ? ChannelMode::Mono : ChannelMode::Stereo;
}

bool markShown(MarkState state, const PlayerFlags& flags)
{
    switch (state) {
    case MarkState::Playing:
        return flags.playing && !flags.paused;
    case MarkState::Paused:
        return flags.paused;
    case MarkState::Stopped:
        return !flags.playing && !flags.paused;
    case MarkState::Mono:
        return flags.channels == ChannelMode::Mono;
    case MarkState::Stereo:
        return flags.channels == ChannelMode::Stereo;
    case MarkState::Shuffle:
        return flags.shuffle;
    case MarkState::Repeat:
        return flags.repeat;
    }
    return false;
}

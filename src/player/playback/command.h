// Names the player's commands by their codes, which are the numbers of a skin's buttons.
#pragma once

#include <QString>

#include <optional>

// The codes from 37 to 48 mean nothing.
enum class Command : int {
    Close = 1,
    Minimise = 2,
    NextSize = 3,
    TagEditor = 4,
    Preferences = 5,
    SelectSkin = 6,
    VolumeDown = 7,
    VolumeUp = 8,
    Mute = 9,
    Stop = 10,
    Pause = 11,
    Play = 12,
    OpenFile = 13,
    Previous = 14,
    Next = 15,
    CoverWindow = 16,
    RemoveEntry = 17,
    MoveEntryDown = 18,
    MoveEntryUp = 19,
    ClearPlaylist = 20,
    LoadPlaylist = 21,
    SavePlaylist = 22,
    AddFile = 23,
    AddDirectory = 24,
    Intro = 25,
    StopAfterTrack = 26,
    RepeatTrack = 27,
    Shuffle = 28,
    VolumeMixer = 29,
    LoopStart = 30,
    LoopEnd = 31,
    Back = 32,
    Forward = 33,
    RemainingTime = 34,
    VisualPlaylist = 35,
    PlayOrPause = 36,
    PreviousSkin = 49,
    NextSkin = 50,
};

constexpr int codeOf(Command command)
{
    return static_cast<int>(command);
}

// Returns nothing for a code that means none.
std::optional<Command> commandOf(int code);

QString captionOf(Command command); // in menus, "&" before the access key

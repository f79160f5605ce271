// Holds the player's options and knows how they are kept: as text under the application "tonedeckpro",
// section "config". A number is the numeric value of its text, rounded half to even to 16 bits; no number
// gives 0. One that does not fit leaves the value already held. What could not be read is not written: saving
// leaves it alone.
#pragma once

#include <QString>

class UserSettings;

// Flags are 0 or 1. Before loading everything is 0 or empty.
struct PlayerSettings {
    QString Path{}; // the file dialogs' last directory
    qint16 WinOnTop = 0;
    qint16 WinSnap = 0;
    qint16 WinSavePos = 0;
    qint16 Auto = 0;
    qint16 Snooze = 0;
    qint16 SnoozeMode = 0;
    QString SnoozeTime{}; // "23:59"
    qint16 SnoozeHide = 0;
    qint16 ExitMode = 0;
    qint16 StartMd = 0; // 1: the last playlist comes back
    qint16 StartMin = 0;
    qint16 StartMute = 0;
    QString StartFile{};
    QString Skin{};
    QString SkinPath{};
    QString SkinImport{};
    qint16 TimeFmt = 0; // 0: twelve hours
    QString VisPLPath{};
    qint16 ClearPLFirst = 0;
    qint16 AutoPlay = 0;
    QString ValidExt{};
    qint16 OverlapMs = 0; // key PBOverlap
    qint16 ScrollName = 0;
    qint16 UseTagCover = 0;
    qint16 FriendlyNames = 0;
    float X = 0; // the window's left and top in twips
    float Y = 0;
    qint16 LastTrack = 0;
    QString LastCover{};

    bool operator==(const PlayerSettings&) const = default;
};

// They load at start, in this order. They return false when the store could not be read: those values are as
// if it had none.
bool loadSettings(UserSettings& store, PlayerSettings& settings); // Path to FriendlyNames
// X and Y hold the window's left and top before; they stay where the store has none, or one that lies beyond
// what a window system can place (16 bits of pixels).
bool loadPosition(UserSettings& store, PlayerSettings& settings);
bool loadLast(UserSettings& store, PlayerSettings& settings); // LastTrack, LastCover
bool isStartModeRead(const UserSettings& store);              // StartMd, when it was last loaded

// They save at exit, in this order; the automatic list is written between the last two. They return false
// when one could not be saved, although it was read.
bool saveSettings(UserSettings& store, const PlayerSettings& settings); // Skin to FriendlyNames
bool savePosition(UserSettings& store, const PlayerSettings& settings); // only if WinSavePos asks for it
bool saveLast(UserSettings& store, const PlayerSettings& settings);     // LastCover, LastTrack

// Saves, while the player runs, those of saveSettings whose text is another one than before.
bool saveChanged(UserSettings& store, const PlayerSettings& settings, const PlayerSettings& before);

// Is called at once, whenever a playlist has been saved.
bool savePath(UserSettings& store, const PlayerSettings& settings);

// Gathers what the player's windows and rules work with; it is built once by the program and by every test.
#pragma once

#include "platform/desktopcontrols.h"
#include "platform/platform.h"

#include <QByteArray>

class CodePage;
class FileNumbers;
class MediaMachine;
class ModuleWindow;
struct PlayerSettings;

struct PlayerContext {
    Platform platform;
    FileNumbers& fileNumbers; // the player's own table
    PlayerSettings& settings; // live while the player's window is loaded
    const CodePage& codePage; // of texts that are no UTF-8
    MediaMachine& media;      // asked for devices by the Player alone
    ModuleWindow& moduleWindow;
    MakeDesktopControls desktopControls{}; // none: the desktop does not see the player
    QByteArray
        pictureSets{}; // this machine's directory for sets of pictures that were unpacked; none: no such set
};

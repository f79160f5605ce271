// Runs the player's commands: one table serves buttons, keys, menus, the desktop and whoever else gives them.
#pragma once

#include "player/playback/command.h"

#include <vector>

class Face;
class Player;
class PlayerWindow;
class SkinLoader;
class VolumePanel;

// Gathers what the commands work on.
struct Parts {
    Player& player;
    Face& face;
    SkinLoader& loader;
    VolumePanel& volume;
    PlayerWindow& window;
};

struct PlayerCommand {
    using Run = void (*)(const Parts&);
    using State = bool (*)(const Parts&);

    Command command{};
    Run run = nullptr;    // null: its window is not there yet
    State isOn = nullptr; // of a command that switches something on and off

    static const std::vector<PlayerCommand>& table();
    static const PlayerCommand& of(Command command);
};

void DoIt(const Parts& parts, Command command);
// Runs one by its code, as a skin's button or key gives it; one that means no command does nothing.
void DoIt(const Parts& parts, int code);

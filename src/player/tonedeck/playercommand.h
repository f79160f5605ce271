// The player's commands: one table for buttons, keys, menus and whoever else gives them.
#pragma once

#include "player/playback/command.h"

#include <vector>

class frmTonedeck;

struct PlayerCommand {
    using Run = void (*)(frmTonedeck&);
    using State = bool (*)(frmTonedeck&);

    Command command{};
    Run run = nullptr;    // null: its window is not there yet
    State isOn = nullptr; // of a command that switches something on and off

    static const std::vector<PlayerCommand>& table();
    static const PlayerCommand& of(Command command);
};

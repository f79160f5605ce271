// The player's commands: one table for buttons, keys, menus and whoever else gives them.
#pragma once

#include <QString>

#include <vector>

class frmTonedeck;

struct PlayerCommand {
    using Run = void (*)(frmTonedeck&);
    using State = bool (*)(frmTonedeck&);

    int code = 0;         // 1 to 50, the number of a skin's button
    QString caption{};    // in menus, "&" before the access key
    Run run = nullptr;    // null: its window is not there yet
    State isOn = nullptr; // of a command that switches something on and off

    static const std::vector<PlayerCommand>& table();
    static const PlayerCommand* find(int code); // null: a code that does nothing
};

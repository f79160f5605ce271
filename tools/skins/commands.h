// Lists the 50 buttons of a skin: the key that each answers to and what its tool tip says, the same in all
// our skins.
#pragma once

#include "icons.h"

#include <QString>

struct Command {
    QString key{}; // no two have the same; buttons from 41 on answer to none
    QString toolTip{};
    Icon icon = Icon::None;
};

const Command& command(int code); // 1 to 50

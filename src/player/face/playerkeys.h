// Tells what a typed character does in the player's window.
#pragma once

#include "player/face/skinstate.h"
#include "player/playback/command.h"

#include <QChar>

struct KeyAction {
    enum Kind {
        None,      // left to the control that has the focus
        Command,   // of the button with that number
        HideAids,  // what the next two show
        ShowAreas, // buttons and labels become visible
        FrameButtons
    };

    Kind kind = None;
    int button = 0;
    bool operator==(const KeyAction&) const = default;
};

// Keys are compared with the character's upper case, in the order of the buttons; the buttons from 41 on have
// none. With keysOff the three aids alone are left.
KeyAction keyAction(QChar typed, const SkinState& skin, bool keysOff);

// Returns the key that really runs a command, not one of another button too, nor one that never answers; it
// is empty when there is none.
QString keyText(const SkinState& skin, Command command);

// Returns what an empty playlist says, with the key that this skin has for adding files.
QString emptyListText(const SkinState& skin);

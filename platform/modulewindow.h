// The window of a music module's own player, which waits for a key. Where the desktop has no X server, or it
// does not answer, there is no such window.
#pragma once

#include <QString>

// The top-level window with exactly that title gets the keyboard. True when it has it, within half a second;
// false when there is none or it was not given the keyboard.
bool bringToFront(const QString& title);

// One press of the space bar for the window that bringToFront found, and for no other.
void typeBlank();

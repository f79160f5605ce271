// Is the window of a music module's own player, which waits for a key. Where the desktop has no X server, or
// it does not answer, there is no such window.
#pragma once

#include <QString>

#include <cstdint>
#include <optional>

struct ForeignWindow {
    std::uint32_t id; // the X server's
};

// The top-level window with exactly that title gets the keyboard. It is nothing when there is none, or when
// it was not given the keyboard within half a second.
std::optional<ForeignWindow> bringToFront(const QString& title);

// Presses the space bar once for that window, if it still has the keyboard.
void typeBlank(ForeignWindow window);

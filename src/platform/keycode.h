// The windows' handlers have always had these key codes.
#pragma once

namespace keycode {

enum KeyCode : int {
    Other = 0,
    Escape = 27,
    PageUp = 33,
    PageDown = 34,
    End = 35,
    Home = 36,
    Up = 38,
    Down = 40,
};

} // namespace keycode

// Is the window of a music module's own player, which waits for a key.
#pragma once

#include <QString>

#include <cstdint>
#include <optional>

struct ForeignWindow {
    std::uint32_t id; // the desktop's
};

class ModuleWindow {
public:
    virtual ~ModuleWindow() = default;

    // Gives the keyboard to the top-level window with exactly that title. Returns nothing when there is none,
    // or when it was not given the keyboard within half a second.
    virtual std::optional<ForeignWindow> bringToFront(const QString& title) = 0;

    // Types one blank into that window, if it still has the keyboard.
    virtual void typeBlank(ForeignWindow window) = 0;
};

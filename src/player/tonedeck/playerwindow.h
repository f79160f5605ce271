// Says what the parts of the player ask of their window.
#pragma once

#include <functional>

class PlayerWindow {
public:
    virtual ~PlayerWindow() = default;

    // Runs a handler: an error that it does not trap is shown in the system's box and ends it.
    virtual void guard(const std::function<void()>& handler) = 0;
    virtual bool yield() = 0; // to the event loop; false when the window was closed meanwhile
    virtual bool isClosing() const = 0;
    virtual void bringToFront() = 0;
    virtual void minimise() = 0;
    virtual void unload() = 0;
};

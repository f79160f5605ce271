// Is the module player's window on an X server. Where the desktop has none, or it does not answer, there is
// no such window.
#pragma once

#include "platform/modulewindow.h"

#include <functional>

struct xcb_connection_t;

class X11ModuleWindow : public ModuleWindow {
public:
    // Is asked at each use, and returns null where there is no X server.
    using Connection = std::function<xcb_connection_t*()>;

    X11ModuleWindow(); // uses the connection of the application's own windows
    explicit X11ModuleWindow(Connection connection) : m_connection(std::move(connection)) {}

    std::optional<ForeignWindow> bringToFront(const QString& title) override;
    void typeBlank(ForeignWindow window) override;

private:
    // Returns null when the server is gone, too.
    xcb_connection_t* connection() const;

    Connection m_connection;
};

// The face moves its window with the pointer.
#pragma once

#include <QPoint>

class QWidget;
struct PlayerSettings;

class WindowDrag {
public:
    WindowDrag(QWidget& window, const PlayerSettings& settings) : m_window(window), m_settings(settings) {}

    // Places are the screen's: those of the window would be stale while it moves.
    void press(QPoint place);
    void move(QPoint place);
    void release(); // snaps the window to the edges near it

    bool Dragging() const { return m_dragging; }

private:
    QWidget& m_window;
    const PlayerSettings& m_settings;
    QPoint m_grab{}; // of the pointer in the window
    bool m_dragging = false;
};

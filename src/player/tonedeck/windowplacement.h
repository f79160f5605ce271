// Where the player's windows stand.
#pragma once

#include <QRect>

class QWidget;
struct PlayerSettings;

// Above the other windows, or no longer. Also before the window is first shown.
void SetOnTop(QWidget& window, bool onTop);

// Of the window's screen, in toolkit pixels.
QRect GetWorkArea(const QWidget& window);

// Moves a window that is near the work area's edges against them, when WinSnap is on.
void SnapWindow(QWidget& window, const PlayerSettings& settings);

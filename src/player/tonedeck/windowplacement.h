// Places the player's windows.
#pragma once

#include <QRect>

class QWidget;
struct PlayerSettings;

// Keeps it above the other windows, or no longer. It serves before the window is first shown, too.
void SetOnTop(QWidget& window, bool onTop);

// Returns that of the window's screen, in toolkit pixels.
QRect GetWorkArea(const QWidget& window);

// Moves a window that is near the work area's edges against them, when WinSnap is on.
void SnapWindow(QWidget& window, const PlayerSettings& settings);

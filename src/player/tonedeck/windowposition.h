// Tells where a skin wants the window to be.
#pragma once

#include <QRect>

// Position codes are 1 against the left edge, 2 against the right one, 3 in the bottom right corner, 4 in the
// bottom left one, 5 in the middle; with any other, which is written 0, the window stays where it is. It
// always lies inside the screen; what is larger than the screen begins at its left and top.
QPoint windowPosition(int code, const QRect& window, const QRect& screen);

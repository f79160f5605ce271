// Does what the window system does with a window. Pixels here are the toolkit's, which it multiplies by the
// screen's scale.
#pragma once

#include "base/twips.h"

#include <QRect>

#include <vector>

class QWidget;

enum WindowState : int { kNormalWindow = 0, kMinimizedWindow = 1, kMaximizedWindow = 2 };

// The widget's window stays above the others or does not; it is neither hidden nor made again. It serves
// before the window is first shown, too.
void setTopmost(QWidget& widget, bool topmost);

// Returns what the window's screen leaves for windows, without panels, in toolkit pixels.
QRect workArea(const QWidget& widget);

// Cuts the widget's window to these rectangles of toolkit pixels, none of which overlap; it is the whole
// rectangle when there are none.
void setWindowOutline(QWidget& widget, const std::vector<QRect>& rectangles);

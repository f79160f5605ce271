// Units of the window system. Sizes and positions that the program fixes are in twips, 15 to a pixel; pixels
// here are the toolkit's, which it multiplies by the screen's scale.
#pragma once

#include <QRect>

#include <vector>

class QWidget;

constexpr int kTwipsPerPixel = 15;

constexpr int fromTwips(int twips)
{
    return twips / kTwipsPerPixel;
}

constexpr int toTwips(int pixels)
{
    return pixels * kTwipsPerPixel;
}

enum WindowState : int { kNormalWindow = 0, kMinimizedWindow = 1, kMaximizedWindow = 2 };

// The widget's window stays above the others or does not; it is neither hidden nor made again. Also before
// the window is first shown.
void setTopmost(QWidget& widget, bool topmost);

// What the window's screen leaves for windows, without panels; in toolkit pixels.
QRect workArea(const QWidget& widget);

// Cuts the widget's window to these rectangles of toolkit pixels, none of which overlap; the whole rectangle
// when there are none.
void setWindowOutline(QWidget& widget, const std::vector<QRect>& rectangles);

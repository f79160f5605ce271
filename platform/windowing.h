// Units of the window system. Sizes and positions that the program fixes are in twips, 15 to a pixel; pixels
// here are the toolkit's, which it multiplies by the screen's scale.
#pragma once

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

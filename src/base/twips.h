// Sizes and positions that the program fixes are in twips, 15 to a pixel of the toolkit.
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

// Draws the two bitmaps of a design, and tells where in the second one everything lies that the control file
// names.
#pragma once

#include "design.h"

#include <QImage>

struct Bitmaps {
    QImage face{};
    QImage parts{};
    std::vector<SkinButton> buttons{}; // all 50; those that are not drawn lie outside the face
    std::vector<SkinSlider> sliders{};
    std::vector<SkinDisplay> displays{};
};

// Makes a button with the key and tool tip of its code; one without a place lies outside the face.
SkinButton buttonOf(const Design& design, int code, const QRect& place, QPoint pressed);

Bitmaps drawBitmaps(const Design& design);

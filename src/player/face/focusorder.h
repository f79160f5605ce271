// Orders what a skin has placed for the keyboard: it goes line by line, as one reads.
#pragma once

#include <QRect>

#include <vector>

struct FaceControls;

// Returns the indexes of the places in their order. What begins above the middle of a line's first one
// belongs to that line.
std::vector<std::size_t> readingOrder(const std::vector<QRect>& places);

// Only what can be seen on a face of that size takes the focus.
void arrangeFocus(FaceControls& controls, QSize face);

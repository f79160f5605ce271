// Tells which pixels of a window its outline leaves: it makes runs of pixels of polygons. A pixel belongs to
// the window when its middle lies in an odd number of polygons. Work and memory are bounded by the window's
// size and the number of points, whatever the coordinates are.
#pragma once

#include "player/skin/skinelements.h"

// Holds the pixels from `left` up to, not including, `right` of one row.
struct OutlineRun {
    int row = 0;
    int left = 0;
    int right = 0;
    bool operator==(const OutlineRun&) const = default;
};

// Rows are multiplied by edges, edges that are there twice left out. No shape needs them: a picture traced at
// its borders has fewer than pixels.
inline constexpr qint64 kMostOutlineCrossings = 150'000'000;

// Goes from top to bottom and left to right, runs that touch joined; a polygon is closed by itself. There are
// none when the edges cross more rows than that together.
std::vector<OutlineRun> outlineRuns(const SkinOutline& outline, QSize window);

// Makes the same as rectangles, equal runs of following rows joined. There are none when there would be more
// than a window system can take.
inline constexpr std::size_t kMostOutlineRectangles = 100'000;
std::vector<QRect> outlineRectangles(const SkinOutline& outline, QSize window);
std::vector<QRect> outlineRectangles(const std::vector<OutlineRun>& runs);

// Returns the strokes of a character: points as digits x and y, ' after a point that is a round corner, z at
// the end of a closed stroke, a blank between strokes; a stroke of one point is a dot. It is empty for a
// character that has none.
#pragma once

#include <QPoint>

#include <vector>

struct StrokePoint {
    QPoint at{};
    bool round = false;
};

struct Stroke {
    std::vector<StrokePoint> points{};
    bool closed = false;
};

// Is a 1 without a foot, for clocks and counters.
inline constexpr char kPlainOne = 127;

std::vector<Stroke> strokesOf(char character);

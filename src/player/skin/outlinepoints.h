// Collects the outline that the lines of a skin draw point by point.
#pragma once

#include "player/skin/skinelements.h"

class OutlinePoints {
public:
    // Begins a new outline of that many points; throws RunTimeError SubscriptOutOfRange when that is
    // less than none.
    void beginOne(int points);
    void beginSeveral(int points, std::vector<int> counts); // the points of each polygon

    void add(QPoint point); // dropped when the outline has all its points

    int declared() const { return m_declared; }
    int read() const { return static_cast<int>(m_points.size()); }

    qint64 ofPolygons() const; // the points that all polygons have together, by their counts

    // It is nothing unless exactly as many points were read as declared. A polygon takes its points in their
    // order, as far as they reach; one of fewer than three has no inside and is left out.
    SkinOutline outline() const;

private:
    int m_declared = 0;
    bool m_several = false;
    std::vector<int> m_counts{};
    std::vector<QPoint> m_points{}; // grows with the file, never by what the file promises
};

#include "iconpen.h"

bool drawListIcon(const Pen& pen, Icon icon)
{
    switch (icon) {
    case Icon::Remove:
        pen.bar(1, 5, 10, 2);
        return true;
    case Icon::Up:
        pen.fill({{6, 1}, {11, 6}, {1, 6}});
        pen.bar(5, 6, 2, 5);
        return true;
    case Icon::Down:
        pen.fill({{6, 11}, {1, 6}, {11, 6}});
        pen.bar(5, 1, 2, 5);
        return true;
    case Icon::Clear:
        pen.bar(1, 2, 10, 1);
        pen.bar(4, 1, 4, 1);
        pen.fill({{2, 4}, {10, 4}, {9, 12}, {3, 12}});
        return true;
    case Icon::Load:
        pen.fill({{0, 1}, {4, 1}, {5, 2.5}, {10, 2.5}, {10, 4}, {2.5, 4}, {0, 9}});
        pen.fill({{3, 5}, {12, 5}, {9.5, 11}, {0.5, 11}});
        return true;
    case Icon::Save:
        pen.bar(5, 0, 2, 5);
        pen.fill({{2, 4}, {10, 4}, {6, 8}});
        pen.line({{1, 7}, {1, 11}, {11, 11}, {11, 7}}, 2);
        return true;
    case Icon::AddFile:
        pen.line({{1, 11}, {1, 1}, {6, 1}, {9, 4}}, 1.4);
        pen.line({{1, 11}, {5, 11}}, 1.4);
        pen.bar(8, 6, 2, 6);
        pen.bar(6, 8, 6, 2);
        return true;
    case Icon::AddDirectory:
        pen.fill({{0, 1}, {4, 1}, {5, 3}, {11, 3}, {11, 5}, {7, 5}, {7, 7}, {5, 7}, {5, 10}, {0, 10}});
        pen.bar(8, 6, 2, 6);
        pen.bar(6, 8, 6, 2);
        return true;
    default:
        return false;
    }
}

bool drawToolIcon(const Pen& pen, Icon icon)
{
    switch (icon) {
    case Icon::Tag:
        pen.line({{0.8, 6.5}, {6, 1.2}, {10.8, 1.2}, {10.8, 6}, {5.6, 11.2}, {0.8, 6.5}}, 1.4);
        pen.dot(8.2, 3.8, 1.2);
        return true;
    case Icon::Picture:
        pen.frame(0, 1, 12, 10);
        pen.fill({{1, 10}, {4.5, 5}, {7, 8}, {8.5, 6.5}, {11, 10}});
        pen.dot(8.5, 4, 1.1);
        return true;
    case Icon::Tiles:
        for (const double x : {0.0, 7.0})
            for (const double y : {0.0, 7.0})
                pen.bar(x, y, 5, 5);
        return true;
    case Icon::Mixer:
        for (const auto& [x, y] : {std::pair(1.0, 7.0), std::pair(5.0, 2.0), std::pair(9.0, 5.0)}) {
            pen.bar(x + 0.5, 0, 1, 12);
            pen.bar(x - 1, y, 4, 2);
        }
        return true;
    default:
        return false;
    }
}

// Draws the letters of the two points between which a track repeats.
bool drawPointIcon(const Pen& pen, Icon icon)
{
    if (icon == Icon::PointA) {
        pen.line({{2, 11}, {2, 4}, {4, 1.8}, {8, 1.8}, {10, 4}, {10, 11}}, 1.6);
        pen.line({{2, 7}, {10, 7}}, 1.6);
    } else if (icon == Icon::PointB) {
        pen.line({{2.8, 11}, {2.8, 1.8}, {8.2, 1.8}, {9.5, 3}, {9.5, 4.8}, {8.2, 6}, {2.8, 6}}, 1.6);
        pen.line({{8.2, 6}, {10, 7.2}, {10, 9}, {8.6, 10.2}, {2, 10.2}}, 1.6);
    }
    return icon == Icon::PointA || icon == Icon::PointB;
}

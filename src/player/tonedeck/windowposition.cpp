#include "player/tonedeck/windowposition.h"

#include <algorithm>

namespace {

int inside(int start, int length, int from, int room)
{
    return std::max(from, std::min(start, from + room - length));
}

} // namespace

QPoint windowPosition(int code, const QRect& window, const QRect& screen)
{
    const int right = screen.x() + screen.width() - window.width();
    const int bottom = screen.y() + screen.height() - window.height();
    QPoint place = window.topLeft();
    switch (code) {
    case 1:
        place.setX(screen.x());
        break;
    case 2:
        place.setX(right);
        break;
    case 3:
        place = {right, bottom};
        break;
    case 4:
        place = {screen.x(), bottom};
        break;
    case 5:
        place = {(screen.x() + right) / 2, (screen.y() + bottom) / 2};
        break;
    default:
        break;
    }
    return {inside(place.x(), window.width(), screen.x(), screen.width()),
            inside(place.y(), window.height(), screen.y(), screen.height())};
}

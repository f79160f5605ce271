#include "player/displays/sliderrules.h"

#include <algorithm>
#include <cmath>

namespace {

bool isHorizontal(const QRect& track)
{
    return track.height() == 0;
}

int along(int start, int length, float fraction)
{
    return start +
           static_cast<int>(std::lround(std::clamp(fraction, 0.0F, 1.0F) * static_cast<float>(length)));
}

double part(int place, int start, int length)
{
    return length > 0 ? static_cast<double>(place - start) / length : 0.0;
}

int held(int place, int start, int length)
{
    return std::clamp(place, start, start + std::max(length, 0));
}

} // namespace

QPoint thumbPlace(const QRect& track, float fraction)
{
    if (isHorizontal(track))
        return {along(track.x(), std::max(track.width(), 0), fraction), track.y()};
    return {track.x(), along(track.y(), std::max(track.height(), 0), 1 - std::clamp(fraction, 0.0F, 1.0F))};
}

ThumbDrag draggedThumb(const QRect& track, QPoint thumb, QPoint movement)
{
    if (isHorizontal(track)) {
        const int x = held(thumb.x() + movement.x(), track.x(), track.width());
        return {{x, track.y()}, static_cast<float>(part(x, track.x(), track.width()))};
    }
    const int y = held(thumb.y() + movement.y(), track.y(), track.height());
    return {{track.x(), y},
            track.height() > 0 ? static_cast<float>(1 - part(y, track.y(), track.height())) : 0.0F};
}

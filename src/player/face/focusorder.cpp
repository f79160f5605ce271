#include "player/face/focusorder.h"

#include "player/face/facecontrols.h"
#include "player/face/sliderlayer.h"

#include <algorithm>
#include <numeric>

namespace {

// Returns what answers to the keyboard. Sliders 3 and 4 only show something.
std::vector<QWidget*> candidates(const FaceControls& controls)
{
    std::vector<QWidget*> widgets(controls.Btn.begin(), controls.Btn.end());
    widgets.push_back(controls.iSlider[kPositionSlider]);
    widgets.push_back(controls.iSlider[kVolumeSlider]);
    widgets.push_back(controls.PlNames);
    return widgets;
}

} // namespace

std::vector<std::size_t> readingOrder(const std::vector<QRect>& places)
{
    std::vector<std::size_t> order(places.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return places[a].top() < places[b].top(); });
    for (auto line = order.begin(); line != order.end();) {
        const QRect& first = places[*line];
        const auto end = std::find_if(line, order.end(),
                                      [&](std::size_t at) { return places[at].top() > first.center().y(); });
        std::stable_sort(line, end,
                         [&](std::size_t a, std::size_t b) { return places[a].left() < places[b].left(); });
        line = end;
    }
    return order;
}

void arrangeFocus(FaceControls& controls, QSize face)
{
    std::vector<QWidget*> seen;
    std::vector<QRect> places;
    for (QWidget* widget : candidates(controls)) {
        const bool isSeen = !widget->isHidden() && widget->geometry().intersects(QRect({}, face));
        if (widget != controls.PlNames) // a click on the face leaves the keyboard with the list
            widget->setFocusPolicy(isSeen ? Qt::TabFocus : Qt::NoFocus);
        if (!isSeen)
            continue;
        seen.push_back(widget);
        places.push_back(widget->geometry());
    }
    QWidget* before = nullptr;
    for (const std::size_t at : readingOrder(places)) {
        if (before)
            QWidget::setTabOrder(before, seen[at]);
        before = seen[at];
    }
}

#include "toolkit/pages/pagepainter.h"

#include "toolkit/pages/fontwidths.h"

#include <QPainter>

void paintPage(QPainter& painter, const std::vector<PageItem>& items, const CharacterWidths& widths)
{
    constexpr double kFine = 16; // fonts have whole sizes
    for (const PageItem& item : items) {
        if (item.isRule) {
            painter.drawLine(item.place.topLeft(), item.place.topRight());
            continue;
        }
        painter.save();
        painter.translate(item.place.topLeft());
        painter.scale(1 / kFine, 1 / kFine);
        painter.setFont(pageFont(item.font.size * kFine, item.font.bold));
        const double base = item.font.size * kFine * widths.ascent() / CharacterWidths::kUnits;
        painter.drawText(QPointF(0, base), item.text);
        painter.restore();
    }
}

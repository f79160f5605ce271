#include "iconpen.h"

#include <QPainterPath>

namespace {

bool drawTransport(const Pen& pen, Icon icon)
{
    switch (icon) {
    case Icon::Previous:
        pen.bar(1, 1, 2, 10);
        pen.fill({{11, 1}, {11, 11}, {4, 6}});
        return true;
    case Icon::Play:
        pen.fill({{2, 0}, {11, 6}, {2, 12}});
        return true;
    case Icon::Pause:
        pen.bar(2, 1, 3, 10);
        pen.bar(7, 1, 3, 10);
        return true;
    case Icon::Stop:
        pen.bar(1, 1, 10, 10);
        return true;
    case Icon::Next:
        pen.bar(9, 1, 2, 10);
        pen.fill({{1, 1}, {1, 11}, {8, 6}});
        return true;
    case Icon::Back:
        pen.fill({{6, 1}, {6, 11}, {0, 6}});
        pen.fill({{12, 1}, {12, 11}, {6, 6}});
        return true;
    case Icon::Forward:
        pen.fill({{0, 1}, {0, 11}, {6, 6}});
        pen.fill({{6, 1}, {6, 11}, {12, 6}});
        return true;
    case Icon::Eject:
        pen.fill({{0, 7}, {12, 7}, {6, 1}});
        pen.bar(0, 9, 12, 2);
        return true;
    case Icon::PlayPause:
        pen.fill({{0, 1}, {6, 6}, {0, 11}});
        pen.bar(7, 1, 2, 10);
        pen.bar(10, 1, 2, 10);
        return true;
    default:
        return false;
    }
}

bool drawModes(const Pen& pen, Icon icon)
{
    switch (icon) {
    case Icon::Shuffle:
        pen.line({{0, 3}, {3, 3}, {7, 9}, {9, 9}}, 1.6);
        pen.line({{0, 9}, {3, 9}, {7, 3}, {9, 3}}, 1.6);
        pen.fill({{8.5, 0.5}, {12, 3}, {8.5, 5.5}});
        pen.fill({{8.5, 6.5}, {12, 9}, {8.5, 11.5}});
        return true;
    case Icon::Repeat:
        pen.line({{1, 6}, {1, 3}, {8, 3}}, 1.6);
        pen.line({{11, 6}, {11, 9}, {4, 9}}, 1.6);
        pen.fill({{7.5, 0.5}, {11, 3}, {7.5, 5.5}});
        pen.fill({{4.5, 6.5}, {1, 9}, {4.5, 11.5}});
        return true;
    case Icon::Intro:
        pen.fill({{0, 1}, {5, 6}, {0, 11}});
        pen.bar(6, 5, 2, 2);
        pen.bar(9, 5, 1, 2);
        pen.bar(11, 5, 1, 2);
        return true;
    case Icon::StopAfter:
        pen.fill({{0, 1}, {5, 6}, {0, 11}});
        pen.bar(6, 3, 6, 6);
        return true;
    default:
        return false;
    }
}

bool drawSound(const Pen& pen, Icon icon)
{
    if (icon != Icon::Speaker && icon != Icon::Louder && icon != Icon::Quieter)
        return false;
    if (icon == Icon::Speaker) {
        pen.fill({{0, 4}, {2, 4}, {6, 1}, {6, 11}, {2, 8}, {0, 8}});
        QPainterPath waves;
        waves.arcMoveTo(QRectF(3.5, 3, 6, 6), 50);
        waves.arcTo(QRectF(3.5, 3, 6, 6), 50, -100);
        waves.arcMoveTo(QRectF(1.5, 0.5, 10, 11), 50);
        waves.arcTo(QRectF(1.5, 0.5, 10, 11), 50, -100);
        pen.painter.setBrush(Qt::NoBrush);
        pen.painter.setPen(QPen(pen.colour, 1.2, Qt::SolidLine, Qt::RoundCap));
        pen.painter.drawPath(waves);
        return true;
    }
    pen.bar(1, 5, 10, 2);
    if (icon == Icon::Louder)
        pen.bar(5, 1, 2, 10);
    return true;
}

bool drawWindow(const Pen& pen, Icon icon)
{
    switch (icon) {
    case Icon::Close:
        pen.line({{2.5, 2.5}, {9.5, 9.5}}, 1.6, true);
        pen.line({{9.5, 2.5}, {2.5, 9.5}}, 1.6, true);
        return true;
    case Icon::Minimise:
        pen.bar(2, 8, 8, 2);
        return true;
    case Icon::Fold:
        pen.bar(2, 2, 8, 2);
        pen.line({{2.5, 9}, {6, 6}, {9.5, 9}}, 1.6, true);
        return true;
    case Icon::Preferences:
        for (int tooth = 0; tooth < 8; ++tooth) {
            pen.painter.save();
            pen.painter.translate(6, 6);
            pen.painter.rotate(tooth * 45.0);
            pen.painter.fillRect(QRectF(-1, -5.6, 2, 2.4), pen.colour);
            pen.painter.restore();
        }
        pen.ring(6, 6, 3, 2);
        return true;
    case Icon::Palette:
        pen.ring(6, 6, 5, 1.2);
        pen.dot(4, 4.5, 1.1);
        pen.dot(7.6, 4, 1.1);
        pen.dot(8.6, 7.2, 1.1);
        pen.dot(4.6, 8, 1.4);
        return true;
    case Icon::Before:
        pen.line({{8, 1.5}, {3.5, 6}, {8, 10.5}}, 1.8, true);
        return true;
    case Icon::After:
        pen.line({{4, 1.5}, {8.5, 6}, {4, 10.5}}, 1.8, true);
        return true;
    case Icon::Clock:
        pen.ring(6, 6, 5, 1.4);
        pen.line({{6, 3}, {6, 6}, {8.5, 7.5}}, 1.2, true);
        return true;
    default:
        return false;
    }
}

} // namespace

void drawIcon(QPainter& painter, const QRect& place, Icon icon, const QColor& colour, double scale)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const int side = static_cast<int>(12 * scale);
    painter.translate(place.x() + (place.width() - side) / 2, place.y() + (place.height() - side) / 2);
    painter.scale(scale, scale);
    const Pen pen{painter, colour};
    const bool drawn =
        drawTransport(pen, icon) || drawModes(pen, icon) || drawSound(pen, icon) || drawWindow(pen, icon);
    if (!drawn && !drawListIcon(pen, icon) && !drawToolIcon(pen, icon))
        drawPointIcon(pen, icon);
    painter.restore();
}

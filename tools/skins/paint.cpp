#include "paint.h"

#include "strokeglyphs.h"
#include "strokes.h"

#include <cmath>

QColor mixed(const QColor& one, const QColor& other, double part)
{
    const auto mix = [part](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * part)); };
    return {mix(one.red(), other.red()), mix(one.green(), other.green()), mix(one.blue(), other.blue()),
            mix(one.alpha(), other.alpha())};
}

QColor faded(const QColor& colour, double opacity)
{
    QColor result = colour;
    result.setAlpha(static_cast<int>(std::lround(colour.alpha() * opacity)));
    return result;
}

void fillRound(QPainter& painter, const QRectF& place, double radius, const QBrush& brush)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(brush);
    painter.drawRoundedRect(place, radius, radius);
    painter.restore();
}

void fillShaded(QPainter& painter, const QRectF& place, double radius, const QColor& top,
                const QColor& bottom)
{
    QLinearGradient shade(place.topLeft(), place.bottomLeft());
    shade.setColorAt(0, top);
    shade.setColorAt(1, bottom);
    fillRound(painter, place, radius, shade);
}

void strokeRound(QPainter& painter, const QRectF& place, double radius, const QColor& colour, double width)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colour, width));
    const double half = width / 2;
    painter.drawRoundedRect(place.adjusted(half, half, -half, -half), radius - half, radius - half);
    painter.restore();
}

void glow(QPainter& painter, const QRectF& place, double radius, const QColor& colour, int reach)
{
    for (int step = reach; step > 0; --step)
        fillRound(painter, place.adjusted(-step, -step, step, step), radius + step,
                  faded(colour, 1.0 / reach));
}

namespace {

// Returns a to g from bit 0 on.
int segmentsOf(char digit)
{
    switch (digit) {
    case '0':
        return 0x3f;
    case '1':
        return 0x06;
    case '2':
        return 0x5b;
    case '3':
        return 0x4f;
    case '4':
        return 0x66;
    case '5':
        return 0x6d;
    case '6':
        return 0x7d;
    case '7':
        return 0x07;
    case '8':
        return 0x7f;
    case '9':
        return 0x6f;
    default:
        return 0;
    }
}

// Draws a bar with pointed ends from one point to another.
QPolygonF segmentBetween(QPointF from, QPointF to, double thick)
{
    const double half = thick / 2;
    const double gap = thick * 0.12 + 0.25;
    if (std::abs(from.y() - to.y()) < 0.01) {
        const double a = from.x() + gap;
        const double b = to.x() - gap;
        const double y = from.y();
        return {{{a, y},
                 {a + half, y - half},
                 {b - half, y - half},
                 {b, y},
                 {b - half, y + half},
                 {a + half, y + half}}};
    }
    const double a = from.y() + gap;
    const double b = to.y() - gap;
    const double x = from.x();
    return {{{x, a},
             {x + half, a + half},
             {x + half, b - half},
             {x, b},
             {x - half, b - half},
             {x - half, a + half}}};
}

void drawSegments(QPainter& painter, const QRectF& box, double thick, int which, const QColor& colour)
{
    const double half = thick / 2;
    const double l = box.left() + half;
    const double r = box.right() - half;
    const double t = box.top() + half;
    const double b = box.bottom() - half;
    const double m = (t + b) / 2;
    const std::array<std::pair<QPointF, QPointF>, 7> ways = {{{{l, t}, {r, t}},
                                                              {{r, t}, {r, m}},
                                                              {{r, m}, {r, b}},
                                                              {{l, b}, {r, b}},
                                                              {{l, m}, {l, b}},
                                                              {{l, t}, {l, m}},
                                                              {{l, m}, {r, m}}}};
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    for (std::size_t i = 0; i < ways.size(); ++i)
        if ((which >> i & 1) != 0)
            painter.drawPolygon(segmentBetween(ways.at(i).first, ways.at(i).second, thick));
}

void drawSeparator(QPainter& painter, const QRectF& cell, char separator, double side, const QColor& colour)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    const double x = cell.center().x() - side / 2;
    const double round = side > 2 ? side * 0.3 : 0;
    const auto dot = [&](double y) { painter.drawRoundedRect(QRectF(x, y, side, side), round, round); };
    if (separator == ':') {
        dot(std::round(cell.top() + cell.height() * 0.3 - side / 2));
        dot(std::round(cell.top() + cell.height() * 0.7 - side / 2));
    } else {
        dot(cell.bottom() - side);
    }
}

} // namespace

PaintGlyph segmentDigits(const QColor& on, const QColor& off, double thick)
{
    return [=](QPainter& painter, const QRect& cell, char character) {
        painter.setRenderHint(QPainter::Antialiasing);
        if (character == '.' || character == ':') {
            drawSeparator(painter, cell, character, thick, on);
            return;
        }
        const QRectF box = QRectF(cell).adjusted(thick * 0.4, 0, -thick * 0.6, 0);
        const int lit = segmentsOf(character);
        drawSegments(painter, box, thick, 0x7f & ~lit, off);
        drawSegments(painter, box, thick, lit, on);
    };
}

PaintGlyph strokeDigits(const QColor& colour, const LetterCell& letter, double width)
{
    return [=](QPainter& painter, const QRect& cell, char character) {
        painter.setRenderHint(QPainter::Antialiasing);
        const QRectF box(cell.x() + letter.left, cell.y() + letter.top, letter.width, letter.height);
        if (character == '.' || character == ':')
            drawSeparator(painter, QRectF(cell.x(), box.y(), cell.width(), box.height() + width), character,
                          std::max(1.0, std::round(width * 1.2)), colour);
        else
            drawStroke(painter, box, character == '1' ? kPlainOne : character, {colour, width});
    };
}

PaintGlyph pixelLetters(const QColor& colour, QPoint at)
{
    return [=](QPainter& painter, const QRect& cell, char character) {
        drawCaption(painter, cell.topLeft() + at, QString(QLatin1Char(character)), colour);
    };
}

void brush(QPainter& painter, const QRect& place, int strength)
{
    quint32 random = 12345;
    const auto next = [&random](int range) {
        random = random * 1664525 + 1013904223;
        return static_cast<int>((random >> 8) % static_cast<quint32>(range));
    };
    painter.save();
    painter.setClipRect(place, Qt::IntersectClip);
    for (int y = place.top(); y <= place.bottom(); ++y)
        for (int x = place.left() - next(60); x <= place.right();) {
            const int length = 30 + next(120);
            const QColor tone =
                next(2) == 0 ? QColor(255, 255, 255, next(strength)) : QColor(0, 0, 0, next(strength));
            painter.fillRect(x, y, length, 1, tone);
            x += length;
        }
    painter.restore();
}

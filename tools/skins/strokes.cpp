#include "strokes.h"

#include "strokeglyphs.h"

#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

// Says where the units of the grid come to lie: the outer and the middle ones on pixels, the others between
// them.
struct Grid {
    QRectF box{};
    double shift = 0; // of a stroke's middle against a pixel's edge

    Grid(const QRectF& letter, double width) : box(letter), shift(std::lround(width) % 2 == 1 ? 0.5 : 0) {}
    double x(double units) const
    {
        const double exact = box.x() + units * box.width() / 4;
        return (std::fmod(units, 2) == 0 ? std::floor(exact + 0.01) : exact) + shift;
    }
    double y(double units) const { return std::round(box.y() + units * box.height() / 6) + shift; }
    QPointF at(QPointF units) const { return {x(units.x()), y(units.y())}; }
};

double lengthOf(QPointF way)
{
    return std::hypot(way.x(), way.y());
}

// A round corner begins at most two units before its point and ends as far behind it.
void addCorner(QPainterPath& path, const Grid& grid, QPointF before, QPointF corner, QPointF after)
{
    const double reach = std::min({2.0, lengthOf(before - corner) / 2, lengthOf(after - corner) / 2});
    const QPointF from = corner + (before - corner) * (reach / lengthOf(before - corner));
    const QPointF to = corner + (after - corner) * (reach / lengthOf(after - corner));
    const auto fine = [&grid](QPointF units) {
        return QPointF(grid.box.x() + units.x() * grid.box.width() / 4 + grid.shift,
                       grid.box.y() + units.y() * grid.box.height() / 6 + grid.shift);
    };
    // Only the way along the stroke may lie between pixels; across it the stroke keeps its place.
    const auto onto = [&](QPointF units) {
        const bool level = std::abs(units.y() - corner.y()) < 0.01;
        const bool upright = std::abs(units.x() - corner.x()) < 0.01;
        const QPointF exact = fine(units);
        return QPointF(upright ? grid.x(corner.x()) : exact.x(), level ? grid.y(corner.y()) : exact.y());
    };
    if (path.elementCount() == 0)
        path.moveTo(onto(from));
    else
        path.lineTo(onto(from));
    const QPointF a = onto(from);
    const QPointF b = onto(to);
    const QPointF c = grid.at(corner);
    constexpr double kRound = 0.6;
    path.cubicTo(a + (c - a) * kRound, b + (c - b) * kRound, b);
}

QPainterPath pathOf(const Stroke& stroke, const Grid& grid)
{
    QPainterPath path;
    const std::size_t count = stroke.points.size();
    for (std::size_t i = 0; i < count; ++i) {
        const StrokePoint& point = stroke.points[i];
        const QPointF before = stroke.points[(i + count - 1) % count].at;
        const QPointF after = stroke.points[(i + 1) % count].at;
        if (point.round)
            addCorner(path, grid, before, point.at, after);
        else if (path.elementCount() == 0)
            path.moveTo(grid.at(point.at));
        else
            path.lineTo(grid.at(point.at));
    }
    if (stroke.closed)
        path.closeSubpath();
    return path;
}

// Pixels of one straight way; a round corner's own pixel is left out.
void plotLine(QPainter& painter, QPoint from, QPoint to, const QColor& colour, bool skipFrom, bool skipTo)
{
    const QPoint way = to - from;
    const int steps = std::max(std::abs(way.x()), std::abs(way.y()));
    for (int step = skipFrom ? 1 : 0; step <= steps - (skipTo ? 1 : 0); ++step) {
        const double part = steps == 0 ? 0 : static_cast<double>(step) / steps;
        const QPoint pixel(from.x() + static_cast<int>(std::lround(way.x() * part)),
                           from.y() + static_cast<int>(std::lround(way.y() * part)));
        painter.fillRect(QRect(pixel, QSize(1, 1)), colour);
    }
}

} // namespace

void drawStroke(QPainter& painter, const QRectF& box, char character, const StrokeStyle& style)
{
    const Grid grid(box, style.width);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    for (const Stroke& stroke : strokesOf(character)) {
        if (stroke.points.size() == 1) {
            const double side = std::max(style.width * 1.25, 1.0);
            const QPointF middle = grid.at(stroke.points.front().at);
            painter.setPen(Qt::NoPen);
            painter.setBrush(style.colour);
            painter.drawEllipse(middle, side / 2 + 0.1, side / 2 + 0.1);
            continue;
        }
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(style.colour, style.width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPath(pathOf(stroke, grid));
    }
    painter.restore();
}

void drawLine(QPainter& painter, const QRectF& box, double step, const QString& text,
              const StrokeStyle& style)
{
    for (qsizetype i = 0; i < text.size(); ++i)
        drawStroke(painter, box.translated(static_cast<double>(i) * step, 0), text.at(i).toLatin1(), style);
}

void drawCaption(QPainter& painter, QPoint at, const QString& text, const QColor& colour)
{
    for (const QChar letter : text) {
        for (const Stroke& stroke : strokesOf(letter.toLatin1())) {
            const std::size_t count = stroke.points.size();
            const std::size_t ways = stroke.closed ? count : count - 1;
            if (count == 1)
                plotLine(painter, at + stroke.points[0].at, at + stroke.points[0].at, colour, false, false);
            for (std::size_t i = 0; i < ways; ++i) {
                const StrokePoint& from = stroke.points[i];
                const StrokePoint& to = stroke.points[(i + 1) % count];
                plotLine(painter, at + from.at, at + to.at, colour, from.round, to.round);
            }
        }
        at += QPoint(6, 0);
    }
}

int captionWidth(const QString& text)
{
    return static_cast<int>(text.size()) * 6 - 1;
}

void drawCaptionCentred(QPainter& painter, const QRect& place, const QString& text, const QColor& colour)
{
    drawCaption(painter,
                place.topLeft() + QPoint((place.width() - captionWidth(text)) / 2, (place.height() - 7) / 2),
                text, colour);
}

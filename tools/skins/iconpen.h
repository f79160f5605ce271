// What signs are drawn with.
#pragma once

#include "icons.h"

using Points = QPolygonF;

// Draws filled shapes and strokes 1 or 2 units wide; edges of upright and level ones lie on whole units.
struct Pen {
    QPainter& painter;
    QColor colour;

    void fill(const Points& points) const
    {
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawPolygon(points);
    }
    void bar(double x, double y, double w, double h) const { painter.fillRect(QRectF(x, y, w, h), colour); }
    void line(const Points& points, double width = 1, bool round = false) const
    {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(colour, width, Qt::SolidLine, round ? Qt::RoundCap : Qt::FlatCap,
                            round ? Qt::RoundJoin : Qt::MiterJoin));
        painter.drawPolyline(points);
    }
    void frame(double x, double y, double w, double h) const
    {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(colour, 1, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
        painter.drawRect(QRectF(x + 0.5, y + 0.5, w - 1, h - 1));
    }
    void ring(double x, double y, double radius, double width = 1) const
    {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(colour, width));
        painter.drawEllipse(QPointF(x, y), radius, radius);
    }
    void dot(double x, double y, double radius) const
    {
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawEllipse(QPointF(x, y), radius, radius);
    }
};

// Each draws the sign when it is one of its kind, and returns false when not.
bool drawListIcon(const Pen& pen, Icon icon);
bool drawToolIcon(const Pen& pen, Icon icon);
bool drawPointIcon(const Pen& pen, Icon icon);

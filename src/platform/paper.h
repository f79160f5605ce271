// Is the paper that pages are laid out for. Lengths are points, 72 to an inch.
#pragma once

#include <QMarginsF>
#include <QRectF>
#include <QSizeF>

struct Paper {
    QSizeF size{595, 842}; // turned already: a landscape paper is wider than high
    QMarginsF margins{42, 42, 42, 42};

    QRectF inside() const { return QRectF(QPointF(), size).marginsRemoved(margins); }
    bool operator==(const Paper&) const = default;
};

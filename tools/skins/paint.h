// What all our skins are painted with.
#pragma once

#include "design.h"

#include <QColor>
#include <QPainter>

QColor mixed(const QColor& one, const QColor& other, double part); // part 0 gives one, 1 the other
QColor faded(const QColor& colour, double opacity);

void fillRound(QPainter& painter, const QRectF& place, double radius, const QBrush& brush);
void fillShaded(QPainter& painter, const QRectF& place, double radius, const QColor& top,
                const QColor& bottom);
void strokeRound(QPainter& painter, const QRectF& place, double radius, const QColor& colour,
                 double width = 1);

// Paints soft light or shadow round a place, `reach` pixels wide.
void glow(QPainter& painter, const QRectF& place, double radius, const QColor& colour, int reach);

// Draws seven segments, upright, with those that are off shining faintly; and "." and ":".
PaintGlyph segmentDigits(const QColor& on, const QColor& off, double thick);

// Where a cell has its digit.
struct LetterCell {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
};
// Digits of strokes whose separators are dots in the middle of their narrow cell.
PaintGlyph strokeDigits(const QColor& colour, const LetterCell& letter, double width);

// Draws characters of 5 by 7 pure pixels, at `at` in their cell.
PaintGlyph pixelLetters(const QColor& colour, QPoint at);

// Draws fine level lines as brushing leaves them on metal, always the same ones.
void brush(QPainter& painter, const QRect& place, int strength);

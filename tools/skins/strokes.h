// Letters of our own, made of strokes, so that a skin looks the same on every machine. A letter is 4 units
// wide and 6 high (small ones 4, below the line 2 more).
#pragma once

#include <QColor>
#include <QPainter>
#include <QRectF>

struct StrokeStyle {
    QColor colour{};
    double width = 1.4;
};

// Draws one character of ASCII into a box from the top of the capitals to their foot. Its upright and level
// strokes are put onto whole pixels.
void drawStroke(QPainter& painter, const QRectF& box, char character, const StrokeStyle& style);

// Draws a line of capitals 5 by 7 pixels in pure pixels, 6 to a character; for captions at their smallest.
void drawCaption(QPainter& painter, QPoint at, const QString& text, const QColor& colour);
int captionWidth(const QString& text);
void drawCaptionCentred(QPainter& painter, const QRect& place, const QString& text, const QColor& colour);

// A line of strokes: `box` is the first letter's, `step` the way to the next.
void drawLine(QPainter& painter, const QRectF& box, double step, const QString& text,
              const StrokeStyle& style);

// Draws letters of 4 by 5 pixels.
#pragma once

#include <QColor>
#include <QPainter>

void drawTiny(QPainter& painter, QPoint at, const QString& text,
              const QColor& colour); // 5 pixels to a letter

// What the pictures of our own set for the classic layout are painted with: aubergine lacquer, copper keys, a
// display of warm peach.
#pragma once

#include <QColor>
#include <QPainter>

namespace classic {

inline const QColor kGlass(0x16, 0x0d, 0x1e);
inline const QColor kPeach(0xff, 0xb4, 0x8a);
inline const QColor kRose(0xdc, 0xb6, 0xcf);
inline const QColor kDim(0x78, 0x58, 0x82);
inline const QColor kInk(0x33, 0x1d, 0x2c);

// Paints the lacquer as it lies on the face, which is 116 pixels high.
void paintBody(QPainter& painter, const QRect& place);

void paintCbuttons(QPainter& painter);
void paintPosbar(QPainter& painter);
void paintVolume(QPainter& painter);
void paintShufrep(QPainter& painter);

} // namespace classic

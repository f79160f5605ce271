// Draws the keys and the sliders of our own set for the classic layout.
#include "classicdrawings.h"
#include "icons.h"
#include "paint.h"
#include "tinyletters.h"

namespace classic {

namespace {

struct Shade {
    QColor top;
    QColor bottom;
};

void paintCap(QPainter& painter, const QRect& place, const Shade& shade)
{
    painter.fillRect(place, QColor(0x22, 0x12, 0x2a));
    fillShaded(painter, QRectF(place).adjusted(1, 1, -1, -1), 2, shade.top, shade.bottom);
}

void paintCap(QPainter& painter, const QRect& place, bool pressed)
{
    if (pressed)
        return paintCap(painter, place, Shade{QColor(0xb8, 0x74, 0x58), QColor(0xe3, 0xa0, 0x7c)});
    paintCap(painter, place, Shade{QColor(0xf7, 0xd3, 0xba), QColor(0xbb, 0x7b, 0x62)});
    painter.fillRect(QRectF(place.x() + 3, place.y() + 1, place.width() - 6, 1), QColor(255, 255, 255, 150));
}

// Rows of pixels that make a triangle: to the left, to the right or upwards.
void paintTriangle(QPainter& painter, QPoint at, int size, Icon towards)
{
    for (int i = 0; i < size; ++i) {
        const int height = 2 * (towards == Icon::Previous ? i + 1 : size - i) - 1;
        if (towards == Icon::Up)
            painter.fillRect(at.x() - i, at.y() + i, 2 * i + 1, 1, kInk);
        else
            painter.fillRect(at.x() + i, at.y() - height / 2, 1, height, kInk);
    }
}

void paintSign(QPainter& painter, QPoint at, int which)
{
    const auto bar = [&](int x, int y, int w, int h) {
        painter.fillRect(at.x() + x, at.y() + y, w, h, kInk);
    };
    switch (which) {
    case 0:
        bar(7, 5, 2, 9);
        paintTriangle(painter, at + QPoint(10, 9), 5, Icon::Previous);
        break;
    case 1:
        paintTriangle(painter, at + QPoint(9, 9), 6, Icon::Next);
        break;
    case 2:
        bar(7, 5, 3, 9);
        bar(12, 5, 3, 9);
        break;
    case 3:
        bar(7, 5, 9, 9);
        break;
    case 4:
        paintTriangle(painter, at + QPoint(7, 9), 5, Icon::Next);
        bar(13, 5, 2, 9);
        break;
    default:
        paintTriangle(painter, at + QPoint(11, 4), 5, Icon::Up);
        bar(7, 10, 9, 2);
    }
}

// What is on is dark and has its word in light.
void paintWordButton(QPainter& painter, const QRect& place, const QString& word, bool on, bool pressed)
{
    if (on)
        paintCap(painter, place, Shade{mixed(kGlass, kDim, pressed ? 0.7 : 0.15), mixed(kGlass, kDim, 0.4)});
    else
        paintCap(painter, place, pressed);
    drawTiny(painter,
             place.topLeft() + QPoint((place.width() - static_cast<int>(word.size()) * 5 + 2) / 2,
                                      (place.height() - 5) / 2),
             word, on ? kPeach : kInk);
}

} // namespace

void paintBody(QPainter& painter, const QRect& place)
{
    QLinearGradient shade(0, 0, 0, 116);
    shade.setColorAt(0, QColor(0x6a, 0x48, 0x72));
    shade.setColorAt(0.5, QColor(0x4a, 0x30, 0x55));
    shade.setColorAt(1, QColor(0x2e, 0x1c, 0x38));
    painter.fillRect(place, shade);
}

void paintCbuttons(QPainter& painter)
{
    paintBody(painter, {0, 0, 136, 36});
    for (const bool pressed : {false, true})
        for (int i = 0; i < 6; ++i) {
            const QRect key(i * 23, pressed ? 18 : 0, i == 4 ? 22 : 23, 18);
            const QRect place = i == 5 ? QRect(114, pressed ? 16 : 0, 22, 16) : key;
            paintCap(painter, place, pressed);
            paintSign(painter, place.topLeft(), i);
        }
}

void paintPosbar(QPainter& painter)
{
    paintBody(painter, {0, 0, 307, 10});
    painter.fillRect(0, 0, 248, 10, QColor(0x0b, 0x05, 0x10));
    painter.fillRect(1, 1, 246, 8, kGlass);
    painter.fillRect(6, 4, 236, 2, kDim);
    for (const bool pressed : {false, true}) {
        const QRect thumb(pressed ? 278 : 248, 0, 29, 10);
        paintCap(painter, thumb, pressed);
        for (const int x : {11, 14, 17})
            painter.fillRect(thumb.x() + x, 3, 1, 4, kInk);
    }
}

void paintVolume(QPainter& painter)
{
    paintBody(painter, {0, 0, 68, 433});
    for (int step = 0; step < 28; ++step) {
        const QRect frame(0, step * 15, 68, 13);
        painter.fillRect(frame, QColor(0x0b, 0x05, 0x10));
        painter.fillRect(frame.adjusted(1, 1, -1, -1), kGlass);
        painter.fillRect(6, frame.y() + 5, 56, 3, mixed(kDim, kPeach, step / 27.0));
    }
    paintCap(painter, {15, 422, 14, 11}, false);
    paintCap(painter, {0, 422, 14, 11}, true);
    for (const int x : {7, 22})
        painter.fillRect(x - 1, 425, 2, 5, kInk);
}

void paintShufrep(QPainter& painter)
{
    paintBody(painter, {0, 0, 92, 85});
    for (int row = 0; row < 4; ++row) {
        paintWordButton(painter, {0, row * 15, 28, 15}, u"REP"_qs, row > 1, row % 2 == 1);
        paintWordButton(painter, {28, row * 15, 47, 15}, u"SHUFFLE"_qs, row > 1, row % 2 == 1);
    }
    for (const bool pressed : {false, true})
        for (const bool on : {false, true}) {
            const int x = pressed ? 46 : 0;
            const int y = on ? 73 : 61;
            paintWordButton(painter, {x, y, 23, 12}, u"MIX"_qs, on, pressed);
            paintWordButton(painter, {x + 23, y, 23, 12}, u"PL"_qs, on, pressed);
        }
}

} // namespace classic

// A set of our own for the classic layout: aubergine lacquer, copper keys, a display of warm peach.
#include "classic.h"
#include "icons.h"
#include "paint.h"
#include "tinyletters.h"

#include <functional>

namespace {

const QColor kGlass(0x16, 0x0d, 0x1e);
const QColor kPeach(0xff, 0xb4, 0x8a);
const QColor kRose(0xb8, 0x86, 0xa8);
const QColor kDim(0x78, 0x58, 0x82);
const QColor kInk(0x33, 0x1d, 0x2c);

void paintWell(QPainter& painter, const QRect& well)
{
    painter.fillRect(well.adjusted(-1, -1, 1, 1), QColor(0x0b, 0x05, 0x10));
    painter.fillRect(QRect(well.left() - 1, well.bottom() + 2, well.width() + 2, 1),
                     QColor(255, 255, 255, 40));
    painter.fillRect(well, kGlass);
}

void paintBody(QPainter& painter, const QRect& place)
{
    QLinearGradient shade(0, 0, 0, 116);
    shade.setColorAt(0, QColor(0x6a, 0x48, 0x72));
    shade.setColorAt(0.5, QColor(0x4a, 0x30, 0x55));
    shade.setColorAt(1, QColor(0x2e, 0x1c, 0x38));
    painter.fillRect(place, shade);
}

void paintTime(QPainter& painter)
{
    paintWell(painter, {12, 22, 90, 42});
    painter.fillRect(73, 30, 2, 2, kPeach);
    painter.fillRect(73, 35, 2, 2, kPeach);
    for (int bar = 0; bar < 19; ++bar) { // an ornament; dim, so that nobody takes it for sound
        const int height = 3 + (bar * 7 + bar * bar * 3) % 11;
        for (int y = 0; y < height; y += 2)
            painter.fillRect(24 + bar * 4, 57 - y, 3, 1, mixed(kGlass, kDim, 0.35 + y / 22.0));
    }
}

void paintMain(QPainter& painter)
{
    paintBody(painter, {0, 0, 275, 116});
    painter.fillRect(0, 0, 275, 1, QColor(255, 255, 255, 90));
    painter.fillRect(0, 0, 1, 116, QColor(255, 255, 255, 40));
    painter.fillRect(274, 0, 1, 116, QColor(0, 0, 0, 90));
    painter.fillRect(0, 115, 275, 1, QColor(0, 0, 0, 120));
    paintTime(painter);
    paintWell(painter, {109, 24, 158, 12});
    paintWell(painter, {109, 41, 19, 9});
    paintWell(painter, {154, 41, 14, 9});
    drawTiny(painter, {132, 43}, u"KBPS"_qs, kRose);
    drawTiny(painter, {172, 43}, u"KHZ"_qs, kRose);
    drawTiny(painter, {178, 61}, u"CLASSIC"_qs, kDim);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(kPeach, 1.4));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(QPointF(259.5, 98.5), 6, 6);
    painter.setBrush(kPeach);
    painter.drawEllipse(QPointF(259.5, 98.5), 1.6, 1.6);
    painter.restore();
}

void paintStrip(QPainter& painter, QPoint at, bool active)
{
    painter.save();
    painter.translate(at);
    QLinearGradient shade(0, 0, 0, 14);
    shade.setColorAt(0, active ? QColor(0x8c, 0x63, 0x90) : QColor(0x5c, 0x44, 0x62));
    shade.setColorAt(1, active ? QColor(0x5c, 0x3c, 0x66) : QColor(0x42, 0x2f, 0x4a));
    painter.fillRect(0, 0, 275, 14, shade);
    painter.fillRect(0, 0, 275, 1, QColor(255, 255, 255, 100));
    painter.fillRect(0, 13, 275, 1, QColor(0, 0, 0, 90));
    for (const int y : {5, 8})
        for (const int x : {22, 164}) {
            painter.fillRect(x, y, 76, 1, active ? kPeach : kRose);
            painter.fillRect(x, y + 1, 76, 1, QColor(0, 0, 0, 90));
        }
    drawTiny(painter, {112, 5}, u"TONEDECK"_qs, active ? QColor(0xff, 0xe6, 0xd8) : kRose);
    painter.restore();
}

// The four little buttons of the title: menu, minimise, fold, close.
void paintTitleButton(QPainter& painter, QPoint at, int which, bool pressed)
{
    const QRect place(at, QSize(9, 9));
    painter.fillRect(place, QColor(0x2a, 0x16, 0x30));
    QLinearGradient shade(place.topLeft(), place.bottomLeft());
    shade.setColorAt(0, pressed ? QColor(0xc9, 0x7c, 0x58) : QColor(0xf4, 0xc6, 0xa6));
    shade.setColorAt(1, pressed ? QColor(0xe8, 0xa0, 0x78) : QColor(0xbf, 0x7c, 0x5e));
    painter.fillRect(place.adjusted(1, 1, -1, -1), shade);
    const int x = at.x();
    const int y = at.y();
    switch (which) {
    case 0:
        painter.fillRect(x + 4, y + 3, 1, 3, kInk);
        painter.fillRect(x + 3, y + 4, 3, 1, kInk);
        break;
    case 1:
        painter.fillRect(x + 2, y + 6, 5, 1, kInk);
        break;
    case 2:
        painter.fillRect(x + 2, y + 2, 5, 2, kInk);
        break;
    default:
        for (int i = 0; i < 5; ++i) {
            painter.fillRect(x + 2 + i, y + 2 + i, 1, 1, kInk);
            painter.fillRect(x + 6 - i, y + 2 + i, 1, 1, kInk);
        }
    }
}

void paintTitlebar(QPainter& painter)
{
    painter.fillRect(0, 0, 344, 87, QColor(0x42, 0x2f, 0x4a));
    const std::array<QPoint, 4> normal = {QPoint(0, 0), QPoint(9, 0), QPoint(0, 18), QPoint(18, 0)};
    const std::array<QPoint, 4> pressed = {QPoint(0, 9), QPoint(9, 9), QPoint(9, 18), QPoint(18, 9)};
    const std::array<int, 4> places = {6, 244, 254, 264};
    for (const bool active : {true, false})
        paintStrip(painter, {27, active ? 0 : 15}, active);
    for (std::size_t i = 0; i < 4; ++i) {
        paintTitleButton(painter, normal.at(i), static_cast<int>(i), false);
        paintTitleButton(painter, pressed.at(i), static_cast<int>(i), true);
        for (const int top : {3, 18})
            paintTitleButton(painter, {27 + places.at(i), top}, static_cast<int>(i), false);
    }
}

void paintCap(QPainter& painter, const QRect& place, bool pressed)
{
    painter.fillRect(place, QColor(0x22, 0x12, 0x2a));
    const QRectF cap = QRectF(place).adjusted(1, 1, -1, -1);
    fillShaded(painter, cap, 2, pressed ? QColor(0xb8, 0x74, 0x58) : QColor(0xf7, 0xd3, 0xba),
               pressed ? QColor(0xe3, 0xa0, 0x7c) : QColor(0xbb, 0x7b, 0x62));
    if (!pressed)
        painter.fillRect(QRectF(cap.x() + 2, cap.y(), cap.width() - 4, 1), QColor(255, 255, 255, 150));
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

void paintNumbers(QPainter& painter)
{
    painter.fillRect(0, 0, 99, 13, kGlass);
    const PaintGlyph digit = segmentDigits(kPeach, QColor(0x24, 0x17, 0x2c), 2);
    for (int i = 0; i < 11; ++i)
        digit(painter, {i * 9, 0, 9, 13}, i == 10 ? ' ' : static_cast<char>('0' + i));
}

void paintText(QPainter& painter)
{
    painter.fillRect(0, 0, 155, 18, kGlass);
    drawTiny(painter, {0, 0}, u"ABCDEFGHIJKLMNOPQRSTUVWXYZ\"\"@"_qs, kPeach);
    drawTiny(painter, {0, 6}, u"0123456789..:()-'!_+\\/[]^&%.=$#"_qs, kPeach);
    drawTiny(painter, {15, 12}, u"?*"_qs, kPeach);
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

void paintWordButton(QPainter& painter, const QRect& place, const QString& word, bool on, bool pressed)
{
    paintCap(painter, place, pressed);
    drawTiny(painter,
             place.topLeft() + QPoint((place.width() - static_cast<int>(word.size()) * 5 + 2) / 2,
                                      (place.height() - 5) / 2),
             word, on ? QColor(0xa8, 0x20, 0x20) : kInk);
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

void paintPlaypaus(QPainter& painter)
{
    painter.fillRect(0, 0, 42, 9, kGlass);
    int x = 0;
    for (const Icon icon : {Icon::Play, Icon::Pause, Icon::Stop}) {
        drawIcon(painter, {x, 0, 9, 9}, icon, kPeach, 0.6);
        x += 9;
    }
}

void paintMonoster(QPainter& painter)
{
    for (const bool on : {true, false}) {
        painter.save();
        painter.translate(0, on ? -41 : -29); // the ground as it is where it will lie
        paintBody(painter, {0, 41, 56, 12});
        painter.restore();
        const int y = on ? 4 : 16;
        drawTiny(painter, {0, y}, u"STEREO"_qs, on ? kPeach : kDim);
        drawTiny(painter, {33, y}, u"MONO"_qs, on ? kPeach : kDim);
    }
}

} // namespace

bool saveClassicSet(const QString& directory)
{
    struct Sheet {
        QString name{};
        QSize size{};
        std::function<void(QPainter&)> paint{};
    };
    const std::array<Sheet, 10> sheets = {{{u"main"_qs, {275, 116}, paintMain},
                                           {u"titlebar"_qs, {344, 87}, paintTitlebar},
                                           {u"cbuttons"_qs, {136, 36}, paintCbuttons},
                                           {u"numbers"_qs, {99, 13}, paintNumbers},
                                           {u"text"_qs, {155, 18}, paintText},
                                           {u"posbar"_qs, {307, 10}, paintPosbar},
                                           {u"volume"_qs, {68, 433}, paintVolume},
                                           {u"shufrep"_qs, {92, 85}, paintShufrep},
                                           {u"playpaus"_qs, {42, 9}, paintPlaypaus},
                                           {u"monoster"_qs, {56, 24}, paintMonoster}}};
    bool saved = true;
    for (const Sheet& sheet : sheets) {
        QImage picture(sheet.size, QImage::Format_RGB32);
        {
            QPainter painter(&picture);
            sheet.paint(painter);
        }
        saved = picture.save(directory + u'/' + sheet.name + u".bmp"_qs, "BMP") && saved;
    }
    return saved;
}

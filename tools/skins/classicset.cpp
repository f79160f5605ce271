// Draws a set of our own for the classic layout.
#include "classic.h"
#include "classicdrawings.h"
#include "icons.h"
#include "paint.h"
#include "tinyletters.h"

#include <functional>

namespace classic {

namespace {

void paintWell(QPainter& painter, const QRect& well)
{
    painter.fillRect(well.adjusted(-1, -1, 1, 1), QColor(0x0b, 0x05, 0x10));
    painter.fillRect(QRect(well.left() - 1, well.bottom() + 2, well.width() + 2, 1),
                     QColor(255, 255, 255, 40));
    painter.fillRect(well, kGlass);
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
    paintWell(painter, {212, 41, 56, 12});
    drawTiny(painter, {132, 43}, u"KBPS"_qs, kRose);
    drawTiny(painter, {172, 43}, u"KHZ"_qs, kRose);
    drawTiny(painter, {178, 61}, u"CLASSIC"_qs, kRose);
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

// Paints the four little buttons of the title: menu, minimise, fold, close.
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

void paintPlaypaus(QPainter& painter)
{
    painter.fillRect(0, 0, 42, 9, kGlass);
    int x = 0;
    for (const Icon icon : {Icon::Play, Icon::Pause, Icon::Stop}) {
        drawIcon(painter, {x, 0, 9, 9}, icon, kPeach, 0.6);
        x += 9;
    }
}

// It is on glass, so that the word that is off can be read as well; the one that is on has a line below.
void paintMonoster(QPainter& painter)
{
    const QColor off = mixed(kGlass, kRose, 0.62);
    painter.fillRect(0, 0, 56, 24, kGlass);
    for (const bool on : {true, false}) {
        const int y = on ? 3 : 15;
        drawTiny(painter, {0, y}, u"STEREO"_qs, on ? kPeach : off);
        drawTiny(painter, {33, y}, u"MONO"_qs, on ? kPeach : off);
    }
    painter.fillRect(0, 9, 29, 1, kPeach);
    painter.fillRect(33, 9, 19, 1, kPeach);
}

} // namespace

} // namespace classic

bool saveClassicSet(const QString& directory)
{
    using namespace classic;
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

// Designs default.skin: three units of a stack, each with round corners of its own, so that the folded sizes
// are whole units: the player, its controls, its playlist.
#include "icons.h"
#include "paint.h"
#include "strokes.h"

namespace {

constexpr int kWidth = 520;
constexpr QRect kDeck(0, 0, kWidth, 96);
constexpr QRect kControls(0, 96, kWidth, 90);
constexpr QRect kList(0, 186, kWidth, 230);
constexpr QRect kScreen(222, 26, 284, 60);
constexpr QRect kPosition(66, 112, 366, 8);
constexpr QRect kVolume(440, 155, 62, 8);
constexpr QRect kCover(18, 204, 150, 150);
constexpr QRect kEntries(184, 220, 318, 134);
constexpr int kRound = 12;

const QColor kEdge(0x08, 0x0f, 0x18);
const QColor kGlass(0x08, 0x11, 0x1c);
const QColor kAmber(0xff, 0xc6, 0x58);
const QColor kSky(0x9c, 0xc8, 0xf4);
const QColor kCaption(0x84, 0xa8, 0xd0);
const QColor kDim(0xa4, 0xc2, 0xe2);
const QColor kWhite(0xee, 0xf5, 0xfc);
const QColor kGreen(0x7d, 0xe8, 0xa4);
const QColor kRed(0xff, 0x7a, 0x5e);

enum Style : int { Transport, Start, Flat, Pill, Small };

void paintUnit(QPainter& painter, const QRect& unit)
{
    painter.fillRect(unit, kEdge);
    const QRectF inner = QRectF(unit).adjusted(1, 1, -1, -1);
    QLinearGradient shade(inner.topLeft(), inner.bottomLeft());
    shade.setColorAt(0, QColor(0x40, 0x5d, 0x7d));
    shade.setColorAt(14 / inner.height(), QColor(0x32, 0x4b, 0x68));
    shade.setColorAt(1, QColor(0x1d, 0x2d, 0x42));
    fillRound(painter, inner, kRound - 1, shade);
    strokeRound(painter, inner, kRound - 1, QColor(255, 255, 255, 20));
    painter.fillRect(QRectF(inner.x() + kRound, inner.y(), inner.width() - 2 * kRound, 1),
                     QColor(255, 255, 255, 80));
}

void paintWell(QPainter& painter, const QRect& well, double radius, const QColor& ground)
{
    fillRound(painter, QRectF(well).adjusted(-1, -1, 1, 2), radius + 1, QColor(255, 255, 255, 34));
    fillRound(painter, QRectF(well).adjusted(-1, -1, 1, 1), radius + 1, QColor(0x05, 0x0a, 0x11));
    fillRound(painter, well, radius, ground);
}

void paintScreen(QPainter& painter)
{
    paintWell(painter, kScreen, 7, kGlass);
    painter.fillRect(QRect(232, 62, 264, 1), QColor(0x1d, 0x30, 0x46));
    const QColor sign(0x62, 0x82, 0xa6);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(sign);
    painter.drawPolygon(QPolygonF({{485, 31}, {491, 34.5}, {485, 38}}));
    painter.fillRect(485, 42, 2, 6, sign);
    painter.fillRect(489, 42, 2, 6, sign);
    painter.fillRect(485, 52, 6, 6, sign);
    painter.restore();
}

void paintGroove(QPainter& painter, const QRect& groove)
{
    fillRound(painter, QRectF(groove).adjusted(0, 0, 0, 1), 4, QColor(255, 255, 255, 40));
    fillRound(painter, groove, 4, QColor(0x06, 0x0d, 0x15));
    fillShaded(painter, QRectF(groove).adjusted(1, 1, -1, -1), 3, QColor(0x0c, 0x17, 0x24),
               QColor(0x18, 0x29, 0x3d));
}

void paintThumb(QPainter& painter, const QRect& thumb)
{
    const QRectF cap = QRectF(thumb).adjusted(0, 0, 0, -1);
    fillRound(painter, QRectF(thumb).adjusted(0, 1, 0, 0), 5, QColor(0, 0, 0, 130));
    fillShaded(painter, cap, 5, QColor(0xff, 0xde, 0x9a), QColor(0xee, 0x86, 0x1c));
    strokeRound(painter, cap, 5, QColor(0x50, 0x2c, 0x08, 150));
    const int middle = thumb.x() + thumb.width() / 2;
    for (const int x : {middle - 3, middle, middle + 3})
        painter.fillRect(x, thumb.y() + 4, 1, thumb.height() - 9, QColor(0x5a, 0x30, 0x06, 170));
}

// The lights of the buttons shine in dark slots.
QRect slotOf(int x)
{
    return {x, 138, 14, 4};
}

void paintSlots(QPainter& painter)
{
    for (const int x : {37, 95, 155, 217, 294, 410})
        paintWell(painter, slotOf(x), 1, QColor(0x10, 0x1c, 0x2a));
}

void paintBody(QPainter& painter)
{
    for (const QRect& unit : {kDeck, kControls, kList})
        paintUnit(painter, unit);
    drawLine(painter, QRectF(18, 9, 5, 7), 11, u"TONEDECK"_qs, {faded(kWhite, 0.85), 1.4});
    for (const int y : {10, 13, 16}) {
        painter.fillRect(118, y, 232, 1, QColor(0x12, 0x20, 0x31, 150));
        painter.fillRect(118, y + 1, 232, 1, QColor(255, 255, 255, 22));
    }
    paintScreen(painter);
    paintGroove(painter, kPosition);
    paintGroove(painter, kVolume);
    paintSlots(painter);
    paintWell(painter, kCover, 3, QColor(0x0d, 0x18, 0x26));
    fillShaded(painter, QRectF(kCover), 3, QColor(0x1b, 0x2e, 0x45), QColor(0x0d, 0x18, 0x26));
    drawIcon(painter, kCover, Icon::Picture, QColor(0x2c, 0x46, 0x63), 4);
    paintWell(painter, kEntries.adjusted(-2, -2, 2, 2), 3, kGlass);
}

void paintCap(QPainter& painter, const QRectF& cap, double radius, const QColor& top, const QColor& bottom)
{
    fillRound(painter, cap.adjusted(-1, -1, 1, 1), radius + 1, QColor(0x08, 0x11, 0x1c, 200));
    fillShaded(painter, cap, radius, top, bottom);
    strokeRound(painter, cap, radius, QColor(255, 255, 255, 26));
    painter.fillRect(QRectF(cap.x() + radius, cap.y(), cap.width() - 2 * radius, 1),
                     QColor(255, 255, 255, 90));
}

void paintKey(QPainter& painter, const Key& key, bool lit)
{
    const QRectF cap = QRectF(key.place).adjusted(1, 1, -1, -1);
    const QColor ink = lit ? QColor(0xff, 0xe9, 0xb8) : QColor(0xd6, 0xe4, 0xf2);
    switch (key.style) {
    case Start:
        paintCap(painter, cap, 10, lit ? QColor(0xff, 0xee, 0xbe) : QColor(0xff, 0xd4, 0x80),
                 lit ? QColor(0xff, 0xa8, 0x3a) : QColor(0xee, 0x86, 0x1c));
        drawSign(painter, key, QColor(0x36, 0x1e, 0x06), 1.5);
        return;
    case Flat:
        if (lit)
            fillRound(painter, cap, 4, QColor(255, 255, 255, 44));
        drawSign(painter, key, lit ? kAmber : QColor(0xb9, 0xcd, 0xe3));
        return;
    default:
        break;
    }
    const double radius = key.style == Transport ? 8 : 5;
    paintCap(painter, cap, radius, lit ? QColor(0x62, 0x87, 0xb2) : QColor(0x55, 0x78, 0x9f),
             lit ? QColor(0x2c, 0x49, 0x6e) : QColor(0x2d, 0x47, 0x67));
    drawSign(painter, key, ink);
}

void addCaptions(Design& design)
{
    design.captions = {{{320, 32}, u"TRACK"_qs, kCaption},
                       {{364, 32}, u"KBPS"_qs, kCaption},
                       {{403, 32}, u"KHZ"_qs, kCaption},
                       {{432, 32}, u"CLOCK"_qs, kCaption},
                       {{466, 204}, u"TRACKS"_qs, kDim}};
}

void addKeys(Design& design)
{
    design.keys = {
        {25, {18, 146, 52, 26}, Pill, u"INTRO"_qs},
        {26, {74, 146, 56, 26}, Pill, u"SINGLE"_qs},
        {27, {134, 146, 56, 26}, Pill, u"REPEAT"_qs},
        {28, {194, 146, 60, 26}, Pill, u"SHUFFLE"_qs},
        {12, {52, 32, 46, 46}, Start, {}},
    };
    addRow(design, {14, 37, 36, 36}, 0, Transport, {14});
    addRow(design, {100, 37, 36, 36}, 38, Transport, {11, 10, 15});
    addRow(design, {272, 146, 28, 26}, 30, Pill, {30, 31});
    addRow(design, {336, 146, 28, 26}, 30, Pill, {32, 33});
    addRow(design, {402, 146, 30, 26}, 0, Pill, {9});
    addRow(design, {362, 6, 18, 16}, 20, Flat, {49, 50, 6, 5, 3, 2, 1});
    addRow(design, {18, 380, 23, 24}, 25, Small, {13, 16, 4, 35, 29, 34});
    addRow(design, {182, 366, 39, 38}, 41, Small, {23, 24, 17, 19, 18, 20, 21, 22});
}

void addDisplays(Design& design)
{
    const PaintGlyph big = segmentDigits(kAmber, QColor(0x19, 0x22, 0x29), 3);
    const PaintGlyph small = segmentDigits(kSky, QColor(0x10, 0x1c, 0x2a), 2);
    addDisplay(design, 1, {232, 33}, {{}, {17, 24}, 7, 0, 0, 0}, big, u"Time"_qs);
    addDisplay(design, 2, {320, 43}, {{}, {10, 14}, 4, 0, 0, 3}, small, u"Track"_qs);
    addDisplay(design, 4, {363, 43}, {{}, {10, 14}, 4, 0, 0, 3}, small, u"Bit rate"_qs);
    addDisplay(design, 5, {403, 43}, {{}, {10, 14}, 4, 0, 0, 2}, small, u"Sampling rate"_qs);
    addDisplay(design, 3, {432, 43}, {{}, {10, 14}, 4, 0, 0, 8}, small, u"Clock"_qs);
}

void addTexts(Design& design)
{
    addLabel(design, 2, {232, 65, 264, 20}, kWhite, 10, u"Title"_qs);
    addLabel(design, 9, {464, 30, 20, 13}, kSky, 7);
    addLabel(design, 1, {20, 108, 44, 16}, kAmber, 8, u"Elapsed or remaining time"_qs);
    addLabel(design, 13, {442, 108, 40, 16}, kSky, 8, u"Length"_qs);
    addLabel(design, 18, {470, 134, 34, 16}, kSky, 8, u"Volume"_qs);
    addLabel(design, 14, {184, 200, 236, 16}, kWhite, 8, u"Playlist"_qs);
    addLabel(design, 8, {430, 200, 34, 16}, kAmber, 8);
    addLabel(design, 6, {18, 360, 162, 16}, kSky, 8);
    design.cover = {kCover, u"Cover"_qs};
    design.playlist = {
        kEntries, skinColour(QColor(0xcf, 0xe2, 0xf6)), skinColour(kGlass), u"Sans Serif"_qs, 9, {}};
}

void addLights(Design& design)
{
    addLight(design, 4, {494, 31, 7, 7}, kGreen, LightShape::Circle);
    addLight(design, 3, {494, 41, 7, 7}, kAmber, LightShape::Circle);
    addLight(design, 2, {494, 51, 7, 7}, kRed, LightShape::Circle);
    int light = 5;
    for (const int x : {37, 95, 155}) {
        addLight(design, light, slotOf(x), kAmber, LightShape::Rectangle);
        ++light;
    }
    addLight(design, 9, slotOf(217), kAmber, LightShape::Rectangle);
    addLight(design, 8, slotOf(294), kAmber, LightShape::Rectangle);
    addLight(design, 10, slotOf(410), kRed, LightShape::Rectangle);
}

} // namespace

Design defaultDesign()
{
    Design design;
    design.file = u"default"_qs;
    design.title = u"Stack"_qs;
    design.about = {u"The player, its controls and its playlist, one on the other."_qs,
                    u"Fold it to two units or to one."_qs};
    design.sizes = {QSize(kWidth, 416), QSize(kWidth, 186), QSize(kWidth, 96)};
    design.hoverStyle = 2;
    design.before = u"large.skin"_qs;
    design.after = u"compact.skin"_qs;
    for (const QRect& unit : {kDeck, kControls, kList})
        design.outline.push_back(roundedOutline(unit, kRound));
    design.paintBody = paintBody;
    design.paintKey = paintKey;
    addCaptions(design);
    addKeys(design);
    addDisplays(design);
    addTexts(design);
    addLights(design);
    addSlider(design, 1, {kPosition.x() + 2, kPosition.y() - 4, kPosition.width() - 32, 0}, {28, 17},
              paintThumb, u"Position"_qs);
    addSlider(design, 2, {kVolume.x() + 2, kVolume.y() - 4, kVolume.width() - 22, 0}, {18, 17}, paintThumb,
              u"Volume"_qs);
    return design;
}

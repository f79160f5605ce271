// Designs compact.skin: a strip of brushed aluminium with all of the player; unfolded, a short playlist below
// it.
#include "icons.h"
#include "paint.h"
#include "strokes.h"

namespace {

constexpr int kWidth = 440;
constexpr QRect kStrip(0, 0, kWidth, 44);
constexpr QRect kBar(0, 44, kWidth, 34);
constexpr QRect kDrawer(0, 78, kWidth, 112);
constexpr QRect kScreen(154, 7, 214, 30);
constexpr QRect kPosition(12, 54, 176, 14);
constexpr QRect kVolume(358, 54, 70, 14);
constexpr QRect kEntries(12, 87, 286, 92);
constexpr int kRound = 8;

const QColor kEdge(0x4a, 0x4f, 0x56);
const QColor kGlass(0x0b, 0x0e, 0x13);
const QColor kIce(0xd8, 0xf1, 0xff);
const QColor kSoftIce(0x93, 0xb7, 0xca);
const QColor kBlue(0x5c, 0xc3, 0xff);
const QColor kInk(0x2c, 0x31, 0x38);
const QColor kDeepBlue(0x02, 0x5f, 0xac);
const QColor kSlot(0x1a, 0x1f, 0x26);
const QColor kAmber(0xff, 0xc0, 0x4a);
const QColor kRed(0xff, 0x74, 0x60);

enum Style : int { Round, Start, Flat, Plate };

void paintUnit(QPainter& painter, const QRect& unit, const QColor& top, const QColor& bottom)
{
    painter.fillRect(unit, kEdge);
    const QRectF inner = QRectF(unit).adjusted(1, 1, -1, -1);
    fillShaded(painter, inner, kRound - 1, top, bottom);
    brush(painter, unit.adjusted(3, 3, -3, -3), 13);
    painter.fillRect(QRectF(inner.x() + kRound, inner.y(), inner.width() - 2 * kRound, 1),
                     QColor(255, 255, 255, 220));
    painter.fillRect(QRectF(inner.x() + kRound, inner.bottom() - 1, inner.width() - 2 * kRound, 1),
                     QColor(0, 0, 0, 34));
}

void paintWell(QPainter& painter, const QRect& well, double radius)
{
    fillRound(painter, QRectF(well).adjusted(-1, 0, 1, 2), radius + 1, QColor(255, 255, 255, 190));
    fillRound(painter, QRectF(well).adjusted(-1, -1, 1, 1), radius + 1, QColor(0x55, 0x5b, 0x63));
    fillRound(painter, well, radius, kGlass);
}

void paintGroove(QPainter& painter, const QRect& groove)
{
    paintWell(painter, groove, 4);
    painter.fillRect(groove.adjusted(6, 6, -6, -6), QColor(0x2c, 0x3b, 0x49));
}

void paintThumb(QPainter& painter, const QRect& thumb)
{
    fillShaded(painter, QRectF(thumb), 3, QColor(0xfb, 0xfc, 0xfd), QColor(0xae, 0xb6, 0xbf));
    painter.fillRect(thumb.x() + thumb.width() / 2 - 1, thumb.y() + 2, 2, thumb.height() - 4, kDeepBlue);
}

QRect slotOf(int index)
{
    return {202 + index * 22, 69, 12, 3};
}

constexpr QRect kPointSlot(290, 69, 34, 3);
constexpr QRect kMuteSlot(337, 69, 12, 3);

// The lights of play, pause and stop stand below their keys.
QRect stateLight(int x)
{
    return {x, 38, 14, 3};
}

void paintSlot(QPainter& painter, const QRect& slot)
{
    fillRound(painter, QRectF(slot).adjusted(-1, -1, 1, 1), 1.5, kSlot);
    painter.fillRect(QRect(slot.x(), slot.bottom() + 2, slot.width(), 1), QColor(255, 255, 255, 110));
}

void paintBody(QPainter& painter)
{
    paintUnit(painter, kStrip, QColor(0xf0, 0xf2, 0xf4), QColor(0xbd, 0xc3, 0xca));
    paintUnit(painter, kBar, QColor(0xe0, 0xe4, 0xe8), QColor(0xb6, 0xbd, 0xc5));
    paintUnit(painter, kDrawer, QColor(0xdc, 0xe0, 0xe4), QColor(0xb2, 0xb9, 0xc1));
    paintWell(painter, kScreen, 5);
    for (int light = 0; light < 4; ++light)
        paintSlot(painter, slotOf(light));
    for (const QRect& slot : {kPointSlot, kMuteSlot, stateLight(45), stateLight(75), stateLight(102)})
        paintSlot(painter, slot);
    paintGroove(painter, kPosition);
    paintGroove(painter, kVolume);
    paintWell(painter, kEntries.adjusted(-1, -1, 1, 1), 3);
}

void paintKey(QPainter& painter, const Key& key, bool lit)
{
    const QRectF cap = QRectF(key.place).adjusted(1, 1, -1, -1);
    const QColor ink = lit ? kDeepBlue : kInk;
    if (key.style == Flat) {
        if (lit)
            fillRound(painter, cap, 3, QColor(255, 255, 255, 150));
        drawSign(painter, key, ink);
        return;
    }
    const double radius = key.style == Plate ? 3 : cap.height() / 2;
    const bool start = key.style == Start;
    fillRound(painter, cap.adjusted(-1, -1, 1, 1), radius + 1, QColor(0, 0, 0, 70));
    fillShaded(painter, cap, radius,
               start ? (lit ? QColor(0x2b, 0x9d, 0xf2) : QColor(0x4b, 0x51, 0x59)) : QColor(0xff, 0xff, 0xff),
               start ? (lit ? QColor(0x05, 0x67, 0xb5) : QColor(0x22, 0x26, 0x2b))
               : lit ? QColor(0xd3, 0xe8, 0xf8)
                     : QColor(0xc6, 0xcc, 0xd3));
    drawSign(painter, key, start ? QColor(0xff, 0xff, 0xff) : ink);
}

void addKeys(Design& design)
{
    addRow(design, {9, 9, 26, 26}, 0, Round, {14});
    addRow(design, {37, 7, 30, 30}, 0, Start, {12});
    addRow(design, {69, 9, 26, 26}, 27, Round, {11, 10, 15});
    addRow(design, {376, 14, 18, 16}, 18, Flat, {3, 2, 1});
    addRow(design, {198, 49, 20, 18}, 22, Flat, {25, 26, 27, 28, 30, 31});
    addRow(design, {333, 49, 20, 18}, 0, Flat, {9});
    addRow(design, {306, 87, 24, 22}, 25, Plate, {23, 24, 17, 20, 13});
    addRow(design, {306, 110, 24, 22}, 25, Plate, {19, 18, 21, 22, 29});
    addRow(design, {306, 133, 24, 22}, 25, Plate, {32, 33, 34, 4, 16});
    addRow(design, {306, 156, 24, 22}, 25, Plate, {35, 5, 6, 49, 50});
}

} // namespace

Design compactDesign()
{
    Design design;
    design.file = u"compact"_qs;
    design.title = u"Strip"_qs;
    design.about = {u"A strip of aluminium for the corner of the screen."_qs,
                    u"Fold it to lose the playlist, once more to lose all but the keys."_qs};
    design.sizes = {QSize(kWidth, 190), QSize(kWidth, 78), QSize(kWidth, 44)};
    design.hoverStyle = 2;
    design.before = u"default.skin"_qs;
    design.after = u"light.skin"_qs;
    for (const QRect& unit : {kStrip, kBar, kDrawer})
        design.outline.push_back(roundedOutline(unit, kRound));
    design.paintBody = paintBody;
    design.paintKey = paintKey;
    addKeys(design);
    addDisplay(design, 1, {160, 11}, {{}, {12, 22}, 6, 0, 0, 0}, strokeDigits(kBlue, {1, 3, 8, 14}, 2),
               u"Time"_qs);
    addLabel(design, 2, {222, 8, 142, 16}, kIce, 9, u"Title"_qs);
    addLabel(design, 13, {222, 23, 50, 13}, kSoftIce, 8, u"Length"_qs);
    addLabel(design, 3, {310, 23, 54, 13}, kSoftIce, 8, u"Clock"_qs);
    addLight(design, 4, stateLight(45), kBlue, LightShape::Rectangle);
    addLight(design, 3, stateLight(75), kAmber, LightShape::Rectangle);
    addLight(design, 2, stateLight(102), kRed, LightShape::Rectangle);
    for (int light = 0; light < 5; ++light)
        addLight(design, std::array{5, 6, 7, 9, 8}.at(static_cast<std::size_t>(light)),
                 light == 4 ? kPointSlot : slotOf(light), kBlue, LightShape::Rectangle);
    addLight(design, 10, kMuteSlot, kRed, LightShape::Rectangle);
    addSlider(design, 1, {kPosition.x() + 1, kPosition.y() + 1, kPosition.width() - 22, 0}, {20, 12},
              paintThumb, u"Position"_qs);
    addSlider(design, 2, {kVolume.x() + 1, kVolume.y() + 1, kVolume.width() - 14, 0}, {12, 12}, paintThumb,
              u"Volume"_qs);
    design.playlist = {kEntries, skinColour(kIce), skinColour(kGlass), u"Sans Serif"_qs, 8, {}};
    return design;
}

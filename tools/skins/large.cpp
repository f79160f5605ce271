// Designs large.skin: a hi-fi tower of black metal for screens with many pixels.
#include "icons.h"
#include "paint.h"
#include "strokes.h"

namespace {

constexpr int kWidth = 1000;
constexpr QRect kDeck(0, 0, kWidth, 190);
constexpr QRect kControls(0, 190, kWidth, 120);
constexpr QRect kList(0, 310, kWidth, 350);
constexpr QRect kScreen(468, 48, 504, 124);
constexpr QRect kPosition(104, 208, 788, 24);
constexpr QRect kVolume(812, 262, 160, 24);
constexpr QRect kCover(28, 334, 302, 302);
constexpr QRect kEntries(356, 370, 612, 202);
constexpr int kRound = 16;

const QColor kEdge(0x04, 0x04, 0x05);
const QColor kGlass(0x03, 0x0a, 0x0b);
const QColor kTeal(0x7d, 0xf5, 0xdf);
const QColor kTealOff(0x0a, 0x1b, 0x1b);
const QColor kCaption(0x46, 0x8f, 0x86);
const QColor kOrange(0xff, 0x9c, 0x38);
const QColor kSilver(0xdf, 0xe3, 0xe8);
const QColor kGrey(0xb4, 0xba, 0xc2);

enum Style : int { Block, Start, Flat, Pill, Small };

void paintScrew(QPainter& painter, QPointF at, double turn)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(at);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 150));
    painter.drawEllipse(QPointF(0, 0.5), 6.5, 6.5);
    QLinearGradient shade(0, -5, 0, 5);
    shade.setColorAt(0, QColor(0x8b, 0x90, 0x97));
    shade.setColorAt(1, QColor(0x3c, 0x3f, 0x44));
    painter.setBrush(shade);
    painter.drawEllipse(QPointF(), 5, 5);
    painter.rotate(turn);
    painter.setPen(QPen(QColor(0x12, 0x13, 0x15), 1.6));
    painter.drawLine(QPointF(-3.4, 0), QPointF(3.4, 0));
    painter.drawLine(QPointF(0, -3.4), QPointF(0, 3.4));
    painter.restore();
}

void paintUnit(QPainter& painter, const QRect& unit)
{
    painter.fillRect(unit, kEdge);
    const QRectF inner = QRectF(unit).adjusted(1, 1, -1, -1);
    QLinearGradient shade(inner.topLeft(), inner.bottomLeft());
    shade.setColorAt(0, QColor(0x4a, 0x4d, 0x52));
    shade.setColorAt(20 / inner.height(), QColor(0x36, 0x38, 0x3c));
    shade.setColorAt(1, QColor(0x1c, 0x1d, 0x20));
    fillRound(painter, inner, kRound - 1, shade);
    brush(painter, unit.adjusted(5, 5, -5, -5), 12);
    strokeRound(painter, inner, kRound - 1, QColor(255, 255, 255, 28));
    painter.fillRect(QRectF(inner.x() + kRound, inner.y(), inner.width() - 2 * kRound, 1),
                     QColor(255, 255, 255, 110));
    double turn = 20;
    for (const double x : {14.0, kWidth - 14.0})
        for (const double y : {unit.top() + 14.0, unit.bottom() - 13.0}) {
            paintScrew(painter, {x, y}, turn);
            turn += 33;
        }
}

void paintWell(QPainter& painter, const QRect& well, double radius, const QColor& ground)
{
    fillRound(painter, QRectF(well).adjusted(-2, -2, 2, 3), radius + 2, QColor(255, 255, 255, 38));
    fillRound(painter, QRectF(well).adjusted(-2, -2, 2, 2), radius + 2, QColor(0, 0, 0));
    fillRound(painter, well, radius, ground);
}

void paintWord(QPainter& painter, QPoint at, const QString& text, const QColor& colour)
{
    drawLine(painter, QRectF(at, QSizeF(6, 9)), 10, text, {colour, 1.5});
}

void paintScreen(QPainter& painter)
{
    paintWell(painter, kScreen, 9, kGlass);
    painter.fillRect(QRect(486, 123, 468, 1), QColor(0x12, 0x33, 0x33));
}

void addCaptions(Design& design)
{
    design.captions = {{{680, 62}, u"TRACK"_qs, kCaption}, {{756, 62}, u"KBPS"_qs, kCaption},
                       {{826, 62}, u"KHZ"_qs, kCaption},   {{882, 62}, u"CLOCK"_qs, kCaption},
                       {{490, 22}, u"PLAY"_qs, kGrey},     {{566, 22}, u"PAUSE"_qs, kGrey},
                       {{652, 22}, u"STOP"_qs, kGrey},     {{904, 345}, u"TRACKS"_qs, kGrey}};
    design.paintCaption = [](QPainter& painter, const Caption& caption) {
        paintWord(painter, caption.at, caption.text, caption.colour);
    };
}

void paintGroove(QPainter& painter, const QRect& place)
{
    const QRect slit(place.x(), place.y() + place.height() / 2 - 5, place.width(), 10);
    paintWell(painter, slit, 5, QColor(0x08, 0x09, 0x0a));
    painter.fillRect(slit.adjusted(10, 4, -10, -4), QColor(0x2c, 0x2f, 0x33));
}

void paintThumb(QPainter& painter, const QRect& thumb)
{
    fillRound(painter, thumb, 3, QColor(0, 0, 0));
    fillShaded(painter, QRectF(thumb).adjusted(1, 1, -1, -1), 2.5, QColor(0x8f, 0x95, 0x9d),
               QColor(0x3b, 0x3e, 0x43));
    const int middle = thumb.x() + thumb.width() / 2;
    painter.fillRect(thumb.x() + 4, thumb.y() + 1, thumb.width() - 8, 1, QColor(255, 255, 255, 150));
    for (const int x : {middle - 8, middle + 7})
        painter.fillRect(x, thumb.y() + 5, 1, thumb.height() - 10, QColor(0, 0, 0, 120));
    painter.fillRect(middle - 1, thumb.y() + 3, 2, thumb.height() - 6, kOrange);
}

QRect slotOf(int middle, int width = 28)
{
    return {middle - width / 2, 242, width, 5};
}

void paintBody(QPainter& painter)
{
    for (const QRect& unit : {kDeck, kControls, kList})
        paintUnit(painter, unit);
    drawLine(painter, QRectF(36, 20, 8, 12), 19, u"TONEDECK"_qs, {kSilver, 2});
    for (const int x : {490, 566, 652})
        paintWell(painter, {x - 18, 22, 10, 10}, 5, QColor(0x17, 0x18, 0x1a));
    paintScreen(painter);
    paintGroove(painter, kPosition);
    paintGroove(painter, kVolume);
    for (const int middle : {74, 178, 286, 400, 768})
        paintWell(painter, slotOf(middle), 1, QColor(0x17, 0x18, 0x1a));
    paintWell(painter, slotOf(530, 60), 1, QColor(0x17, 0x18, 0x1a));
    paintWell(painter, kCover, 3, QColor(0x10, 0x11, 0x13));
    drawIcon(painter, kCover, Icon::Picture, QColor(0x2d, 0x30, 0x34), 8);
    paintWell(painter, kEntries.adjusted(-4, -4, 4, 4), 5, kGlass);
}

void paintStart(QPainter& painter, const Key& key, bool lit)
{
    const QRectF cap = QRectF(key.place).adjusted(3, 3, -3, -3);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 190));
    painter.drawEllipse(cap.adjusted(-2, -1, 2, 3));
    painter.setBrush(lit ? QColor(0xff, 0xc0, 0x7a) : kOrange);
    painter.drawEllipse(cap);
    painter.setBrush(QColor(0x0c, 0x0d, 0x0e));
    painter.drawEllipse(cap.adjusted(4, 4, -4, -4));
    QConicalGradient metal(cap.center(), 60);
    const QColor light(0x96, 0x9b, 0xa3);
    const QColor dark(0x3e, 0x41, 0x46);
    for (const auto& [part, colour] :
         {std::pair(0.0, light), std::pair(0.14, dark), std::pair(0.36, dark), std::pair(0.5, light),
          std::pair(0.64, dark), std::pair(0.86, dark), std::pair(1.0, light)})
        metal.setColorAt(part, colour);
    painter.setBrush(metal);
    painter.drawEllipse(cap.adjusted(6, 6, -6, -6));
    painter.restore();
    drawSign(painter, {key.code, key.place.translated(3, 0), 0, {}},
             lit ? QColor(0xff, 0xd2, 0x9c) : QColor(0xff, 0xff, 0xff), 3);
}

void paintKey(QPainter& painter, const Key& key, bool lit)
{
    const QRectF cap = QRectF(key.place).adjusted(2, 2, -2, -2);
    const QColor ink = lit ? QColor(0xff, 0xc8, 0x8e) : kSilver;
    if (key.style == Start) {
        paintStart(painter, key, lit);
        return;
    }
    if (key.style == Flat) {
        if (lit)
            fillRound(painter, cap, 5, QColor(255, 255, 255, 40));
        drawSign(painter, key, lit ? kOrange : QColor(0xb9, 0xbf, 0xc7), 1.5);
        return;
    }
    const double radius = key.style == Block ? 11 : 7;
    fillRound(painter, cap.adjusted(-2, -2, 2, 2), radius + 2, QColor(0, 0, 0, 170));
    fillShaded(painter, cap, radius, lit ? QColor(0x74, 0x79, 0x81) : QColor(0x62, 0x66, 0x6d),
               lit ? QColor(0x34, 0x37, 0x3b) : QColor(0x27, 0x29, 0x2c));
    strokeRound(painter, cap, radius, QColor(255, 255, 255, 30));
    painter.fillRect(QRectF(cap.x() + radius, cap.y(), cap.width() - 2 * radius, 1),
                     QColor(255, 255, 255, 120));
    if (key.caption.isEmpty())
        drawSign(painter, key, ink, key.style == Small ? 1.5 : 2);
    else
        paintWord(painter, key.place.center() - QPoint(static_cast<int>(key.caption.size()) * 5 - 2, 4),
                  key.caption, ink);
}

void addKeys(Design& design)
{
    design.keys = {
        {12, {106, 57, 108, 108}, Start, {}},           {25, {28, 253, 92, 42}, Pill, u"INTRO"_qs},
        {26, {128, 253, 100, 42}, Pill, u"SINGLE"_qs},  {27, {236, 253, 100, 42}, Pill, u"REPEAT"_qs},
        {28, {344, 253, 112, 42}, Pill, u"SHUFFLE"_qs},
    };
    addRow(design, {28, 75, 72, 72}, 0, Block, {14});
    addRow(design, {220, 75, 72, 72}, 77, Block, {11, 10, 15});
    addRow(design, {476, 253, 52, 42}, 56, Pill, {30, 31});
    addRow(design, {604, 253, 56, 42}, 60, Pill, {32, 33});
    addRow(design, {740, 253, 56, 42}, 0, Pill, {9});
    addRow(design, {746, 14, 28, 26}, 32, Flat, {49, 50, 6, 5, 3, 2, 1});
    addRow(design, {352, 590, 41, 46}, 43, Small, {23, 24, 17, 19, 18, 20, 21, 22});
    addRow(design, {716, 590, 41, 46}, 43, Small, {13, 4, 16, 35, 29, 34});
}

void addDisplays(Design& design)
{
    const PaintGlyph big = segmentDigits(kTeal, kTealOff, 6);
    const PaintGlyph small = segmentDigits(kTeal, kTealOff, 3);
    addDisplay(design, 1, {488, 60}, {{}, {38, 54}, 16, 0, 0, 0}, big, u"Time"_qs);
    addDisplay(design, 2, {680, 82}, {{}, {17, 28}, 8, 0, 0, 3}, small, u"Track"_qs);
    addDisplay(design, 4, {752, 82}, {{}, {17, 28}, 8, 0, 0, 3}, small, u"Bit rate"_qs);
    addDisplay(design, 5, {824, 82}, {{}, {17, 28}, 8, 0, 0, 2}, small, u"Sampling rate"_qs);
    addDisplay(design, 3, {879, 82}, {{}, {17, 28}, 8, 0, 0, 8}, small, u"Clock"_qs);
}

void addTexts(Design& design)
{
    addLabel(design, 2, {486, 130, 470, 36}, kTeal, 17, u"Title"_qs);
    addLabel(design, 9, {936, 57, 32, 18}, kTeal, 9);
    addLabel(design, 1, {30, 208, 72, 24}, kTeal, 13, u"Elapsed or remaining time"_qs);
    addLabel(design, 13, {910, 208, 64, 24}, kSilver, 13, u"Length"_qs);
    addLabel(design, 18, {926, 238, 48, 20}, kGrey, 11, u"Volume"_qs);
    addLabel(design, 14, {354, 336, 430, 24}, kSilver, 14, u"Playlist"_qs);
    addLabel(design, 8, {858, 338, 44, 24}, kOrange, 13);
    addLabel(design, 12, {812, 238, 90, 20}, kGrey, 11, u"Channels"_qs);
    design.cover = {kCover, u"Cover"_qs};
    design.playlist = {kEntries, skinColour(kSilver), skinColour(kGlass), u"Sans Serif"_qs, 13, {}};
}

void addLights(Design& design)
{
    addLight(design, 4, {473, 23, 8, 8}, QColor(0x63, 0xf0, 0x86), LightShape::Circle);
    addLight(design, 3, {549, 23, 8, 8}, kOrange, LightShape::Circle);
    addLight(design, 2, {635, 23, 8, 8}, QColor(0xff, 0x5d, 0x4a), LightShape::Circle);
    for (const auto& [light, middle] :
         {std::pair(5, 74), std::pair(6, 178), std::pair(7, 286), std::pair(9, 400)})
        addLight(design, light, slotOf(middle), kOrange, LightShape::Rectangle);
    addLight(design, 8, slotOf(530, 60), kOrange, LightShape::Rectangle);
    addLight(design, 10, slotOf(768), QColor(0xff, 0x5d, 0x4a), LightShape::Rectangle);
}

} // namespace

Design largeDesign()
{
    Design design;
    design.file = u"large"_qs;
    design.title = u"Tower"_qs;
    design.about = {u"A tower of black metal for screens with many pixels."_qs,
                    u"Fold it to two units or to one."_qs};
    design.sizes = {QSize(kWidth, 660), QSize(kWidth, 310), QSize(kWidth, 190)};
    design.hoverStyle = 2;
    design.before = u"dark.skin"_qs;
    design.after = u"default.skin"_qs;
    for (const QRect& unit : {kDeck, kControls, kList})
        design.outline.push_back(roundedOutline(unit, kRound));
    design.paintBody = paintBody;
    design.paintKey = paintKey;
    addCaptions(design);
    addKeys(design);
    addDisplays(design);
    addTexts(design);
    addLights(design);
    addSlider(design, 1, {kPosition.x() + 6, kPosition.y(), kPosition.width() - 60, 0}, {48, 24}, paintThumb,
              u"Position"_qs);
    addSlider(design, 2, {kVolume.x() + 6, kVolume.y(), kVolume.width() - 46, 0}, {34, 24}, paintThumb,
              u"Volume"_qs);
    return design;
}

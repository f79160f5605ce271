// Designs light.skin and dark.skin: three floating cards of one layout, flat, in two palettes.
#include "icons.h"
#include "paint.h"
#include "strokes.h"

namespace {

constexpr int kWidth = 460;
constexpr QRect kPlayer(0, 0, kWidth, 136);
constexpr QRect kControls(0, 142, kWidth, 52);
constexpr QRect kList(0, 200, kWidth, 260);
constexpr QRect kCover(12, 12, 112, 112);
constexpr QRect kPosition(138, 78, 308, 4);
constexpr QRect kVolume(334, 164, 70, 4);
constexpr QRect kEntries(14, 236, 432, 176);
constexpr int kRound = 14;

enum Style : int { Bare, Start, Mode, Tool };

struct Palette {
    QColor card{};
    QColor edge{};
    QColor raised{}; // under the pointer
    QColor groove{};
    QColor ink{};
    QColor soft{}; // captions
    QColor accent{};
    QColor accentLit{};
    QColor onAccent{};
    QColor list{};
    QColor paused{};
    QColor stopped{};
};

Palette lightPalette()
{
    return {QColor(0xfb, 0xfb, 0xfd), QColor(0xc3, 0xc9, 0xd3), QColor(0xff, 0xe6, 0xdf),
            QColor(0xdc, 0xe0, 0xe8), QColor(0x23, 0x2a, 0x36), QColor(0x5f, 0x6a, 0x7a),
            QColor(0xd2, 0x3a, 0x1c), QColor(0xe4, 0x55, 0x36), QColor(0xff, 0xff, 0xff),
            QColor(0xf1, 0xf3, 0xf7), QColor(0xa8, 0x6a, 0x00), QColor(0x23, 0x2a, 0x36)};
}

Palette darkPalette()
{
    return {QColor(0x17, 0x19, 0x1e), QColor(0x2f, 0x33, 0x3c), QColor(0x2a, 0x2e, 0x37),
            QColor(0x33, 0x38, 0x42), QColor(0xee, 0xf1, 0xf5), QColor(0x98, 0xa2, 0xb2),
            QColor(0x2f, 0xd6, 0xa5), QColor(0x74, 0xf0, 0xcc), QColor(0x06, 0x1c, 0x15),
            QColor(0x0f, 0x11, 0x15), QColor(0xff, 0xc6, 0x58), QColor(0xee, 0xf1, 0xf5)};
}

QRect underline(int x, int width)
{
    return {x, 184, width, 3};
}

// The lights of play, pause and stop stand below their keys.
QRect stateLight(int x)
{
    return {x, 130, 16, 3};
}

struct Painter {
    Palette colours{};

    void card(QPainter& painter, const QRect& place) const
    {
        painter.fillRect(place, colours.edge);
        fillRound(painter, QRectF(place).adjusted(1, 1, -1, -1), kRound - 1, colours.card);
    }
    void groove(QPainter& painter, const QRect& place) const
    {
        fillRound(painter, place, place.height() / 2.0, colours.groove);
    }
    void body(QPainter& painter) const
    {
        painter.fillRect(QRect(QPoint(), QSize(kWidth, kList.y() + kList.height())), colours.edge);
        for (const QRect& place : {kPlayer, kControls, kList})
            card(painter, place);
        fillRound(painter, kCover, 0, colours.list);
        drawIcon(painter, kCover, Icon::Picture, colours.groove, 4);
        drawLine(painter, QRectF(138, 13, 5, 7), 10, u"TONEDECK"_qs, {colours.accent, 1.4});
        groove(painter, kPosition);
        groove(painter, kVolume);
        for (const int x : {20, 58, 96, 134, 310})
            fillRound(painter, underline(x, 16), 1.5, colours.groove);
        fillRound(painter, underline(182, 40), 1.5, colours.groove);
        for (const int x : {183, 223, 259})
            fillRound(painter, stateLight(x), 1.5, colours.groove);
        fillRound(painter, kEntries.adjusted(-4, -4, 4, 4), 6, colours.list);
    }
    void key(QPainter& painter, const Key& key, bool lit) const
    {
        const QRectF cap = QRectF(key.place).adjusted(1, 1, -1, -1);
        if (key.style == Start) {
            fillRound(painter, cap, cap.height() / 2, lit ? colours.accentLit : colours.accent);
            drawSign(painter, key, colours.onAccent, 1.5);
            return;
        }
        if (lit)
            fillRound(painter, cap, key.style == Bare ? cap.height() / 2 : 6, colours.raised);
        const QColor rest = key.style == Bare ? colours.ink : mixed(colours.ink, colours.soft, 0.35);
        drawSign(painter, key, lit ? colours.accent : rest, key.place.width() > 40 ? 1.5 : 1);
    }
    void thumb(QPainter& painter, const QRect& place) const
    {
        fillRound(painter, QRectF(place).adjusted(1, 1, -1, -1), place.height() / 2.0 - 1, colours.accent);
        fillRound(painter, QRectF(place).adjusted(4, 4, -4, -4), place.height() / 2.0 - 4, colours.onAccent);
    }
};

void addKeys(Design& design)
{
    addRow(design, {316, 9, 18, 16}, 19, Tool, {49, 50, 6, 5, 3, 2, 1});
    addRow(design, {134, 91, 34, 34}, 0, Bare, {14});
    addRow(design, {170, 87, 42, 42}, 0, Start, {12});
    addRow(design, {214, 91, 34, 34}, 36, Bare, {11, 10, 15});
    addRow(design, {12, 152, 32, 28}, 38, Tool, {25, 26, 27, 28});
    addRow(design, {178, 152, 24, 28}, 24, Tool, {30, 31});
    addRow(design, {232, 152, 30, 28}, 32, Tool, {32, 33});
    addRow(design, {302, 152, 32, 28}, 0, Tool, {9});
    addRow(design, {12, 424, 30, 28}, 31, Tool, {23, 24, 17, 19, 18, 20, 21, 22, 13, 4, 16, 35, 29, 34});
}

void addCaptions(Design& design, const Palette& colours)
{
    design.captions = {{{138, 58}, u"TRACK"_qs, colours.soft},
                       {{216, 58}, u"KBPS"_qs, colours.soft},
                       {{288, 58}, u"KHZ"_qs, colours.soft},
                       {{410, 215}, u"TRACKS"_qs, colours.soft}};
}

void addDisplays(Design& design, const Palette& colours)
{
    const PaintGlyph small = pixelLetters(colours.ink, {0, 1});
    addDisplay(design, 1, {322, 91}, {{}, {20, 32}, 10, 0, 0, 0},
               strokeDigits(colours.ink, {3, 4, 13, 22}, 2.6), u"Time"_qs);
    addDisplay(design, 2, {171, 57}, {{}, {6, 9}, 3, 0, 0, 3}, small, u"Track"_qs);
    addDisplay(design, 4, {243, 57}, {{}, {6, 9}, 3, 0, 0, 3}, small, u"Bit rate"_qs);
    addDisplay(design, 5, {309, 57}, {{}, {6, 9}, 3, 0, 0, 2}, small, u"Sampling rate"_qs);
    addDisplay(
        design, 3, {258, 12}, {{}, {6, 9}, 4, 0, 0, 8},
        [ink = colours.soft](QPainter& painter, const QRect& cell, char character) {
            drawCaption(painter, cell.topLeft() + QPoint(cell.width() < 6 ? -1 : 0, 1),
                        QString(QLatin1Char(character)), ink);
        },
        u"Clock"_qs);
}

void addTexts(Design& design, const Palette& colours)
{
    addLabel(design, 2, {138, 31, 308, 22}, colours.ink, 12, u"Title"_qs);
    addLabel(design, 9, {288, 10, 24, 14}, colours.soft, 7);
    addLabel(design, 13, {416, 105, 36, 16}, colours.soft, 8, u"Length"_qs);
    addLabel(design, 18, {412, 160, 36, 16}, colours.soft, 8, u"Volume"_qs);
    addLabel(design, 14, {14, 211, 330, 18}, colours.ink, 9, u"Playlist"_qs);
    addLabel(design, 8, {374, 211, 34, 16}, colours.accent, 9);
    addLabel(design, 12, {366, 55, 80, 15}, colours.soft, 8, u"Channels"_qs);
}

void addLights(Design& design, const Palette& colours)
{
    addLight(design, 4, stateLight(183), colours.accent);
    addLight(design, 3, stateLight(223), colours.paused);
    addLight(design, 2, stateLight(259), colours.stopped);
    for (const auto& [light, x] : {std::pair(5, 20), std::pair(6, 58), std::pair(7, 96), std::pair(9, 134)})
        addLight(design, light, underline(x, 16), colours.accent);
    addLight(design, 8, underline(182, 40), colours.accent);
    addLight(design, 10, underline(310, 16), colours.accent);
}

Design cardsDesign(const Palette& colours)
{
    Design design;
    design.sizes = {QSize(kWidth, 460), QSize(kWidth, 194), QSize(kWidth, 136)};
    design.hoverStyle = 2;
    for (const QRect& card : {kPlayer, kControls, kList})
        design.outline.push_back(roundedOutline(card, kRound));
    const Painter look{colours};
    design.paintBody = [look](QPainter& painter) { look.body(painter); };
    design.paintKey = [look](QPainter& painter, const Key& key, bool lit) { look.key(painter, key, lit); };
    addCaptions(design, colours);
    addKeys(design);
    addDisplays(design, colours);
    const auto thumb = [look](QPainter& painter, const QRect& place) { look.thumb(painter, place); };
    addSlider(design, 1, {kPosition.x(), kPosition.y() - 5, kPosition.width() - 14, 0}, {14, 14}, thumb,
              u"Position"_qs);
    addSlider(design, 2, {kVolume.x(), kVolume.y() - 5, kVolume.width() - 14, 0}, {14, 14}, thumb,
              u"Volume"_qs);
    addTexts(design, colours);
    addLights(design, colours);
    design.cover = {kCover, u"Cover"_qs};
    design.playlist = {kEntries, skinColour(colours.ink), skinColour(colours.list), u"Sans Serif"_qs, 9, {}};
    return design;
}

} // namespace

Design lightDesign()
{
    Design design = cardsDesign(lightPalette());
    design.file = u"light"_qs;
    design.title = u"Paper"_qs;
    design.about = {u"Three cards of paper for a bright desk."_qs};
    design.before = u"compact.skin"_qs;
    design.after = u"dark.skin"_qs;
    return design;
}

Design darkDesign()
{
    Design design = cardsDesign(darkPalette());
    design.file = u"dark"_qs;
    design.title = u"Midnight"_qs;
    design.about = {u"Three dark cards, quiet at night."_qs};
    design.before = u"light.skin"_qs;
    design.after = u"large.skin"_qs;
    return design;
}

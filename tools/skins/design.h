// Describes a skin as we design it: what is placed where, once, and how it is drawn. Both the bitmaps and the
// control file come from this description, so that the picture and the hot area of a button cannot disagree.
#pragma once

#include "player/skin/skinelements.h"

#include <QColor>
#include <QImage>
#include <QPainter>

#include <functional>
#include <optional>
#include <vector>

// Is a button as it is drawn; its key, tool tip and sign are the same in all skins (commands.h).
struct Key {
    int code = 0;
    QRect place{};
    int style = 0;     // what the skin's paintKey makes of it
    QString caption{}; // instead of its sign
};

// Draws one character over the background that its cell already has; the blank too (segments that are off).
using PaintGlyph = std::function<void(QPainter&, const QRect& cell, char character)>;

// Is a word of the face that is not on a key.
struct Caption {
    QPoint at{};
    QString text{};
    QColor colour{};
};

struct DisplayArt {
    SkinDisplay at{}; // its glyph table's origin is found when the parts are laid out
    PaintGlyph paint{};
};

struct SliderArt {
    SkinSlider at{}; // likewise; the thumb's rectangle gives its size only
    std::function<void(QPainter&, const QRect& thumb)> paint{};
};

void drawSmallCaption(QPainter& painter, const Caption& caption); // of pure pixels

struct Design {
    QString file{}; // "default" makes default.skin, default-face.png and default-parts.png
    QString title{};
    QStringList about{};
    WindowSizes sizes{};
    int hoverStyle = 0;
    QString before{}; // the skins of the buttons that change the skin
    QString after{};

    std::vector<Key> keys{};
    std::vector<Caption> captions{};
    std::vector<SliderArt> sliders{};
    std::vector<DisplayArt> displays{};
    std::vector<SkinLabel> labels{};
    std::vector<SkinLight> lights{};
    std::optional<SkinCover> cover{};
    std::optional<SkinPlaylist> playlist{};
    SkinOutline outline{};

    std::function<void(QPainter&)> paintBody{};
    std::function<void(QPainter&, const Caption&)> paintCaption = drawSmallCaption;
    std::function<void(QPainter&, const Key&, bool lit)> paintKey{};
};

SkinColour skinColour(const QColor& colour);

// Adds keys of one size beside each other, `step` from one to the next.
void addRow(Design& design, const QRect& first, int step, int style, std::initializer_list<int> codes);

// Draws in the middle of its place its caption, or its sign.
void drawSign(QPainter& painter, const Key& key, const QColor& colour, double scale = 1);

void addLabel(Design& design, int number, const QRect& place, const QColor& colour, int points = 8,
              const QString& toolTip = {});
void addLight(Design& design, int number, const QRect& place, const QColor& colour,
              LightShape shape = LightShape::RoundedRectangle);

// A digit display takes 4 cells and a separator, or as many cells as it has; others their cells.
void addDisplay(Design& design, int number, QPoint at, const DisplayFont& font, const PaintGlyph& paint,
                const QString& toolTip = {});

// The thumb's left (or top) goes through `track`, whose height (or width) is 0.
void addSlider(Design& design, int number, const QRect& track, QSize thumb,
               const std::function<void(QPainter&, const QRect&)>& paint, const QString& toolTip = {});

// Returns a rectangle's outline with round corners, as whole points.
std::vector<QPoint> roundedOutline(const QRect& place, int radius);

Design defaultDesign();
Design compactDesign();
Design lightDesign();
Design darkDesign();
Design largeDesign();

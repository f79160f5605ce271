// Makes text of pictures: what a display shows for a value, and which cells of the resource bitmap that
// takes. Nothing here throws or costs more than a display's most cells, whatever the skin, the value or the
// name.
#pragma once

#include "player/skin/skinelements.h"

#include <QTime>

#include <variant>
#include <vector>

using DisplayValue = std::variant<double, QString>;

// These are the displays by their numbers.
enum class DisplayItem : int {
    Time = 1,
    Track = 2,
    Clock = 3,
    BitRate = 4,
    SamplingRate = 5,
    Name = 6,
};

// From here on DisplayFont::cells is a count of characters; below it is a format's code.
inline constexpr int kFirstCountedCells = 10;
// A display shows no more characters than this, which 16 bits can ask for.
inline constexpr int kMostCells = 32767;
// With so many pixels of glyphs painted a display takes no further glyph; they are twice a screen of 3840 x
// 2160.
inline constexpr qint64 kMostGlyphPixels = 16'588'800;

// Holds the clock as a display may show it. A time that is none is midnight.
struct DisplayClock {
    QTime now{};
    bool hours24 = false;
};

// Is a glyph's rectangle in the resource bitmap, which may lie beyond that bitmap, and how far right of the
// display's left it goes. Later glyphs lie over earlier ones.
struct Glyph {
    QRect source{};
    int offset = 0;
    bool operator==(const Glyph&) const = default;
};

struct DisplayText {
    QString text{};
    QString dayHalf{};    // of the clock: "AM", "PM" or blanks
    bool isClock = false; // only then dayHalf is meant
    int blankedZeros =
        0; // that many characters' zeros are blank until another digit has come; digit font only
};

// Writes the value as time, number, clock or text, by the font's cells. A text that is no number comes as it
// stands, an empty one stays empty; a number that is none counts as 0, seconds are held within 32 bits.
DisplayText textOf(const DisplayFont& font, const DisplayValue& value, const DisplayClock& clock);

// Knows the scrolling name's place, one character further at each call while it scrolls.
class NameScroll {
public:
    // Returns the part of the name display's text that is shown now, no longer than the display can show; the
    // text as it is when it does not scroll.
    QString next(const QString& text, int cells, bool scrolls);

private:
    qint16 m_counter = 1; // 1-based place in the text
};

// Places glyphs by the font's style, none for a style that there is not, and only those that touch the face,
// which reaches `after` pixels right of the display's left and `before` pixels left of it.
std::vector<Glyph> glyphsOf(const DisplayFont& font, const DisplayText& text, int after,
                            int before = kMostCells);

// Text made of pictures: what a display shows for a value, and which cells of the resource bitmap that takes.
#pragma once

#include "skin/skinelements.h"

#include <QTime>

#include <variant>
#include <vector>

using DisplayValue = std::variant<double, QString>;

// The numbers of the displays.
enum DisplayItem : int {
    kTimeDisplay = 1,
    kTrackDisplay = 2,
    kClockDisplay = 3,
    kFirstInfoDisplay = 4,
    kSecondInfoDisplay = 5,
    kNameDisplay = 6,
};

// The clock as a display may show it.
struct DisplayClock {
    QTime now{};
    bool hours24 = false;
};

// A glyph's rectangle in the resource bitmap, and how far right of the display's left it goes.
struct Glyph {
    QRect source{};
    int offset = 0;
    bool operator==(const Glyph&) const = default;
};

// The scrolling name's place: one step further at each call while it scrolls.
class NameScroll {
public:
    // The part of a name that is shown now; the whole name when it does not scroll.
    QString next(const QString& name, int cells, bool scrolls);

private:
    qint16 m_counter = 1;
};

struct DisplayText {
    QString text{};
    QString dayHalf{};    // of the clock: "AM", "PM" or blanks
    bool isClock = false; // only then dayHalf is meant
    int blankedZeros = 0; // characters at the beginning whose zeros may be blanked; see glyphs()
};

// By the font's cells: the value as time, number, clock or text. Throws RunTimeError 6 and 13 as the numbers'
// rules do.
DisplayText textOf(const DisplayFont& font, const DisplayValue& value, const DisplayClock& clock);

// By the font's style; none for a style that there is not. Never more than the cells that the font asks for,
// and only those that begin left of `width` pixels.
std::vector<Glyph> glyphsOf(const DisplayFont& font, const DisplayText& text, int width);

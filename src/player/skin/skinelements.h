// Describes the elements of a skin as its control file gives them. Coordinates are pixels of the skin; a
// colour is red + 256 * green + 65536 * blue; numbers are 16-bit and come from outside: nothing here is
// checked but what its comment says.
#pragma once

#include <QPoint>
#include <QRect>
#include <QString>

#include <array>
#include <vector>

inline constexpr int kButtons = 50;
inline constexpr int kKeyButtons = 40; // those that answer to their key
// These two load another skin, which their lines name. They are commands of the player by the same codes,
// which this room does not know.
inline constexpr int kPreviousSkinButton = 49;
inline constexpr int kNextSkinButton = 50;
inline constexpr int kLabels = 20;
inline constexpr int kLights = 16;
inline constexpr int kSliders = 4;
inline constexpr int kDisplays = 6;
inline constexpr int kWorkPictures = 3; // numbered from 0
inline constexpr int kSizeModes = 3;    // numbered from 0

// Names the labels that the player gives a caption, by their numbers. The others stay empty.
enum class Label : int {
    Time = 1,
    Name = 2,
    Clock = 3,
    EntryNumber = 4,
    Snooze = 5,
    Date = 6,
    Day = 7,
    EntryCount = 8,
    DayHalf = 9,
    BitRate = 10,
    SamplingRate = 11,
    ChannelMode = 12,
    Length = 13,
    ListName = 14,
    Volume = 18,
};

using SkinColour = quint32;
using WindowSizes = std::array<QSize, kSizeModes>;

// Each has a number from 1 to its kind's most, and a width and a height of at least 1 (a slider one of both).
// Tool tips have passed TipText.
struct SkinButton {
    int number = 0;
    QRect place{};
    QPoint pressed{}; // of the pressed picture in the resource bitmap; 0, 0 leaves the one it had
    QString tag{};    // the texts of both, parted by a comma
    QString key{};    // one character, or none
    QString toolTip{};
    QString skin{}; // that a button which changes the skin loads
};

struct SkinLabel {
    int number = 0;
    QRect place{};
    SkinColour colour = 0;
    int fontSize = 0; // points, of 96 to an inch
    QString font{};
    QString toolTip{};
};

enum class LightShape : int { Rectangle, Square, Oval, Circle, RoundedRectangle, RoundedSquare };

struct SkinLight {
    int number = 0;
    QRect place{};
    SkinColour colour = 0;
    LightShape shape = LightShape::Rectangle;
};

struct SkinSlider {
    int number = 0;
    QRect track{}; // a height of 0 makes it horizontal
    QRect thumb{}; // in the resource bitmap
    QString toolTip{};
};

// Tells how a display takes its glyphs from the resource bitmap.
struct DisplayFont {
    QPoint origin{}; // of the glyph table
    QSize cell{};
    int separator = 0; // width of "." and ":" in the digit font
    int style = 0;     // 0 digits, 1 ASCII, 2 ASCII in upper case, 3 letter table
    int gap = 0;       // between glyphs
    int cells = 0;     // how many, or a format's code
};

struct SkinDisplay {
    int number = 0;
    QRect place{};
    DisplayFont font{};
    QString toolTip{};
};

struct SkinCover {
    QRect place{};
    QString toolTip{};
};

struct SkinPlaylist {
    QRect place{};
    SkinColour textColour = 0;
    SkinColour backColour = 0;
    QString font{};
    int fontSize = 0;
    QString toolTip{};
};

// Holds the polygons of a window's outline; what lies in an odd number of them belongs to the window.
using SkinOutline = std::vector<std::vector<QPoint>>;

// Returns the tool tip of an element, none for a text that begins with "~".
QString TipText(const QString& text);

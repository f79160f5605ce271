#include "player/skin/elementfields.h"

#include "player/skin/skinreader.h"

namespace {

constexpr int kClock = 3;
constexpr int kClockCells = 4;

QPoint readPoint(SkinReader& reader)
{
    const int x = reader.number();
    return {x, reader.number()};
}

QSize readSize(SkinReader& reader)
{
    const int width = reader.number();
    return {width, reader.number()};
}

// It is made in 32 bits, which take what does not fit in a colour's share of them.
SkinColour readColour(SkinReader& reader)
{
    const auto red = static_cast<SkinColour>(reader.number());
    const auto green = static_cast<SkinColour>(reader.number());
    const auto blue = static_cast<SkinColour>(reader.number());
    return (red + 256 * green + 65536 * blue) & 0xFFFFFF;
}

QString readTip(SkinReader& reader)
{
    return TipText(reader.field());
}

// Kept: the clock has room for four digits and a separator whatever its cells say.
int widthOf(const DisplayFont& font, int number)
{
    return font.cells != 0 && number != kClock ? font.cell.width() * font.cells
                                               : kClockCells * font.cell.width() + font.separator;
}

} // namespace

QRect readPlace(SkinReader& reader)
{
    const QPoint position = readPoint(reader);
    return {position, readSize(reader)};
}

SkinButton readButton(SkinReader& reader, int number)
{
    SkinButton button{.number = number, .place = readPlace(reader), .pressed = readPoint(reader)};
    button.tag = QString::number(button.pressed.x()) + u',' + QString::number(button.pressed.y());
    button.key = reader.field().left(1);
    button.toolTip = readTip(reader);
    if (number == kPreviousSkinButton || number == kNextSkinButton)
        button.skin = reader.field();
    return button;
}

SkinLabel readLabel(SkinReader& reader, int number)
{
    SkinLabel label{.number = number, .place = readPlace(reader), .colour = readColour(reader)};
    label.fontSize = reader.number();
    label.font = reader.field();
    label.toolTip = readTip(reader);
    return label;
}

SkinLight readLight(SkinReader& reader, int number)
{
    SkinLight light{.number = number, .place = readPlace(reader), .colour = readColour(reader)};
    light.shape = static_cast<LightShape>(reader.number());
    reader.field(); // Kept: a light has the field of a tool tip and shows none.
    return light;
}

SkinSlider readSlider(SkinReader& reader, int number)
{
    SkinSlider slider{.number = number, .track = readPlace(reader), .thumb = readPlace(reader)};
    slider.toolTip = readTip(reader);
    return slider;
}

SkinDisplay readDisplay(SkinReader& reader, int number)
{
    const QPoint position = readPoint(reader);
    DisplayFont font{.origin = readPoint(reader), .cell = readSize(reader)};
    font.separator = reader.number();
    font.style = reader.number();
    font.gap = reader.number();
    font.cells = reader.number();
    const QSize size(widthOf(font, number), font.cell.height());
    return {.number = number, .place = {position, size}, .font = font, .toolTip = readTip(reader)};
}

SkinCover readCover(SkinReader& reader)
{
    const QRect place = readPlace(reader);
    return {.place = place, .toolTip = readTip(reader)};
}

SkinPlaylist readPlaylist(SkinReader& reader)
{
    SkinPlaylist list{
        .place = readPlace(reader), .textColour = readColour(reader), .backColour = readColour(reader)};
    list.fontSize = reader.number();
    list.font = reader.field();
    list.toolTip = readTip(reader);
    return list;
}

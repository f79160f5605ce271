#include "controlfile.h"

namespace {

class Line {
public:
    explicit Line(const QByteArray& token) : m_text(token) {}
    Line& operator<<(int number)
    {
        m_text += ',' + QByteArray::number(number);
        return *this;
    }
    Line& operator<<(const QString& text)
    {
        m_text += ',' + field(text);
        return *this;
    }
    Line& operator<<(QPoint point) { return *this << point.x() << point.y(); }
    Line& operator<<(QSize size) { return *this << size.width() << size.height(); }
    Line& operator<<(const QRect& rect) { return *this << rect.topLeft() << rect.size(); }
    Line& colour(SkinColour value)
    {
        return *this << static_cast<int>(value & 0xff) << static_cast<int>(value >> 8 & 0xff)
                     << static_cast<int>(value >> 16 & 0xff);
    }
    QByteArray end() const { return m_text + "\r\n"; }

private:
    QByteArray m_text;
};

QByteArray numbered(char letter, int number)
{
    return letter + QByteArray::number(number);
}

// The comma ends the token, so that the rest of the line is this line's.
QByteArray comment(const char* text)
{
    return QByteArray(";,") + text + "\r\n";
}

QByteArray outlineLines(const SkinOutline& outline)
{
    QByteArray text;
    int total = 0;
    for (const auto& polygon : outline)
        total += static_cast<int>(polygon.size());
    if (outline.size() == 1)
        text += numbered('N', total) + "\r\n";
    if (outline.size() > 1) {
        Line line(numbered('M', total));
        line << static_cast<int>(outline.size());
        for (const auto& polygon : outline)
            line << static_cast<int>(polygon.size());
        text += line.end();
    }
    for (const auto& polygon : outline)
        for (const QPoint& point : polygon)
            text += (Line(numbered('P', point.x())) << point.y()).end();
    return text;
}

QByteArray buttonLines(const Bitmaps& bitmaps)
{
    QByteArray text = comment("buttons: x, y, w, h, pressed picture's x and y, key, tool tip");
    for (const SkinButton& button : bitmaps.buttons) {
        Line line(numbered('B', button.number));
        line << button.place << button.pressed << button.key << button.toolTip;
        if (button.number >= 49)
            line << button.skin;
        text += line.end();
    }
    return text;
}

QByteArray displayLines(const Bitmaps& bitmaps)
{
    QByteArray text = comment("sliders: track, thumb's picture, tool tip");
    for (const SkinSlider& slider : bitmaps.sliders)
        text += (Line(numbered('S', slider.number)) << slider.track << slider.thumb << slider.toolTip).end();
    text += comment("displays: x, y, glyphs' x and y, cell, separator, style, gap, cells, tool tip");
    for (const SkinDisplay& display : bitmaps.displays) {
        const DisplayFont& font = display.font;
        text += (Line(numbered('D', display.number))
                 << display.place.topLeft() << font.origin << font.cell << font.separator << font.style
                 << font.gap << font.cells << display.toolTip)
                    .end();
    }
    return text;
}

QByteArray textLines(const Design& design)
{
    QByteArray text = comment("labels: x, y, w, h, colour, points, font, tool tip");
    for (const SkinLabel& label : design.labels)
        text += (Line(numbered('L', label.number)) << label.place)
                    .colour(label.colour)
                    .
                    operator<<(label.fontSize)
                    .
                    operator<<(label.font)
                    .
                    operator<<(label.toolTip)
                    .end();
    text += comment("state lights: x, y, w, h, colour, shape, a text that is not used");
    for (const SkinLight& light : design.lights)
        text += (Line(numbered('I', light.number)) << light.place)
                    .colour(light.colour)
                    .
                    operator<<(static_cast<int>(light.shape))
                    .
                    operator<<(QString())
                    .end();
    if (design.cover)
        text += (Line("C") << design.cover->place << design.cover->toolTip).end();
    if (design.playlist)
        text += (Line("X1") << design.playlist->place)
                    .colour(design.playlist->textColour)
                    .colour(design.playlist->backColour)
                    .
                    operator<<(design.playlist->fontSize)
                    .
                    operator<<(design.playlist->font)
                    .
                    operator<<(design.playlist->toolTip)
                    .end();
    return text;
}

} // namespace

QByteArray field(const QString& text)
{
    const bool quoted = text.contains(u',') || text != text.trimmed();
    return quoted ? '"' + text.toUtf8() + '"' : text.toUtf8();
}

QByteArray elementLines(const Design& design, const Bitmaps& bitmaps)
{
    return buttonLines(bitmaps) + displayLines(bitmaps) + textLines(design) + outlineLines(design.outline);
}

QByteArray controlFile(const Design& design, const Bitmaps& bitmaps)
{
    QByteArray text = "Tonedeck Skin, " + design.title.toUtf8() + "\r\n";
    for (const QSize& size : design.sizes)
        text += QByteArray::number(size.width()) + ',' + QByteArray::number(size.height()) + "\r\n";
    text += (design.file + u"-face.png,"_qs + design.file + u"-parts.png\r\n"_qs).toUtf8();
    text += QByteArray::number(design.hoverStyle) + ",0,0,0,0,0,0,0\r\n";
    for (const QString& line : design.about)
        text += "/," + line.toUtf8() + "\r\n";
    return text + elementLines(design, bitmaps) + "E\r\n";
}

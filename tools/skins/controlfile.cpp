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

} // namespace

QByteArray field(const QString& text)
{
    const bool quoted = text.contains(u',') || text != text.trimmed();
    return quoted ? '"' + text.toUtf8() + '"' : text.toUtf8();
}

// The comma ends the token, so that the rest of the line is this line's.
QByteArray commentLine(const QString& text)
{
    return ";," + text.toUtf8() + "\r\n";
}

QByteArray lineOf(const SkinButton& button)
{
    Line line(numbered('B', button.number));
    line << button.place << button.pressed << button.key << button.toolTip;
    if (button.number >= kPreviousSkinButton)
        line << button.skin;
    return line.end();
}

QByteArray lineOf(const SkinLabel& label)
{
    Line line(numbered('L', label.number));
    line << label.place;
    line.colour(label.colour) << label.fontSize << label.font << label.toolTip;
    return line.end();
}

QByteArray lineOf(const SkinLight& light)
{
    Line line(numbered('I', light.number));
    line << light.place;
    line.colour(light.colour) << static_cast<int>(light.shape) << QString();
    return line.end();
}

QByteArray lineOf(const SkinSlider& slider)
{
    Line line(numbered('S', slider.number));
    line << slider.track << slider.thumb << slider.toolTip;
    return line.end();
}

QByteArray lineOf(const SkinDisplay& display)
{
    const DisplayFont& font = display.font;
    Line line(numbered('D', display.number));
    line << display.place.topLeft() << font.origin << font.cell << font.separator << font.style << font.gap
         << font.cells << display.toolTip;
    return line.end();
}

QByteArray lineOf(const SkinCover& cover)
{
    return (Line("C") << cover.place << cover.toolTip).end();
}

QByteArray lineOf(const SkinPlaylist& playlist)
{
    Line line("X1");
    line << playlist.place;
    line.colour(playlist.textColour).colour(playlist.backColour)
        << playlist.fontSize << playlist.font << playlist.toolTip;
    return line.end();
}

QByteArray headerLines(const Design& design)
{
    QByteArray text = "Tonedeck Skin, " + design.title.toUtf8() + "\r\n";
    for (const QSize& size : design.sizes)
        text += QByteArray::number(size.width()) + ',' + QByteArray::number(size.height()) + "\r\n";
    return text;
}

QByteArray settingLines(const Design& design)
{
    QByteArray text = QByteArray::number(design.hoverStyle) + ",0,0,0,0,0,0,0\r\n";
    for (const QString& line : design.about)
        text += "/," + line.toUtf8() + "\r\n";
    return text;
}

QByteArray controlFile(const Design& design, const Bitmaps& bitmaps)
{
    QByteArray text = headerLines(design);
    text +=
        (design.file + u"-face.png,"_qs + design.file + u"-parts.png\r\n"_qs).toUtf8() + settingLines(design);
    text += commentLine(u"buttons: x, y, w, h, pressed picture's x and y, key, tool tip"_qs);
    text += linesOf(bitmaps.buttons);
    text += commentLine(u"sliders: track, thumb's picture, tool tip"_qs);
    text += linesOf(bitmaps.sliders);
    text += commentLine(u"displays: x, y, glyphs' x and y, cell, separator, style, gap, cells, tool tip"_qs);
    text += linesOf(bitmaps.displays);
    text += commentLine(u"labels: x, y, w, h, colour, points, font, tool tip"_qs);
    text += linesOf(design.labels);
    text += commentLine(u"state lights: x, y, w, h, colour, shape, a text that is not used"_qs);
    text += linesOf(design.lights);
    if (design.cover)
        text += lineOf(*design.cover);
    if (design.playlist)
        text += lineOf(*design.playlist);
    return text + outlineLines(design.outline) + "E\r\n";
}

#include "player/displays/displaytext.h"

#include <algorithm>

namespace {

enum FontStyle : int { kDigits, kAscii, kUpperAscii, kLetters };

constexpr QChar kBlank = u' ';

// Places glyphs from left to right. The offset is wide enough for anything that the cells can add up to.
class GlyphRow {
public:
    GlyphRow(const DisplayFont& font, int after, int before) : m_font(font), m_after(after), m_before(before)
    {
    }

    // Takes the columns of the table that come before the glyph, its row there, and its width.
    void add(int left, int row, int width)
    {
        const qint64 from = std::max<qint64>(m_offset, -qint64{m_before});
        const qint64 to = std::min<qint64>(m_offset + width, m_after);
        const int height = m_font.cell.height();
        if (from < to && height > 0 && m_pixels < kMostGlyphPixels) {
            const QPoint corner = m_font.origin + QPoint(left, row * height);
            m_glyphs.push_back({{corner, QSize(width, height)}, static_cast<int>(m_offset)});
            m_pixels += (to - from) * height;
        }
        m_offset += qint64{width} + m_font.gap;
    }
    void addCell(int column, int row)
    {
        const int width = m_font.cell.width();
        add(column * width, row, width);
    }
    std::vector<Glyph> take() { return std::move(m_glyphs); }

private:
    const DisplayFont& m_font;
    qint64 m_after;
    qint64 m_before;
    qint64 m_offset = 0;
    qint64 m_pixels = 0;
    std::vector<Glyph> m_glyphs;
};

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

QChar characterAt(const QString& text, int place)
{
    return place < text.size() ? text[place] : kBlank;
}

// Kept: blanks are no digits, so a number display that shows 0 shows nothing at all.
class DigitFont {
public:
    DigitFont(const DisplayFont& font, int blankedZeros) : m_font(font), m_blankedZeros(blankedZeros) {}

    void add(GlyphRow& row, QChar c, int place)
    {
        constexpr int kBlankGlyph = 10;
        constexpr int kPointGlyph = 11;
        constexpr int kColonGlyph = 12;
        if (c == u'.' || c == u':')
            addGlyph(row, c == u'.' ? kPointGlyph : kColonGlyph, m_font.separator);
        else if (!isDigit(c) || (c == u'0' && !m_digitSeen && place < m_blankedZeros))
            addGlyph(row, kBlankGlyph, m_font.cell.width());
        else
            addGlyph(row, c.unicode() - u'0', m_font.cell.width());
        m_digitSeen = m_digitSeen || (c >= u'1' && c <= u'9');
    }

private:
    void addGlyph(GlyphRow& row, int glyph, int width) { row.add(glyph * m_font.cell.width(), 0, width); }

    const DisplayFont& m_font;
    int m_blankedZeros;
    bool m_digitSeen = false;
};

void addDigits(GlyphRow& row, const DisplayFont& font, const DisplayText& text)
{
    DigitFont digits(font, text.blankedZeros);
    const qsizetype count = font.cells >= kFirstCountedCells ? font.cells : text.text.size();
    for (int place = 0; place < std::min<qsizetype>(count, kMostCells); ++place)
        digits.add(row, characterAt(text.text, place), place);
}

struct Cell {
    int column;
    int row;
};

Cell asciiCell(QChar c)
{
    constexpr int kColumns = 16;
    const int code = c.unicode() < u' ' || c.unicode() >= 128 ? u' ' : c.unicode();
    return {code % kColumns, code / kColumns - 2};
}

Cell letterCell(QChar c)
{
    constexpr QStringView kSigns = u":()-'!_+\\/[]^&%.=$#";
    constexpr int kFirstSign = 12;
    if (c >= u'A' && c <= u'Z')
        return {c.unicode() - u'A', 0};
    if (isDigit(c))
        return {c.unicode() - u'0', 1};
    if (const qsizetype sign = kSigns.indexOf(c); sign >= 0)
        return {static_cast<int>(sign) + kFirstSign, 1};
    switch (c.unicode()) {
    case u'"':
        return {27, 0};
    case u'@':
        return {8, 0}; // kept: the cell of "I"
    case u'?':
        return {3, 2};
    case u'*':
        return {4, 2};
    default:
        return {29, 0};
    }
}

// It goes letter by letter, so that no place moves; a letter whose capital is two letters stays.
void addCells(GlyphRow& row, const DisplayFont& font, const DisplayText& text)
{
    // The clock's cells are a code.
    const int cells = text.isClock ? static_cast<int>(text.text.size()) : std::min(font.cells, kMostCells);
    for (int place = 0; place < cells; ++place) {
        const QChar c = characterAt(text.text, place);
        const QChar shown = font.style == kAscii ? c : c.toUpper();
        const Cell cell = font.style == kLetters ? letterCell(shown) : asciiCell(shown);
        row.addCell(cell.column, cell.row);
    }
}

} // namespace

std::vector<Glyph> glyphsOf(const DisplayFont& font, const DisplayText& text, int after, int before)
{
    GlyphRow row(font, after, before);
    switch (font.style) {
    case kDigits:
        if (font.cells >= 0)
            addDigits(row, font, text);
        break;
    case kAscii:
    case kUpperAscii:
    case kLetters:
        addCells(row, font, text);
        break;
    default:
        break;
    }
    return row.take();
}

#include "toolkit/grids/textpainter.h"

#include <QPainter>

namespace {

constexpr char16_t kTableEnd = 0x2100; // Latin, Greek, Cyrillic, and the signs used with them
constexpr char16_t kEllipsis = 0x2026;

bool isBetween(char16_t c, char16_t first, char16_t last)
{
    return c >= first && c <= last;
}

} // namespace

TextPainter::TextPainter(const QFont& font)
    : m_font(QRawFont::fromFont(font)), m_glyphs(kTableEnd), m_known(kTableEnd)
{
}

// Is true for a character that is one glyph, goes from left to right, and neither joins nor stands above
// another.
bool TextPainter::isSimple(char16_t c) const
{
    return isBetween(c, 0x20, 0x7E) || isBetween(c, 0xA0, 0x2FF) || isBetween(c, 0x370, 0x482) ||
           isBetween(c, 0x48A, 0x52F) || isBetween(c, 0x1E00, 0x1EFF) || isBetween(c, 0x2010, 0x2027) ||
           isBetween(c, 0x20A0, 0x20BF);
}

const TextPainter::Glyph& TextPainter::glyphOf(char16_t c)
{
    static const Glyph none;
    if (c >= kTableEnd)
        return none;
    Glyph& glyph = m_glyphs[c];
    if (m_known[c])
        return glyph;
    m_known[c] = true;
    const QChar character(c);
    const QList<quint32> indexes =
        isSimple(c) && c != 0xAD ? m_font.glyphIndexesForString(QString(character)) : QList<quint32>();
    if (indexes.size() == 1 && indexes[0] != 0)
        glyph = {indexes[0], static_cast<float>(m_font.advancesForGlyphIndexes(indexes).constFirst().x())};
    return glyph;
}

bool TextPainter::add(QStringView text, QPointF at, qreal width)
{
    const qsizetype start = m_indexes.size();
    const Glyph& dots = glyphOf(kEllipsis);
    qreal x = 0;
    qsizetype lastFitting = start; // as many glyphs leave room for the dots
    qreal lastFittingX = 0;
    for (const QChar c : text) {
        const Glyph& glyph = glyphOf(c.unicode());
        if (glyph.index == 0 || dots.index == 0) {
            m_indexes.resize(start);
            m_positions.resize(start);
            return false;
        }
        if (x + dots.advance <= width) {
            lastFitting = m_indexes.size();
            lastFittingX = x;
        }
        if (x + glyph.advance > width) {
            m_indexes.resize(lastFitting);
            m_positions.resize(lastFitting);
            m_indexes.append(dots.index);
            m_positions.append(at + QPointF(lastFittingX, 0));
            return true;
        }
        m_indexes.append(glyph.index);
        m_positions.append(at + QPointF(x, 0));
        x += glyph.advance;
    }
    return true;
}

void TextPainter::draw(QPainter& painter)
{
    if (m_indexes.isEmpty())
        return;
    QGlyphRun run;
    run.setRawFont(m_font);
    run.setRawData(m_indexes.constData(), m_positions.constData(), static_cast<int>(m_indexes.size()));
    painter.drawGlyphRun(QPointF(0, 0), run);
    m_indexes.resize(0);
    m_positions.resize(0);
}

// Draws many short texts on one line each at once: their characters are placed by a table of widths, without
// what a text engine does for scripts that need it. Texts that do need it are not taken.
#pragma once

#include <QGlyphRun>
#include <QRawFont>
#include <QString>

#include <vector>

class QFont;
class QPainter;

class TextPainter {
public:
    explicit TextPainter(const QFont& font);

    // Places the text with its base line's left end there, cut with three dots where it is wider than the
    // width (pixels). It is false when it holds a character that is not drawn by a glyph of its own in this
    // font: nothing is placed then.
    bool add(QStringView text, QPointF at, qreal width);
    // Draws what was placed, in the painter's pen, and forgets it.
    void draw(QPainter& painter);

private:
    struct Glyph {
        quint32 index = 0; // 0: unknown yet, or not simple
        float advance = 0;
    };

    bool isSimple(char16_t c) const;
    const Glyph& glyphOf(char16_t c);

    QRawFont m_font;
    std::vector<Glyph> m_glyphs; // by character
    std::vector<bool> m_known;
    QList<quint32> m_indexes;
    QList<QPointF> m_positions;
};

// Measures the characters of the font that pages are painted in, on the screen, on paper and in exports.
#pragma once

#include "toolkit/pages/characterwidths.h"

#include <QFont>
#include <QFontMetricsF>

class FontWidths : public CharacterWidths {
public:
    FontWidths();

    const Table& table(bool bold) const override { return bold ? m_bold : m_plain; }
    int of(char32_t character, bool bold) const override;
    int ascent() const override;
    int lineHeight() const override;

private:
    QFontMetricsF m_plainMetrics;
    QFontMetricsF m_boldMetrics;
    Table m_plain;
    Table m_bold;
};

// Is unhinted and unkerned, so that it is as wide at every scale; the size is in pixels of the painter.
QFont pageFont(double size, bool bold);

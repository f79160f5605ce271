// Paints pages of a report. The painter's unit is a point, its origin the paper's upper left corner.
//
// Texts are plain texts in black, whatever they hold, and their lines go from left to right. What a script
// makes wider than its single characters are is squeezed into the field.
#pragma once

#include "toolkit/pages/charactertable.h"
#include "toolkit/pages/pageitem.h"

#include <QFont>

#include <memory>
#include <vector>

class QPainter;
class TextPainter;

// Is worth keeping from page to page, because it remembers the characters.
class PagePainter {
public:
    // The widths must outlive it.
    explicit PagePainter(const CharacterWidths& widths);
    ~PagePainter();

    void paint(QPainter& painter, const std::vector<PageItem>& items);

private:
    struct Texts; // of one size and weight, which are drawn at once

    Texts& textsOf(const ReportFont& font);
    double widthOf(const PageItem& item) const;
    void add(QPainter& painter, const PageItem& item);
    void drawByScript(QPainter& painter, const PageItem& item, const QFont& font) const;

    const CharacterWidths& m_widths;
    CharacterTable m_plain;
    CharacterTable m_bold;
    std::vector<std::unique_ptr<Texts>> m_texts;
};

void paintPage(QPainter& painter, const std::vector<PageItem>& items, const CharacterWidths& widths);

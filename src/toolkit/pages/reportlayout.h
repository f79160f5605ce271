// Places a report's bands on pages by arithmetic: how many pages there are is known at once, and each can be
// made alone. Pages count from 1, rows from 0, lengths are points from the paper's upper left corner.
//
// A band is never split unless it is longer than a page; a group's header never is the last on its page; an
// empty report is one page with its headers and footers.
#pragma once

#include "platform/paper.h"
#include "toolkit/pages/report.h"

#include <QRectF>

#include <vector>

class CharacterWidths;

// Is one line of a field's text, or a rule.
struct PageItem {
    QRectF place; // of the line; as wide as the field
    QString text{};
    ReportFont font{};
    FieldAlign align = FieldAlign::Left;
    bool isRule = false;
    const ReportField* field = nullptr; // of the design
    int row = -1;                       // whose column it shows
    int line = 0;                       // of the field, counted from 0
    qsizetype start = 0;                // of the line in the cell of row and field, in bytes
};

class ReportLayout {
public:
    // Report and widths must outlive it.
    ReportLayout(const Report& report, const CharacterWidths& widths, const Paper& paper);

    int pages() const { return static_cast<int>(m_firstRows.size()); }
    int pageOf(int row) const; // on which the row begins
    // Returns the first row that begins on the page or behind it; the number of rows where none does.
    int firstRowOf(int page) const;
    std::vector<PageItem> page(int number) const;
    const Paper& paper() const { return m_paper; }

private:
    const Report& m_report;
    const CharacterWidths& m_widths;
    Paper m_paper;
    std::vector<int> m_firstRows;
};

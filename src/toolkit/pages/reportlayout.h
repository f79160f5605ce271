// Places a report's bands on pages by arithmetic: how many pages there are is known at once, and each can be
// made alone. Pages count from 1, rows from 0, lengths are points from the paper's upper left corner.
//
// The report's header stands on the first page, above the page's header. A band is never split unless it is
// longer than a page; a group's header never is the last on its page; an empty report is one page with its
// headers and footers. On a paper too low for rows between them the pages have no headers and footers.
#pragma once

#include "platform/paper.h"
#include "toolkit/pages/pageitem.h"

#include <memory>
#include <vector>

class CharacterWidths;
struct Report;

class ReportLayout {
public:
    // Report and widths must outlive it.
    ReportLayout(const Report& report, const CharacterWidths& widths, const Paper& paper);
    ~ReportLayout();
    ReportLayout(ReportLayout&&) noexcept;
    ReportLayout& operator=(ReportLayout&&) noexcept;

    int pages() const;
    int pageOf(int row) const; // on which the row begins, or the header of the group that it begins
    // On which that byte of the row's cell stands that the field of the report's design shows. It is told
    // by one pass over the cell, however many pages that takes.
    int pageOf(int row, const ReportField& field, qsizetype byte) const;
    // Returns the first row that begins on the page or behind it; the number of rows where none does.
    int firstRowOf(int page) const;
    std::vector<PageItem> page(int number) const;
    const Paper& paper() const { return m_paper; }

private:
    struct Prepared;

    Paper m_paper;
    std::unique_ptr<Prepared> m_prepared;
};

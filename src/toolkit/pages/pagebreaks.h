// Lets the bands of a report follow one another and tells which page each begins on.
#pragma once

#include "toolkit/pages/bandlayout.h"
#include "toolkit/pages/rowheights.h"

#include <compare>

// Are in the order in which those of one row follow one another.
enum class BandKind : quint8 { ReportHeader, GroupHeader, Detail, GroupFooter, ReportFooter, End };

struct BandPlace {
    int row = 0; // the last one's at the end
    BandKind kind = BandKind::ReportHeader;
    int slice = 0; // of the band, with which a page begins

    auto operator<=>(const BandPlace&) const = default;
    bool isSameBand(const BandPlace& other) const { return row == other.row && kind == other.kind; }
    int shownRow() const; // -1 for the report's own bands, which show no columns
};

struct ReportBands {
    ReportBands(const ReportDesign& design, const BandSetting& setting);

    BandPlace first() const;
    BandPlace firstOf(int row) const;
    BandPlace after(const BandPlace& place) const;
    // Returns the place of the byte of the cell that the field shows.
    BandPlace placeOf(int row, const ReportField& field, qsizetype byte) const;
    const BandLayout& at(BandKind kind) const;
    PageLength height(const BandPlace& place) const;

    const ReportRows& rows;
    BandLayout reportHeader;
    BandLayout pageHeader;
    BandLayout groupHeader;
    BandLayout detail;
    BandLayout groupFooter;
    BandLayout pageFooter;
    BandLayout reportFooter;
    bool isHeaderFramed = true; // the report's header stands above the first page's and not among the rows
    bool hasGroups;
};

// Tells what is left of a page for its rows.
struct PageFrame {
    PageLength firstTop;
    PageLength top; // of the other pages
    PageLength bottom;

    PageLength room() const { return bottom - top; }
    // A higher band is cut.
    bool isCut(PageLength height) const { return height > room(); }
};

// Returns where each page begins. Heights may hold those of the rows' details, which are measured otherwise
// where it is shorter, or kNotMeasured.
std::vector<BandPlace> breakPages(const ReportBands& bands, const PageFrame& frame,
                                  const RowHeights& heights);

#include "toolkit/pages/reportlayout.h"

#include "toolkit/pages/pagebreaks.h"

#include <algorithm>
#include <cmath>

namespace {

// A number of pages that no report has stands for all of them, so that headers and footers are as high on
// each page.
FieldValues longestValues(const Report& report)
{
    const QString number = QStringLiteral("8888888");
    return {report.date, report.design.title, number, number};
}

// Margins may leave nothing of the paper.
QRectF insideOf(const Paper& paper)
{
    QRectF inside = paper.inside();
    inside.setWidth(std::max(inside.width(), 1.0));
    inside.setHeight(std::max(inside.height(), 1.0));
    return inside;
}

PageLength leastRoom(const ReportBands& bands)
{
    return std::max({bands.groupHeader.firstSlice(), bands.detail.firstSlice(),
                     bands.groupFooter.firstSlice(), bands.reportFooter.firstSlice()});
}

} // namespace

struct ReportLayout::Prepared {
    Prepared(const Report& report, const CharacterWidths& widths, const Paper& paper);

    void setFrame();
    int pageOf(const BandPlace& place) const;
    void placeAbove(int number, BandLayout::Placing& placing) const;
    void placeBody(int number, BandLayout::Placing& placing) const;

    const Report& report;
    CharacterTable plain;
    CharacterTable bold;
    BandSetting setting;
    ReportBands bands;
    bool hasPageBands = true;
    PageFrame frame{};
    std::vector<BandPlace> starts;
};

ReportLayout::Prepared::Prepared(const Report& of, const CharacterWidths& widths, const Paper& paper)
    : report(of), plain(widths, false),
      bold(widths, true), setting{*of.rows, widths, plain, bold, insideOf(paper), longestValues(of)},
      bands(of.design, setting)
{
    setFrame();
    starts = breakPages(bands, frame, rowheights::measure(of.design.detail, bands.detail, setting));
}

void ReportLayout::Prepared::setFrame()
{
    frame.top = static_cast<PageLength>(std::ceil(setting.inside.top() * kPagePoint));
    frame.bottom = static_cast<PageLength>(setting.inside.bottom() * kPagePoint);
    const PageLength header = bands.pageHeader.height(-1);
    const PageLength footer = bands.pageFooter.height(-1);
    hasPageBands = header + footer + leastRoom(bands) <= frame.room();
    if (hasPageBands) {
        frame.top += header;
        frame.bottom -= footer;
    }
    const PageLength reportHeader = bands.reportHeader.height(-1);
    bands.isHeaderFramed = reportHeader + leastRoom(bands) <= frame.room();
    frame.firstTop = bands.isHeaderFramed ? frame.top + reportHeader : frame.top;
}

void ReportLayout::Prepared::placeBody(int number, BandLayout::Placing& placing) const
{
    const auto at = static_cast<std::size_t>(number);
    const BandPlace end = at < starts.size() ? starts[at] : BandPlace{0, BandKind::End};
    for (BandPlace place = starts[at - 1]; place.kind != BandKind::End; place = bands.after(place)) {
        const bool isLast = end.isSameBand(place);
        if (isLast && end.slice == 0)
            return;
        const BandSlices slices{place.slice, isLast ? end.slice : BandSlices::kAll,
                                frame.isCut(bands.height(place))};
        bands.at(place.kind).place(place.shownRow(), slices, placing);
        if (isLast)
            return;
    }
}

ReportLayout::ReportLayout(const Report& report, const CharacterWidths& widths, const Paper& paper)
    : m_paper(paper), m_prepared(std::make_unique<Prepared>(report, widths, paper))
{
}

ReportLayout::~ReportLayout() = default;
ReportLayout::ReportLayout(ReportLayout&&) noexcept = default;
ReportLayout& ReportLayout::operator=(ReportLayout&&) noexcept = default;

int ReportLayout::pages() const
{
    return static_cast<int>(m_prepared->starts.size());
}

int ReportLayout::Prepared::pageOf(const BandPlace& place) const
{
    const auto behind = std::upper_bound(starts.begin(), starts.end(), place);
    return std::max(1, static_cast<int>(behind - starts.begin()));
}

int ReportLayout::pageOf(int row) const
{
    return m_prepared->report.rows->count() == 0 ? 1 : m_prepared->pageOf(m_prepared->bands.firstOf(row));
}

int ReportLayout::pageOf(int row, const ReportField& field, qsizetype byte) const
{
    return m_prepared->pageOf(m_prepared->bands.placeOf(row, field, byte));
}

int ReportLayout::firstRowOf(int page) const
{
    const int row = m_prepared->starts[static_cast<std::size_t>(page - 1)].row;
    const int count = m_prepared->report.rows->count();
    return row < count && pageOf(row) < page ? row + 1 : row;
}

void ReportLayout::Prepared::placeAbove(int number, BandLayout::Placing& placing) const
{
    const PageLength top = number == 1 ? frame.firstTop : frame.top;
    const PageLength header = hasPageBands ? bands.pageHeader.height(-1) : 0;
    if (number == 1 && bands.isHeaderFramed) {
        placing.top = frame.top - header;
        bands.reportHeader.place(-1, {}, placing);
    }
    placing.top = top - header;
    if (hasPageBands)
        bands.pageHeader.place(-1, {}, placing);
    placing.top = top;
}

std::vector<PageItem> ReportLayout::page(int number) const
{
    const Prepared& prepared = *m_prepared;
    std::vector<PageItem> items;
    BandLayout::Placing placing{0,
                                {prepared.report.date, prepared.report.design.title, QString::number(number),
                                 QString::number(pages())},
                                items};
    prepared.placeAbove(number, placing);
    prepared.placeBody(number, placing);
    placing.top = prepared.frame.bottom;
    if (prepared.hasPageBands)
        prepared.bands.pageFooter.place(-1, {}, placing);
    return items;
}

#include "toolkit/pages/pagebreaks.h"

namespace {

class PageBreaker {
public:
    PageBreaker(const ReportBands& bands, const PageFrame& frame, const RowHeights& heights)
        : m_bands(bands), m_frame(frame), m_heights(heights)
    {
    }

    std::vector<BandPlace> run()
    {
        BandPlace place = m_bands.first();
        m_starts.push_back(place);
        for (; place.kind != BandKind::End; place = m_bands.after(place))
            add(place);
        m_starts.shrink_to_fit();
        return std::move(m_starts);
    }

private:
    void add(const BandPlace& place)
    {
        const PageLength height = heightOf(place);
        makeRoom(place, needed(place, height));
        if (!m_frame.isCut(height))
            m_top += height;
        else
            m_bands.at(place.kind)
                .visitSlices(place.shownRow(), [this, next = place](PageLength slice) mutable {
                    makeRoom(next, slice);
                    m_top += slice;
                    ++next.slice;
                });
    }

    PageLength heightOf(const BandPlace& place) const
    {
        const auto row = static_cast<std::size_t>(place.row);
        const bool isMeasured = place.kind == BandKind::Detail && row < m_heights.size() &&
                                m_heights[row] != rowheights::kNotMeasured;
        return isMeasured ? m_heights[row] : m_bands.height(place);
    }

    // Returns how much of the band, and of what stays with it, must fit below what stands there.
    PageLength needed(const BandPlace& place, PageLength height) const
    {
        if (m_frame.isCut(height))
            return m_bands.at(place.kind).firstSlice();
        if (place.kind != BandKind::GroupHeader)
            return height;
        const BandPlace detail = m_bands.after(place);
        const PageLength together = height + needed(detail, heightOf(detail));
        return m_frame.isCut(together) ? height : together;
    }

    // A page that holds nothing yet is left all the same when the next one has more room.
    void makeRoom(const BandPlace& place, PageLength height)
    {
        if (m_top + height <= m_frame.bottom || m_top == m_frame.top)
            return;
        m_starts.push_back(place);
        m_top = m_frame.top;
    }

    const ReportBands& m_bands;
    PageFrame m_frame;
    const RowHeights& m_heights;
    PageLength m_top = m_frame.firstTop;
    std::vector<BandPlace> m_starts;
};

} // namespace

int BandPlace::shownRow() const
{
    return kind == BandKind::ReportHeader || kind == BandKind::ReportFooter ? -1 : row;
}

ReportBands::ReportBands(const ReportDesign& design, const BandSetting& setting)
    : rows(setting.rows), reportHeader(design.reportHeader, setting), pageHeader(design.pageHeader, setting),
      groupHeader(design.groupHeader, setting), detail(design.detail, setting),
      groupFooter(design.groupFooter, setting), pageFooter(design.pageFooter, setting),
      reportFooter(design.reportFooter, setting), hasGroups(!groupHeader.isEmpty() || !groupFooter.isEmpty())
{
}

BandPlace ReportBands::first() const
{
    if (!isHeaderFramed)
        return {0, BandKind::ReportHeader};
    return rows.count() > 0 ? firstOf(0) : BandPlace{0, BandKind::ReportFooter};
}

BandPlace ReportBands::firstOf(int row) const
{
    return {row, hasGroups && rows.beginsGroup(row) ? BandKind::GroupHeader : BandKind::Detail};
}

BandPlace ReportBands::after(const BandPlace& place) const
{
    const int next = place.row + 1;
    switch (place.kind) {
    case BandKind::ReportHeader:
        return rows.count() > 0 ? firstOf(0) : BandPlace{0, BandKind::ReportFooter};
    case BandKind::GroupHeader:
        return {place.row, BandKind::Detail};
    case BandKind::Detail:
        if (hasGroups && (next == rows.count() || rows.beginsGroup(next)))
            return {place.row, BandKind::GroupFooter};
        [[fallthrough]];
    case BandKind::GroupFooter:
        return next < rows.count() ? firstOf(next) : BandPlace{place.row, BandKind::ReportFooter};
    case BandKind::ReportFooter:
    case BandKind::End:
        break;
    }
    return {place.row, BandKind::End};
}

BandPlace ReportBands::placeOf(int row, const ReportField& field, qsizetype byte) const
{
    for (const BandKind kind : {BandKind::GroupHeader, BandKind::Detail, BandKind::GroupFooter})
        if (const std::optional<int> slice = at(kind).sliceOf(row, field, byte))
            return {row, kind, *slice};
    return firstOf(row);
}

const BandLayout& ReportBands::at(BandKind kind) const
{
    switch (kind) {
    case BandKind::ReportHeader:
        return reportHeader;
    case BandKind::GroupHeader:
        return groupHeader;
    case BandKind::Detail:
        return detail;
    case BandKind::GroupFooter:
        return groupFooter;
    case BandKind::ReportFooter:
    case BandKind::End:
        break;
    }
    return reportFooter;
}

PageLength ReportBands::height(const BandPlace& place) const
{
    return at(place.kind).height(place.shownRow());
}

std::vector<BandPlace> breakPages(const ReportBands& bands, const PageFrame& frame, const RowHeights& heights)
{
    return PageBreaker(bands, frame, heights).run();
}

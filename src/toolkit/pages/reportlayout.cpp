#include "toolkit/pages/reportlayout.h"

#include "toolkit/pages/characterwidths.h"
#include "toolkit/pages/reportrows.h"

#include <algorithm>

namespace {

constexpr int kRowsOnPage = 50;

} // namespace

ReportLayout::ReportLayout(const Report& report, const CharacterWidths& widths, const Paper& paper)
    : m_report(report), m_widths(widths), m_paper(paper)
{
    for (int row = 0; row == 0 || row < report.rows->count(); row += kRowsOnPage)
        m_firstRows.push_back(row);
}

int ReportLayout::pageOf(int row) const
{
    return row / kRowsOnPage + 1;
}

int ReportLayout::firstRowOf(int page) const
{
    return m_firstRows[static_cast<std::size_t>(page - 1)];
}

std::vector<PageItem> ReportLayout::page(int number) const
{
    std::vector<PageItem> items;
    const QRectF inside = m_paper.inside();
    const int end = std::min(firstRowOf(number) + kRowsOnPage, m_report.rows->count());
    double y = inside.top();
    for (int row = firstRowOf(number); row < end; ++row)
        for (const ReportStrip& strip : m_report.design.detail) {
            const double height = strip.fields[0].font.size * m_widths.lineHeight() / CharacterWidths::kUnits;
            for (const ReportField& field : strip.fields) {
                const auto cell =
                    field.column < 0 ? ReportRows::Cell() : m_report.rows->cell(row, field.column);
                const QRectF place(inside.left() + inside.width() * field.left / 1000, y,
                                   inside.width() * field.width / 1000, height);
                items.push_back({.place = place,
                                 .text = cell ? QString::fromUtf8(*cell) : field.text,
                                 .font = field.font,
                                 .align = field.align,
                                 .field = &field,
                                 .row = row});
            }
            y += height;
        }
    return items;
}

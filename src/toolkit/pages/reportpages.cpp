#include "toolkit/pages/reportpages.h"

#include "toolkit/pages/pagepainter.h"
#include "toolkit/pages/reportlayout.h"

ReportPages::ReportPages(const Report& report, const CharacterWidths& widths)
    : m_report(report), m_widths(widths)
{
}

ReportPages::~ReportPages() = default;

int ReportPages::layOut(const Paper& paper)
{
    m_layout = std::make_unique<ReportLayout>(m_report, m_widths, paper);
    return m_layout->pages();
}

void ReportPages::paintPage(QPainter& painter, int page)
{
    ::paintPage(painter, m_layout->page(page), m_widths);
}

std::unique_ptr<ReportLayout> ReportPages::takeLayout()
{
    return std::move(m_layout);
}

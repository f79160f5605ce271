#include "toolkit/pages/pagecolumn.h"

#include <algorithm>

PageColumn::PageColumn(int pageHeight, int pages, int gap)
    : m_pageHeight(std::max(pageHeight, 1)), m_pages(std::max(pages, 1)), m_gap(gap)
{
}

std::int64_t PageColumn::height() const
{
    return top(m_pages + 1);
}

std::int64_t PageColumn::top(int page) const
{
    return std::int64_t{page - 1} * (m_pageHeight + m_gap) + m_gap;
}

int PageColumn::pageAt(std::int64_t y) const
{
    const std::int64_t page = std::max<std::int64_t>(y, 0) / (m_pageHeight + m_gap) + 1;
    return static_cast<int>(std::min<std::int64_t>(page, m_pages));
}

int PageColumn::mostSeen(std::int64_t viewTop, int viewHeight) const
{
    if (viewTop > 0 && viewTop + viewHeight >= height())
        return m_pages;
    int best = pageAt(viewTop);
    const int last = pageAt(viewTop + viewHeight);
    for (int page = best + 1; page <= last; ++page)
        if (seen(page, viewTop, viewHeight) > seen(best, viewTop, viewHeight))
            best = page;
    return best;
}

std::int64_t PageColumn::seen(int page, std::int64_t viewTop, int viewHeight) const
{
    const std::int64_t from = std::max(top(page), viewTop);
    const std::int64_t to = std::min(top(page) + m_pageHeight, viewTop + viewHeight);
    return to - from;
}

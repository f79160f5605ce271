// Says where pages stand that lie below one another, with a gap round each. Lengths are pixels; pages count
// from 1, and there is at least one.
#pragma once

#include <cstdint>

class PageColumn {
public:
    PageColumn(int pageHeight, int pages, int gap);

    int pages() const { return m_pages; }
    std::int64_t height() const;
    std::int64_t top(int page) const;
    // Returns the page that lies there or below; the last one at the end.
    int pageAt(std::int64_t y) const;
    // Returns the page of which a view at that place shows most, the upper one of two alike; at the column's
    // end the last.
    int mostSeen(std::int64_t viewTop, int viewHeight) const;

private:
    std::int64_t seen(int page, std::int64_t viewTop, int viewHeight) const;

    int m_pageHeight;
    int m_pages;
    int m_gap;
};

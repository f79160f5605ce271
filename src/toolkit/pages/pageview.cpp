#include "toolkit/pages/pageview.h"

#include "toolkit/pages/reportlayout.h"
#include "toolkit/pages/reportrows.h"

#include <QScrollBar>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr int kGap = 18; // round each page, pixels
constexpr double kPointsPerInch = 72;
constexpr std::array kLevels{0.25, 0.33, 0.5, 0.67, 0.75, 0.9, 1.0, 1.1, 1.25, 1.5, 1.75, 2.0, 2.5, 3.0, 4.0};
constexpr std::int64_t kLongestBar = 1'000'000'000;
constexpr std::size_t kKeptPages = 12;
constexpr double kRoomRoundHit = 60; // pixels

// Returns how far a view has to go so that a stretch of it comes into the room.
double wayInto(double from, double to, double room)
{
    if (from < kRoomRoundHit)
        return from - kRoomRoundHit;
    return to > room - kRoomRoundHit ? std::min(to - room + kRoomRoundHit, from - kRoomRoundHit) : 0;
}

} // namespace

PageView::PageView(QWidget* parent) : QAbstractScrollArea(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::NoFrame);
    setViewportMargins(2, 2, 2, 2); // for the focus
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(200, 160);
}

void PageView::showPages(const ShownPages& pages)
{
    m_pages = pages;
    m_painter.emplace(*pages.widths);
    m_finder = nullptr;
    m_current.reset();
    m_items.clear();
    m_marks.clear();
    m_zoom = fittingZoom();
    m_page = 1;
    rearrange({});
    scrollTo(0);
    Q_EMIT pageChanged();
    Q_EMIT zoomChanged();
}

void PageView::changeLayout(const ReportLayout& layout)
{
    m_pages.layout = &layout;
    m_items.clear();
    m_marks.clear();
    m_zoom = fittingZoom();
    rearrange({});
    Q_EMIT zoomChanged();
}

double PageView::pixelsPerPoint() const
{
    return m_zoom * logicalDpiX() / kPointsPerInch;
}

PageColumn PageView::column() const
{
    const double height = m_pages.layout ? m_pages.layout->paper().size.height() : 1;
    return {qRound(height * pixelsPerPoint()), m_pages.layout ? m_pages.layout->pages() : 1, kGap};
}

std::int64_t PageView::top() const
{
    return verticalScrollBar()->value() * m_pixelsPerStep;
}

void PageView::scrollTo(std::int64_t top)
{
    const std::int64_t last = verticalScrollBar()->maximum();
    verticalScrollBar()->setValue(static_cast<int>(std::clamp<std::int64_t>(top / m_pixelsPerStep, 0, last)));
}

QRectF PageView::placeOfPage(int page) const
{
    const QSizeF size = m_pages.layout->paper().size * pixelsPerPoint();
    const double spare = std::max((viewport()->width() - size.width()) / 2, double{kGap});
    const double left = std::floor(spare) - horizontalScrollBar()->value();
    return {QPointF(left, static_cast<double>(column().top(page) - top())), size};
}

void PageView::goToPage(int page)
{
    const PageColumn pages = column();
    page = std::clamp(page, 1, pages.pages());
    m_steered = true;
    scrollTo(pages.top(page) - kGap);
    m_steered = false;
    setPage(page);
}

void PageView::setPage(int page)
{
    if (page == m_page)
        return;
    m_page = page;
    Q_EMIT pageChanged();
}

void PageView::setFit(Fit fit)
{
    m_fit = fit;
    applyZoom(fittingZoom(), {});
    if (fit == Fit::Page)
        goToPage(m_page); // the whole of it
}

void PageView::setZoom(double zoom)
{
    m_fit = Fit::None;
    applyZoom(zoom, QPointF(viewport()->rect().center()));
}

void PageView::applyZoom(double zoom, QPointF seen)
{
    const Anchor anchor = anchorAt(seen);
    m_zoom = std::clamp(zoom, kLevels.front(), kLevels.back());
    rearrange(anchor);
    Q_EMIT zoomChanged();
}

void PageView::zoomBy(int steps)
{
    for (; steps != 0; steps += steps > 0 ? -1 : 1)
        setZoom(nextLevel(steps));
}

double PageView::nextLevel(int direction) const
{
    constexpr double kAlmost = 0.005;
    if (direction > 0) {
        const auto above = std::ranges::upper_bound(kLevels, m_zoom + kAlmost);
        return above == kLevels.end() ? kLevels.back() : *above;
    }
    const auto level = std::ranges::lower_bound(kLevels, m_zoom - kAlmost);
    return level == kLevels.begin() ? kLevels.front() : *std::prev(level);
}

double PageView::fittingZoom() const
{
    if (m_fit == Fit::None || !m_pages.layout)
        return m_zoom;
    const QSizeF paper = m_pages.layout->paper().size * logicalDpiX() / kPointsPerInch;
    // The bar counts as if it were there: else it would come and go.
    const int bar = verticalScrollBar()->isVisible() ? 0 : verticalScrollBar()->sizeHint().width();
    const double width = (viewport()->width() - bar - 2.0 * kGap) / paper.width();
    const double height = (viewport()->height() - 2.0 * kGap) / paper.height();
    return std::clamp(m_fit == Fit::Width ? width : std::min(width, height), kLevels.front(), kLevels.back());
}

PageView::Anchor PageView::anchorAt(QPointF seen) const
{
    if (!m_pages.layout)
        return {};
    const int page = column().pageAt(top() + qRound(seen.y()));
    return {seen, page, (seen - placeOfPage(page).topLeft()) / pixelsPerPoint()};
}

// The page that was told stays the one that is told.
void PageView::rearrange(const Anchor& anchor)
{
    if (!m_pages.layout)
        return;
    m_steered = true;
    const PageColumn pages = column();
    m_pixelsPerStep = pages.height() / kLongestBar + 1;
    const std::int64_t hidden = std::max<std::int64_t>(pages.height() - viewport()->height(), 0);
    verticalScrollBar()->setRange(0, static_cast<int>((hidden + m_pixelsPerStep - 1) / m_pixelsPerStep));
    verticalScrollBar()->setPageStep(std::max(viewport()->height() / static_cast<int>(m_pixelsPerStep), 1));
    verticalScrollBar()->setSingleStep(3 * fontMetrics().height());
    const int width = qRound(m_pages.layout->paper().size.width() * pixelsPerPoint()) + 2 * kGap;
    horizontalScrollBar()->setRange(0, std::max(width - viewport()->width(), 0));
    horizontalScrollBar()->setPageStep(viewport()->width());
    const QPointF now = placeOfPage(anchor.page).topLeft() + anchor.spot * pixelsPerPoint();
    scrollTo(top() + qRound64(now.y() - anchor.seen.y()));
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + qRound(now.x() - anchor.seen.x()));
    m_steered = false;
    viewport()->update();
}

void PageView::resizeEvent(QResizeEvent*)
{
    const Anchor anchor = anchorAt({});
    const double before = std::exchange(m_zoom, fittingZoom());
    rearrange(anchor);
    if (m_fit == Fit::Page)
        goToPage(m_page);
    if (before != m_zoom)
        Q_EMIT zoomChanged();
}

void PageView::scrollContentsBy(int dx, int dy)
{
    const double scale = devicePixelRatioF();
    if (m_pixelsPerStep == 1 && scale == std::floor(scale))
        viewport()->scroll(dx, dy);
    else
        viewport()->update();
    if (!m_steered && m_pages.layout)
        setPage(column().mostSeen(top(), viewport()->height()));
}

const std::vector<PageItem>& PageView::items(int page) const
{
    if (m_items.size() > kKeptPages && !m_items.contains(page))
        m_items.clear();
    const auto [place, isNew] = m_items.try_emplace(page);
    if (isNew)
        place->second = m_pages.layout->page(page);
    return place->second;
}

const std::vector<HitMark>& PageView::marks(int page)
{
    if (m_marks.size() > kKeptPages && !m_marks.contains(page))
        m_marks.clear();
    const auto [place, isNew] = m_marks.try_emplace(page);
    if (isNew && m_finder)
        place->second = hitMarks(items(page), *m_pages.rows, *m_finder);
    return place->second;
}

void PageView::setFinder(const TextFinder* finder)
{
    m_finder = finder;
    m_current.reset();
    m_marks.clear();
    viewport()->update();
}

const HitMark* PageView::markOf(const TextFinder::Hit& hit, int page)
{
    const std::vector<HitMark>& all = marks(page);
    const auto found = std::ranges::find(all, hit, &HitMark::hit);
    return found == all.end() ? nullptr : &*found;
}

void PageView::showMark(const HitMark& mark, int page)
{
    const double scale = pixelsPerPoint();
    const QRectF place(placeOfPage(page).topLeft() + mark.place.topLeft() * scale, mark.place.size() * scale);
    QScrollBar& across = *horizontalScrollBar();
    m_steered = true;
    scrollTo(top() + qRound64(wayInto(place.top(), place.bottom(), viewport()->height())));
    across.setValue(across.value() + qRound(wayInto(place.left(), place.right(), viewport()->width())));
    m_steered = false;
    setPage(page);
}

// A hit that begins with a blank at the end of a page is first seen on the next one.
void PageView::goToHit(const TextFinder::Hit& hit)
{
    m_current = hit;
    viewport()->update();
    const ReportLayout& layout = *m_pages.layout;
    const int first = layout.pageOf(hit.row, *hit.field, hit.start);
    const int last = layout.pageOf(hit.row, *hit.field, hit.start + hit.size - 1);
    for (int page = first; page <= last; ++page)
        if (const HitMark* mark = markOf(hit, page))
            return showMark(*mark, page);
    goToPage(first);
}

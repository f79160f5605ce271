// Paints the pages that are seen.
#include "toolkit/pages/pageview.h"

#include <QPaintEvent>
#include <QPainter>

namespace {

constexpr int kShadow = 7; // pixels

bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() < 128;
}

QColor groundOf(const QPalette& palette)
{
    return isDark(palette) ? QColor(0x45, 0x48, 0x4d) : QColor(0xb9, 0xbd, 0xc3);
}

// It lies a little deeper than the page, as in a room with light from above.
void paintShadow(QPainter& painter, const QRectF& page)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 10));
    for (int width = kShadow; width > 0; --width)
        painter.drawRoundedRect(page.translated(0, 2).adjusted(-width, -width, width, width), width, width);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setBrush(Qt::NoBrush);
}

} // namespace

bool PageView::event(QEvent* event)
{
    const bool done = QAbstractScrollArea::event(event);
    if (event->type() == QEvent::Paint && m_showsFocus) {
        QPainter painter(this);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.drawRect(viewport()->geometry().adjusted(-1, -1, 1, 1));
    }
    return done;
}

void PageView::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    const QRect area = event->rect();
    painter.fillRect(area, groundOf(palette()));
    if (!m_pages.layout)
        return;
    const PageColumn pages = column();
    const int last = pages.pageAt(top() + area.bottom() + kShadow);
    for (int page = pages.pageAt(top() + area.top() - kShadow); page <= last; ++page)
        paintOne(painter, page, area);
}

void PageView::paintOne(QPainter& painter, int page, const QRect& area)
{
    const QRectF place = placeOfPage(page);
    paintShadow(painter, place);
    painter.fillRect(place, Qt::white);
    const double scale = pixelsPerPoint();
    const QRectF wanted((QPointF(area.topLeft()) - place.topLeft()) / scale, QSizeF(area.size()) / scale);
    std::vector<PageItem> seen;
    for (const PageItem& item : items(page))
        if (item.place.adjusted(-1, -item.place.height(), 1, item.place.height() + 1).intersects(wanted))
            seen.push_back(item);
    painter.save();
    painter.setClipRect(place);
    painter.translate(place.topLeft());
    painter.scale(scale, scale);
    paintMarks(painter, page);
    m_painter->paint(painter, seen);
    painter.restore();
}

void PageView::paintMarks(QPainter& painter, int page)
{
    if (!m_finder)
        return;
    for (const HitMark& mark : marks(page)) {
        const bool isCurrent = m_current && mark.hit == *m_current;
        const QRectF place = mark.place.adjusted(-0.7, 0, 0.7, 0);
        painter.fillRect(place, isCurrent ? QColor(0xff, 0xa6, 0x3d) : QColor(0xff, 0xec, 0x8a));
        if (!isCurrent)
            continue;
        painter.setPen(QPen(QColor(0x9c, 0x45, 0x00), 0.8));
        painter.drawRect(place);
    }
}

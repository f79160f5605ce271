// Takes the keys and the wheel.
#include "toolkit/pages/pageview.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int kLines = 3; // at a press of an arrow
constexpr int kOverlap = 40;
constexpr int kStep = QWheelEvent::DefaultDeltasPerStep; // a fine wheel tells parts of it

} // namespace

// A click needs no frame: it shows by itself where it went.
void PageView::focusInEvent(QFocusEvent* event)
{
    const Qt::FocusReason reason = event->reason();
    m_showsFocus = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason;
    update();
    QAbstractScrollArea::focusInEvent(event);
}

void PageView::focusOutEvent(QFocusEvent* event)
{
    m_showsFocus = false;
    update();
    QAbstractScrollArea::focusOutEvent(event);
}

// Where a whole page is seen they turn pages.
void PageView::turn(int direction)
{
    const int room = viewport()->height();
    if (m_pages.layout && placeOfPage(1).height() <= room)
        goToPage(m_page + direction);
    else
        scrollBy(0, direction * std::max(room - kOverlap, 1));
}

void PageView::scrollBy(int dx, int dy)
{
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + dx);
    scrollTo(top() + dy);
}

void PageView::keyPressEvent(QKeyEvent* event)
{
    if (!handleKey(*event))
        event->ignore();
}

bool PageView::handleKey(const QKeyEvent& key)
{
    const int lines = kLines * fontMetrics().height();
    const bool isBack = key.modifiers() & Qt::ShiftModifier;
    switch (key.key()) {
    case Qt::Key_PageDown:
        return turn(1), true;
    case Qt::Key_PageUp:
        return turn(-1), true;
    case Qt::Key_Space:
        return turn(isBack ? -1 : 1), true;
    case Qt::Key_Home:
        return goToPage(1), true;
    case Qt::Key_End:
        return goToPage(column().pages()), scrollTo(column().height()), true;
    case Qt::Key_Up:
        return scrollBy(0, -lines), true;
    case Qt::Key_Down:
        return scrollBy(0, lines), true;
    case Qt::Key_Left:
        return scrollBy(-lines, 0), true;
    case Qt::Key_Right:
        return scrollBy(lines, 0), true;
    default:
        return false;
    }
}

// With Ctrl the page grows and shrinks round the pointer.
void PageView::wheelEvent(QWheelEvent* event)
{
    if (!(event->modifiers() & Qt::ControlModifier))
        return QAbstractScrollArea::wheelEvent(event);
    m_wheel += event->angleDelta().y();
    for (; std::abs(m_wheel) >= kStep; m_wheel -= m_wheel > 0 ? kStep : -kStep) {
        m_fit = Fit::None;
        applyZoom(nextLevel(m_wheel), event->position());
    }
    event->accept();
}

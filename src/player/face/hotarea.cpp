#include "player/face/hotarea.h"

#include <QFocusEvent>
#include <QMouseEvent>
#include <QPainter>

HotArea::HotArea(int number, QWidget* parent)
    : QAbstractButton(parent), OnFace(static_cast<QWidget&>(*this)), m_number(number)
{
    setFocusPolicy(Qt::TabFocus); // a click leaves the keyboard where it is
    setMouseTracking(true);
    lookChanged();
}

void HotArea::setBorder(bool on)
{
    if (m_border == on)
        return;
    m_border = on;
    lookChanged();
}

void HotArea::setOpaque(bool on)
{
    if (m_opaque == on)
        return;
    m_opaque = on;
    lookChanged();
}

// A repaint of the window asks only those that show something.
void HotArea::lookChanged()
{
    setUpdatesEnabled(showsSomething());
    if (parentWidget())
        parentWidget()->update(geometry());
}

void HotArea::mouseMoveEvent(QMouseEvent* event)
{
    event->accept();
    Q_EMIT hovered();
}

void HotArea::mousePressEvent(QMouseEvent* event)
{
    event->setAccepted(event->button() == Qt::LeftButton);
    if (event->isAccepted())
        Q_EMIT mousePressed();
}

// Kept: it counts wherever the pointer is meanwhile.
void HotArea::mouseReleaseEvent(QMouseEvent* event)
{
    event->setAccepted(event->button() == Qt::LeftButton);
    if (event->isAccepted())
        Q_EMIT mouseReleased();
}

void HotArea::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
}

void HotArea::focusInEvent(QFocusEvent* event)
{
    m_focusShown = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    QAbstractButton::focusInEvent(event);
    lookChanged();
}

void HotArea::focusOutEvent(QFocusEvent* event)
{
    m_focusShown = false;
    QAbstractButton::focusOutEvent(event);
    lookChanged();
}

// It has two tones, so that they stand out on any face.
void HotArea::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (m_opaque) {
        painter.fillRect(rect(), QColor(0xE6, 0xE6, 0xE6));
        painter.setPen(Qt::black);
        painter.drawText(rect(), Qt::AlignCenter, QString::number(m_number));
    }
    const QRect edge = rect().adjusted(0, 0, -1, -1);
    if (m_focusShown) {
        painter.setPen(Qt::black);
        painter.drawRect(edge);
        painter.setPen(Qt::white);
        painter.drawRect(edge.adjusted(1, 1, -1, -1));
    } else if (m_border) {
        painter.setPen(Qt::black);
        painter.drawRect(edge);
        QPen light(Qt::white, 1, Qt::CustomDashLine);
        light.setDashPattern({3, 3});
        painter.setPen(light);
        painter.drawRect(edge);
    }
}

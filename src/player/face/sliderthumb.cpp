#include "player/face/sliderthumb.h"

#include <QAccessible>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>

#include <map>

void SliderThumb::setValue(float value)
{
    if (value == m_value)
        return;
    m_value = value;
    if (!QAccessible::isActive())
        return;
    QAccessibleValueChangeEvent event(this, static_cast<double>(value));
    QAccessible::updateAccessibility(&event);
}

void SliderThumb::paintOnFace(QPainter& painter) const
{
    PictureBox::paintOnFace(painter);
    if (!m_focusShown)
        return;
    painter.setPen(Qt::black);
    painter.drawRect(place().adjusted(0, 0, -1, -1));
    painter.setPen(Qt::white);
    painter.drawRect(place().adjusted(1, 1, -2, -2));
}

void SliderThumb::keyPressEvent(QKeyEvent* event)
{
    static const std::map<int, float> changes = {
        {Qt::Key_Left, -0.05F},    {Qt::Key_Right, 0.05F}, {Qt::Key_Down, -0.05F}, {Qt::Key_Up, 0.05F},
        {Qt::Key_PageDown, -0.2F}, {Qt::Key_PageUp, 0.2F}, {Qt::Key_Home, -1.0F},  {Qt::Key_End, 1.0F}};
    if (const auto change = changes.find(event->key()); change != changes.end())
        Q_EMIT stepped(change->second);
    else
        PictureBox::keyPressEvent(event);
}

void SliderThumb::focusInEvent(QFocusEvent* event)
{
    m_focusShown = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    tellChange();
}

void SliderThumb::focusOutEvent(QFocusEvent*)
{
    m_focusShown = false;
    tellChange();
}

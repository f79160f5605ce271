#include "player/tonedeck/windowdrag.h"

#include "player/tonedeck/windowplacement.h"

#include <QWidget>

#include <utility>

void WindowDrag::press(QPoint place)
{
    if (m_dragging)
        return;
    m_grab = place - m_window.pos();
    m_dragging = true;
}

void WindowDrag::move(QPoint place)
{
    if (m_dragging)
        m_window.move(place - m_grab);
}

void WindowDrag::release()
{
    if (std::exchange(m_dragging, false))
        SnapWindow(m_window, m_settings);
}

#include "toolkit/widgets/windowing.h"

#include <QGuiApplication>
#include <QRegion>
#include <QScreen>
#include <QWidget>
#include <QWindow>

// QWidget::setWindowFlag would hide a shown window and make it again. The widget is told too, so that a
// window that is made later is made so.
void setTopmost(QWidget& widget, bool topmost)
{
    QWidget& window = *widget.window();
    Qt::WindowFlags flags = window.windowFlags();
    window.overrideWindowFlags(flags.setFlag(Qt::WindowStaysOnTopHint, topmost));
    if (QWindow* handle = window.windowHandle())
        handle->setFlag(Qt::WindowStaysOnTopHint, topmost);
}

// The screen is found by where it lies: a window that was not shown yet is told the first screen whatever its
// place.
QRect workArea(const QWidget& widget)
{
    const QWidget& window = *widget.window();
    const QScreen* screen = QGuiApplication::screenAt(window.geometry().center());
    return (screen ? screen : window.screen())->availableGeometry();
}

void setWindowOutline(QWidget& widget, const std::vector<QRect>& rectangles)
{
    QWidget& window = *widget.window();
    QRegion region;
    for (const QRect& rectangle : rectangles)
        region += rectangle;
    if (region.isEmpty())
        window.clearMask();
    else
        window.setMask(region);
    window.update(); // the outline reaches the screen with the next paint
}

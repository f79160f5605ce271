#include "toolkit/widgets/drawing.h"

#include <QPainter>
#include <QSvgRenderer>
#include <QTimer>
#include <QWidget>

const QPixmap& Drawing::pixmapFor(QWidget& widget)
{
    if (m_pixmap.size() != widget.size() * widget.devicePixelRatioF())
        QTimer::singleShot(0, &widget, [this, &widget] { redraw(widget); });
    return m_pixmap;
}

void Drawing::redraw(QWidget& widget)
{
    const qreal scale = widget.devicePixelRatioF();
    m_pixmap = QPixmap(widget.size() * scale);
    m_pixmap.setDevicePixelRatio(scale);
    m_pixmap.fill(Qt::transparent);
    QSvgRenderer renderer(m_resource);
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    QPainter painter(&m_pixmap);
    renderer.render(&painter, QRectF(QPointF(0, 0), QSizeF(widget.size())));
    painter.end();
    widget.update();
}

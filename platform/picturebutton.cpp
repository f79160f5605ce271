#include "platform/picturebutton.h"

#include <QPainter>
#include <QStyleOptionFocusRect>
#include <QSvgRenderer>

namespace {

constexpr qreal kDisabledOpacity = 0.55;

QPixmap draw(const QString& picture, const QSize& size, qreal scale)
{
    QPixmap pixmap(size * scale);
    pixmap.setDevicePixelRatio(scale);
    pixmap.fill(Qt::transparent);
    QSvgRenderer renderer(picture);
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    QPainter painter(&pixmap);
    renderer.render(&painter, QRectF(QPointF(0, 0), QSizeF(size)));
    return pixmap;
}

} // namespace

PictureButton::PictureButton(QString picture, QWidget* parent) : QAbstractButton(parent), m_picture(std::move(picture))
{
    setFocusPolicy(Qt::StrongFocus);
}

void PictureButton::paintEvent(QPaintEvent*)
{
    if (m_drawn.size() != size() * devicePixelRatioF())
        m_drawn = draw(m_picture, size(), devicePixelRatioF());
    QPainter painter(this);
    painter.setOpacity(isEnabled() ? 1.0 : kDisabledOpacity);
    painter.drawPixmap(isDown() ? 1 : 0, isDown() ? 1 : 0, m_drawn);
    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
}

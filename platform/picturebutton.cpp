#include "platform/picturebutton.h"

#include <QPainter>
#include <QStyleOptionFocusRect>
#include <QSvgRenderer>
#include <QTimer>

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

PictureButton::PictureButton(QString picture, QWidget* parent)
    : QAbstractButton(parent), m_picture(std::move(picture))
{
    setFocusPolicy(Qt::StrongFocus);
}

void PictureButton::redraw()
{
    m_drawn = draw(m_picture, size(), devicePixelRatioF());
    update();
}

void PictureButton::paintEvent(QPaintEvent*)
{
    // Drawn behind the first painting, so that a window is there before its decoration is.
    if (m_drawn.size() != size() * devicePixelRatioF())
        QTimer::singleShot(0, this, [this] { redraw(); });
    QPainter painter(this);
    painter.setOpacity(isEnabled() ? 1.0 : kDisabledOpacity);
    painter.drawPixmap(isDown() ? 1 : 0, isDown() ? 1 : 0, m_drawn);
    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
}

#include "toolkit/widgets/picturebutton.h"

#include <QPainter>
#include <QStyleOptionFocusRect>

namespace {

constexpr qreal kDisabledOpacity = 0.4;

} // namespace

PictureButton::PictureButton(const QString& resource, QWidget* parent)
    : QAbstractButton(parent), m_drawing(resource)
{
    setFocusPolicy(Qt::StrongFocus);
}

void PictureButton::paintEvent(QPaintEvent*)
{
    const int shift = isDown() ? 1 : 0;
    QPainter painter(this);
    painter.setOpacity(isEnabled() ? 1.0 : kDisabledOpacity);
    painter.drawPixmap(shift, shift, m_drawing.pixmapFor(*this));
    if (!hasFocus())
        return;
    QStyleOptionFocusRect option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

#include "toolkit/widgets/picture.h"

#include <QPainter>

Picture::Picture(const QString& resource, int side, QWidget* parent) : QWidget(parent), m_drawing(resource)
{
    setFixedSize(side, side);
}

void Picture::paintEvent(QPaintEvent*)
{
    QPainter(this).drawPixmap(0, 0, m_drawing.pixmapFor(*this));
}

#include "player/face/faceitems.h"

#include "player/face/facepicture.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace {

// Squares and circles lie in the middle of their place.
QRect shapeArea(LightShape shape, const QRect& place)
{
    const bool even =
        shape == LightShape::Square || shape == LightShape::Circle || shape == LightShape::RoundedSquare;
    if (!even)
        return place;
    const int side = std::min(place.width(), place.height());
    return {place.x() + (place.width() - side) / 2, place.y() + (place.height() - side) / 2, side, side};
}

QImage canvas(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::black);
    return image;
}

} // namespace

QColor colourOf(SkinColour colour)
{
    return QColor(static_cast<int>(colour & 0xFF), static_cast<int>(colour >> 8 & 0xFF),
                  static_cast<int>(colour >> 16 & 0xFF));
}

bool FaceItem::event(QEvent* event)
{
    if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent)
        tellPlace();
    return QWidget::event(event);
}

void FaceItem::takePlace()
{
    OnFace::takePlace();
    tellPlace();
}

void FaceItem::tellPlace()
{
    const QRect before = m_told;
    m_told = isHidden() ? QRect() : place();
    if (before == m_told)
        return;
    if (!before.isEmpty())
        Q_EMIT changed(before);
    if (!m_told.isEmpty())
        Q_EMIT changed(m_told);
}

PictureBox::PictureBox(QWidget* parent) : FaceItem(parent)
{
    setMouseTracking(true);
}

void PictureBox::setPicture(const QImage& picture)
{
    m_picture = picture;
    tellChange();
}

void PictureBox::setPictureSize(QSize size)
{
    QImage image = canvas(size);
    copyPixels(image, {}, m_picture, m_picture.rect());
    setPicture(image);
}

void PictureBox::takePart(const QImage& source, const QRect& part)
{
    QImage image = canvas(part.size());
    copyPixels(image, {}, source, part);
    setPicture(image);
}

void PictureBox::takePartAt(QPoint to, const QImage& source, const QRect& part)
{
    copyPixels(m_picture, to, source, part);
    tellChange();
}

void PictureBox::setSunk(bool sunk)
{
    if (m_sunk == sunk)
        return;
    m_sunk = sunk;
    tellChange();
}

// What sinks leaves its own upper and left edge behind.
void PictureBox::paintOnFace(QPainter& painter) const
{
    const QRect part(QPoint(), place().size());
    painter.drawImage(place().topLeft(), m_picture, part);
    if (!m_sunk)
        return;
    painter.drawImage(place().topLeft() + QPoint(1, 1), m_picture, part.adjusted(0, 0, -1, -1));
    painter.fillRect(place(), QColor(0, 0, 0, 50));
}

void PictureBox::mousePressEvent(QMouseEvent* event)
{
    event->setAccepted(event->button() == Qt::LeftButton);
    if (event->isAccepted())
        Q_EMIT mousePressed(event->position().toPoint());
}

void PictureBox::mouseMoveEvent(QMouseEvent* event)
{
    if (!(event->buttons() & Qt::LeftButton))
        Q_EMIT mouseMovedFree();
    Q_EMIT mouseMoved(event->position().toPoint());
}

void PictureBox::mouseReleaseEvent(QMouseEvent* event)
{
    event->setAccepted(event->button() == Qt::LeftButton);
    if (event->isAccepted())
        Q_EMIT mouseReleased();
}

void StateLight::setLook(LightShape shape, const QColor& colour)
{
    m_shape = shape;
    m_colour = colour;
    tellChange();
}

void StateLight::paintOnFace(QPainter& painter) const
{
    const QRect area = shapeArea(m_shape, place());
    const bool round = m_shape == LightShape::Oval || m_shape == LightShape::Circle;
    const bool rounded = m_shape == LightShape::RoundedRectangle || m_shape == LightShape::RoundedSquare;
    painter.setRenderHint(QPainter::Antialiasing, round || rounded);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_colour);
    const qreal radius = std::min(area.width(), area.height()) / 4.0;
    if (round)
        painter.drawEllipse(area);
    else if (rounded)
        painter.drawRoundedRect(area, radius, radius);
    else
        painter.drawRect(area);
}

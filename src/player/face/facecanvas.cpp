#include "player/face/facecanvas.h"

#include "player/face/faceitems.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

FaceCanvas::FaceCanvas(QWidget* parent)
    : QWidget(parent), m_picture([this](QImage& picture, const QRect& area) { paintItems(picture, area); })
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
}

void FaceCanvas::setItems(std::vector<FaceItem*> items)
{
    m_items = std::move(items);
    for (FaceItem* item : m_items)
        connect(item, &FaceItem::changed, this, &FaceCanvas::refresh);
}

void FaceCanvas::reset(const FaceScale& scale, const QImage& background)
{
    m_scale = scale;
    m_picture.reset(scale.face(), background);
    update();
}

QRect FaceCanvas::paint(QPoint to, const QImage& source, const QRect& from)
{
    return m_picture.paint(to, source, from);
}

void FaceCanvas::bare(const QRegion& area)
{
    m_picture.bare(area);
}

void FaceCanvas::refresh(const QRect& area)
{
    m_picture.compose(area);
    update(m_scale.onWindow(area).adjusted(-1, -1, 1, 1)); // pixels at its edges show part of it
}

void FaceCanvas::paintItems(QImage& picture, const QRect& area) const
{
    QPainter painter; // begun for the first one: a display's change seldom meets any
    for (const FaceItem* item : m_items) {
        if (item->isHidden() || !item->place().intersects(area))
            continue;
        if (!painter.isActive()) {
            painter.begin(&picture);
            painter.setClipRect(area);
        }
        painter.save();
        item->paintOnFace(painter);
        painter.restore();
    }
}

void FaceCanvas::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        Q_EMIT pressed(event->globalPosition().toPoint());
}

void FaceCanvas::mouseMoveEvent(QMouseEvent* event)
{
    if (!(event->buttons() & Qt::LeftButton))
        Q_EMIT movedFree();
    Q_EMIT moved(event->globalPosition().toPoint());
}

void FaceCanvas::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        Q_EMIT released();
}

void FaceCanvas::leaveEvent(QEvent*)
{
    Q_EMIT left();
}

// It paints at the screen's own pixels, so that they are copied as they are.
void FaceCanvas::paintEvent(QPaintEvent* event)
{
    const qreal factor = devicePixelRatioF();
    const QImage& picture = m_picture.scaled(factor * m_scale.factor());
    QPainter painter(this);
    painter.setClipRegion(event->region());
    painter.scale(1 / factor, 1 / factor);
    painter.drawImage(QPoint(), picture);
}

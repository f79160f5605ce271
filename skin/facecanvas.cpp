#include "skin/facecanvas.h"

#include "skin/faceitems.h"

#include <QPaintEvent>
#include <QPainter>

FaceCanvas::FaceCanvas(QWidget* parent)
    : QWidget(parent), m_picture([this](QPainter& painter, const QRect& area) { paintItems(painter, area); })
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void FaceCanvas::setItems(std::vector<FaceItem*> items)
{
    m_items = std::move(items);
    for (FaceItem* item : m_items)
        connect(item, &FaceItem::changed, this, &FaceCanvas::refresh);
}

void FaceCanvas::reset(QSize size, const QImage& background)
{
    m_picture.reset(size, background);
    update();
}

QRect FaceCanvas::paint(QPoint to, const QImage& source, const QRect& from)
{
    return m_picture.paint(to, source, from);
}

void FaceCanvas::refresh(const QRect& area)
{
    m_picture.compose(area);
    update(area);
}

void FaceCanvas::paintItems(QPainter& painter, const QRect& area) const
{
    for (const FaceItem* item : m_items)
        if (!item->isHidden() && item->geometry().intersects(area)) {
            painter.save();
            item->paintOnFace(painter);
            painter.restore();
        }
}

// The part that lies on whole pixels of the screen at any factor: the exposed one, copied pixel by pixel.
void FaceCanvas::paintEvent(QPaintEvent* event)
{
    const QImage& picture = m_picture.scaled(devicePixelRatioF());
    QPainter painter(this);
    painter.setClipRegion(event->region());
    painter.drawImage(QPoint(), picture);
}

// Keeps an SVG drawing of the resources as pixels at the size and scale of its last painting.
#pragma once

#include <QPixmap>
#include <QString>

class QWidget;

class Drawing {
public:
    explicit Drawing(QString resource) : m_resource(std::move(resource)) {}

    // Gives nothing at the first painting and, right behind it, the drawing: a window does not wait for its
    // decoration.
    const QPixmap& pixmapFor(QWidget& widget);

private:
    void redraw(QWidget& widget);

    QString m_resource;
    QPixmap m_pixmap;
};

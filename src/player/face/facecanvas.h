// Covers the window's whole inner area and shows the composed face, scaled by the screen's factor and the
// window's.
#pragma once

#include "player/face/facepicture.h"
#include "player/face/facescale.h"

#include <QWidget>

#include <vector>

class FaceItem;

class FaceCanvas : public QWidget {
    Q_OBJECT

public:
    explicit FaceCanvas(QWidget* parent = nullptr);

    // They come from the lowest to the highest, and have to be children of this one.
    void setItems(std::vector<FaceItem*> items);

    void reset(const FaceScale& scale, const QImage& background);
    // Places are the face's.
    QRect paint(QPoint to, const QImage& source, const QRect& from); // not shown before refresh()
    void bare(const QRegion& area);
    void refresh(const QRect& area);

    const QImage& composed() const { return m_picture.composed(); }

Q_SIGNALS:                      // places are the screen's
    void pressed(QPoint place); // the left button, where nothing else takes it
    void moved(QPoint place);
    void movedFree(); // while nothing is held
    void released();
    void left(); // by the pointer, with everything on it

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void paintItems(QImage& picture, const QRect& area) const;

    std::vector<FaceItem*> m_items;
    FacePicture m_picture;
    FaceScale m_scale{};
};

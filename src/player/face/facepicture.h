// Composes the player's face at the skin's own pixels, then scales it as a whole, by the screen's factor and
// so that the screen has room for it. Each pixel of the scaled picture takes the mean of the face under it,
// so that whole factors are sharp and no other has seams; it depends on nothing but its place, so that a part
// that is scaled anew fits what is round it.
#pragma once

#include <QImage>
#include <QRect>
#include <QRegion>

#include <functional>

class FacePicture {
public:
    // Paints what lies on the face and is scaled with it into a rectangle of it.
    using PaintItems = std::function<void(QImage& picture, const QRect& area)>;

    explicit FacePicture(PaintItems paintItems) : m_paintItems(std::move(paintItems)) {}

    // The face is black where the background does not reach.
    void reset(QSize size, const QImage& background);
    QSize size() const { return m_face.size(); }

    // Copies a rectangle of another picture onto the face itself, below the items; tells what it changed.
    QRect paint(QPoint to, const QImage& source, const QRect& from);
    // Shows the background again where something was painted onto it.
    void bare(const QRegion& area);
    // Has to be called after the items of a rectangle have changed.
    void compose(const QRect& area);

    const QImage& composed() const { return m_composed; }
    // Returns everything at that factor, which is above 0.
    const QImage& scaled(qreal factor);

private:
    void scale(const QRect& area);
    void repeatPixels(const QRect& area, int factor);
    void enlarge(const QRect& target);
    void reduce(const QRect& target);

    PaintItems m_paintItems;
    QImage m_background; // of the face's size
    QImage m_face;
    QImage m_composed;
    QImage m_scaled; // null while the factor is 1
    qreal m_factor = 1;
};

// The copy is opaque and clipped on both sides; both pictures have 32 bits a pixel. It tells what changed.
QRect copyPixels(QImage& target, QPoint to, const QImage& source, const QRect& from);

// Knows how large the window shows the face: at the face's own pixels, or smaller as a whole where the screen
// has no room for it.
#pragma once

#include <QRect>

class FaceScale {
public:
    // Takes the face's own size, and the largest that it gets in any size mode: folding does not change the
    // factor.
    void fit(QSize face, QSize largest, QSize room);

    QSize face() const { return m_face; }
    qreal factor() const { return m_factor; } // 1 at most

    QSize window() const; // what the face takes
    // They give whole pixels of the window; places that meet on the face meet there too, and none vanishes.
    QRect onWindow(const QRect& face) const;
    QPoint onWindow(QPoint face) const; // the nearest pixel, of any point
    QPoint onFace(QPoint window) const;

private:
    QSize m_face{};
    qreal m_factor = 1;
};

// Returns 1, or how much smaller a face has to be shown.
qreal fittingFactor(QSize face, QSize room);

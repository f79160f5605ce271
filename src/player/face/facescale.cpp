#include "player/face/facescale.h"

#include <algorithm>
#include <cmath>

namespace {

int rounded(qreal value)
{
    return static_cast<int>(std::lround(value));
}

int cutOff(int length, qreal factor)
{
    constexpr qreal kNoise = 1e-6; // of the multiplication: what is whole stays whole
    return std::max(1, static_cast<int>(length * factor + kNoise));
}

} // namespace

qreal fittingFactor(QSize face, QSize room)
{
    if (face.isEmpty() || room.isEmpty())
        return 1;
    return std::min({1.0, static_cast<qreal>(room.width()) / face.width(),
                     static_cast<qreal>(room.height()) / face.height()});
}

void FaceScale::fit(QSize face, QSize largest, QSize room)
{
    m_face = face;
    m_factor = fittingFactor(largest, room);
}

// It is cut off and not rounded: at no edge would the scaled picture be too small for the window.
QSize FaceScale::window() const
{
    return {cutOff(m_face.width(), m_factor), cutOff(m_face.height(), m_factor)};
}

QRect FaceScale::onWindow(const QRect& face) const
{
    const int left = rounded(face.x() * m_factor);
    const int top = rounded(face.y() * m_factor);
    const int right = rounded((face.x() + face.width()) * m_factor);
    const int bottom = rounded((face.y() + face.height()) * m_factor);
    return {left, top, std::max(1, right - left), std::max(1, bottom - top)};
}

QPoint FaceScale::onWindow(QPoint face) const
{
    return {rounded(face.x() * m_factor), rounded(face.y() * m_factor)};
}

QPoint FaceScale::onFace(QPoint window) const
{
    return {rounded(window.x() / m_factor), rounded(window.y() / m_factor)};
}

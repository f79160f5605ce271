// Is a control with a place on the face, at the face's own pixels. Its widget lies where the window shows
// that.
#pragma once

#include "player/face/facescale.h"

#include <QWidget>

class OnFace {
public:
    explicit OnFace(QWidget& widget) : m_widget(widget) {}
    virtual ~OnFace() = default;
    OnFace(const OnFace&) = delete;
    OnFace& operator=(const OnFace&) = delete;

    const QRect& place() const { return m_place; }
    void setPlace(const QRect& place)
    {
        m_place = place;
        takePlace();
    }
    void setScale(const FaceScale& scale)
    {
        m_scale = scale;
        takePlace();
    }

protected:
    qreal factor() const { return m_scale.factor(); }
    // Is called after the place or the scale has changed.
    virtual void takePlace() { m_widget.setGeometry(m_scale.onWindow(m_place)); }

private:
    QWidget& m_widget;
    QRect m_place{};
    FaceScale m_scale{};
};

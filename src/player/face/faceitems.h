// These parts of the face are composed with it: they are widgets for place, visibility and the pointer, and
// paint nothing themselves; what shows of them is drawn into the face at its own pixels.
#pragma once

#include "player/face/onface.h"
#include "player/skin/skinelements.h"

#include <QImage>
#include <QWidget>

class QPainter;

class FaceItem : public QWidget, public OnFace {
    Q_OBJECT

public:
    explicit FaceItem(QWidget* parent = nullptr) : QWidget(parent), OnFace(static_cast<QWidget&>(*this)) {}

    virtual void paintOnFace(QPainter& painter) const = 0; // at the face's coordinates

Q_SIGNALS:
    void changed(const QRect& area); // of the face

protected:
    bool event(QEvent* event) override;
    void takePlace() override;
    void tellChange() { Q_EMIT changed(place()); }

private:
    void tellPlace();

    QRect m_told{}; // where it was shown
};

// Is a picture box: a slider's thumb, a pressed button, a bitmap that is never shown.
class PictureBox : public FaceItem {
    Q_OBJECT

public:
    explicit PictureBox(QWidget* parent = nullptr);

    const QImage& picture() const { return m_picture; }
    void setPicture(const QImage& picture);
    // Makes a canvas of that size, black where the picture does not reach.
    void setPictureSize(QSize size);
    // Makes a canvas of the part's size, black where the source does not reach.
    void takePart(const QImage& source, const QRect& part);
    // Paints onto the canvas that there is.
    void takePartAt(QPoint to, const QImage& source, const QRect& part);
    // Shows it lower and darker, whatever the picture is.
    void setSunk(bool sunk);

    void paintOnFace(QPainter& painter) const override;

Q_SIGNALS:
    void mousePressed(QPoint place); // the left button; places are its own
    void mouseMoved(QPoint place);   // while it is down, and before
    void mouseMovedFree();           // while nothing is held
    void mouseReleased();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QImage m_picture;
    bool m_sunk = false;
};

// Is a light that shows a state.
class StateLight : public FaceItem {
    Q_OBJECT

public:
    using FaceItem::FaceItem;

    void setLook(LightShape shape, const QColor& colour);
    void paintOnFace(QPainter& painter) const override;

private:
    LightShape m_shape = LightShape::Rectangle;
    QColor m_colour;
};

// Knows where a display is, and whether it is there; what it shows is painted on the face, and said by its
// description.
class DisplayMark : public QWidget, public OnFace {
    Q_OBJECT

public:
    explicit DisplayMark(QWidget* parent = nullptr) : QWidget(parent), OnFace(static_cast<QWidget&>(*this)) {}
};

QColor colourOf(SkinColour colour);

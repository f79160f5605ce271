// Is a place of the face that can be pressed. At rest it shows nothing: its picture is part of the face.
#pragma once

#include "player/face/onface.h"

#include <QAbstractButton>

class HotArea : public QAbstractButton, public OnFace {
    Q_OBJECT

public:
    HotArea(int number, QWidget* parent);

    int number() const { return m_number; }

    void setBorder(bool on); // a single line round it
    void setOpaque(bool on); // a plain area with its number, for who makes a skin
    bool hasBorder() const { return m_border; }
    bool isOpaque() const { return m_opaque; }

Q_SIGNALS:
    void hovered();
    void mousePressed(); // the left button
    void mouseReleased();

protected:
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool showsSomething() const { return m_border || m_opaque || m_focusShown; }
    void lookChanged();

    const int m_number;
    bool m_border = false;
    bool m_opaque = false;
    bool m_focusShown = false;
};

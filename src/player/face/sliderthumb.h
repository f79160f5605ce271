// Is a slider's thumb. It can be dragged, and moved by the keyboard while it has the focus.
#pragma once

#include "player/face/faceitems.h"

class SliderThumb : public PictureBox {
    Q_OBJECT

public:
    using PictureBox::PictureBox;

    float value() const { return m_value; } // from 0 to 1
    void setValue(float value);

    void paintOnFace(QPainter& painter) const override;

Q_SIGNALS:
    void stepped(float change); // by the keyboard, or by what reads the screen

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    float m_value = 0;
    bool m_focusShown = false;
};

// Is a drawing that can be pressed, by mouse or keyboard. It is dimmed while disabled.
#pragma once

#include "toolkit/widgets/drawing.h"

#include <QAbstractButton>

class PictureButton : public QAbstractButton {
    Q_OBJECT

public:
    explicit PictureButton(const QString& resource, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Drawing m_drawing;
};

// Is a drawing that decorates a window. It takes no focus and no click.
#pragma once

#include "toolkit/widgets/drawing.h"

#include <QWidget>

class Picture : public QWidget {
    Q_OBJECT

public:
    Picture(const QString& resource, int side, QWidget* parent = nullptr); // a square of that many pixels

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Drawing m_drawing;
};

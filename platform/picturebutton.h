// A drawing that can be pressed. It keeps its proportions inside the button and is dimmed while disabled.
#pragma once

#include <QAbstractButton>
#include <QPixmap>

class PictureButton : public QAbstractButton {
    Q_OBJECT

public:
    explicit PictureButton(QString picture, QWidget* parent = nullptr); // a resource of an SVG drawing

    QSize sizeHint() const override { return {160, 60}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void redraw();

    QString m_picture;
    QPixmap m_drawn; // at the size and scale of the last painting
};

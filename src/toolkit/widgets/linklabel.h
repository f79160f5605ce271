// Is a label that is pressed like a link, by mouse or keyboard; its text is what it shows, not markup.
#pragma once

#include <QLabel>

class LinkLabel : public QLabel {
    Q_OBJECT

public:
    explicit LinkLabel(const QString& text, QWidget* parent = nullptr);

Q_SIGNALS:
    void clicked();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

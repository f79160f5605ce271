// Is a line of text of any length that tells a double click.
#pragma once

#include <QLineEdit>

class TextField : public QLineEdit {
    Q_OBJECT

public:
    explicit TextField(QWidget* parent = nullptr);

Q_SIGNALS:
    void doubleClicked();

protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;
};

// Is the line in which a reader types what to find on the pages, and sees how often it is there.
#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class QToolButton;

class FindBar : public QWidget {
    Q_OBJECT

public:
    explicit FindBar(QWidget* parent = nullptr);

    QLineEdit* txtFind;
    QToolButton* cmdFindPrevious;
    QToolButton* cmdFindNext;
    QLabel* lblFound; // "12 of 340"
    QToolButton* cmdFindClose;

    void open(); // or back into its box

Q_SIGNALS:
    void textChanged(); // a moment ago: the reader stopped typing
    void next();
    void previous();
    void closed();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;
};

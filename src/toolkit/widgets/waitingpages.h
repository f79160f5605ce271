// Is the line of a window that printed something: the pages wait for the program's end, and a button beside
// sends them to the printer now. The window shows it for as long as that is so.
#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

class WaitingPages : public QWidget {
    Q_OBJECT

public:
    explicit WaitingPages(QWidget* parent = nullptr);

    QLabel* lblWaitingPages;
    QPushButton* cmdPrintNow;
};

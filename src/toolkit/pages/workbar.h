// Is the line in which a window shows how far long work is, and which ends it.
#pragma once

#include "base/throttle.h"

#include <QWidget>

class Program;
class QLabel;
class QProgressBar;
class QPushButton;

class WorkBar : public QWidget {
    Q_OBJECT

public:
    explicit WorkBar(QWidget* parent = nullptr);

    QLabel* lblWork;
    QProgressBar* prgWork;
    QPushButton* cmdCancel;

    void begin(const QString& text);
    // Shows the share that is done, 0 to 1, and lets the windows live. It is false when the work is to end.
    bool goesOn(double share, Program& program);
    void end();

    void cancel() { m_isCancelled = true; }
    bool isCancelled() const { return m_isCancelled; }
    bool isWorking() const { return m_isWorking; }

private:
    Throttle m_pace;
    bool m_isWorking = false;
    bool m_isCancelled = false;
};

// Is a box that comes up when something takes its time, and ends it: by Escape, its button or its own
// closing. The windows are drawn meanwhile and take nothing else.
#pragma once

#include "base/throttle.h"

#include <QPointer>
#include <QString>

class Program;
class QDialog;

class StopBox {
public:
    StopBox(Program& program, QString title, QString text);
    ~StopBox();
    StopBox(const StopBox&) = delete;
    StopBox& operator=(const StopBox&) = delete;

    // Is asked again and again by what takes its time. It is false when it was stopped or the program is
    // ending.
    bool goesOn();
    bool isStopped() const { return m_stopped; }
    void hide();

private:
    void show();

    Program& m_program;
    QString m_title;
    QString m_text;
    Throttle::Clock::time_point m_begin = Throttle::Clock::now();
    Throttle m_throttle;
    QPointer<QDialog> m_box;
    bool m_stopped = false;
};

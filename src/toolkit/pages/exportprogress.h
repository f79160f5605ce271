// Tells how far an export is, and hears that it is to end.
#pragma once

#include <QElapsedTimer>

#include <functional>

class ExportProgress {
public:
    static constexpr qint64 kPause = 50; // milliseconds between two that are told

    explicit ExportProgress(const std::function<bool(double)>& told, qint64 pause = kPause)
        : m_told(told), m_pause(pause)
    {
        m_timer.start();
    }

    // It is false for ever once the work is to end. It may be asked as often as one likes.
    bool goesOn(double share)
    {
        if (m_goesOn && m_timer.elapsed() >= m_pause) {
            m_goesOn = m_told(share);
            m_timer.start();
        }
        return m_goesOn;
    }
    // Is asked once more before the file takes its place.
    bool isDone() { return m_goesOn && m_told(1); }

private:
    const std::function<bool(double)>& m_told;
    qint64 m_pause;
    QElapsedTimer m_timer;
    bool m_goesOn = true;
};

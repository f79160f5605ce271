// Shows the clock and the date on a skin's labels and displays.
#pragma once

#include "player/displays/clocktick.h"
#include "player/displays/displaytext.h"

#include <QDateTime>

#include <functional>

class Face;
struct PlayerSettings;

class ClockPanel {
public:
    ClockPanel(Face& face, const PlayerSettings& settings) : m_face(face), m_settings(settings) {}

    std::function<QDateTime()> now = [] { return QDateTime::currentDateTime(); };

    void tick(); // shows what has changed since the last one
    void showClock();
    void MakeDayStr();

    DisplayClock clock() const;
    QChar dayLetter() const { return m_dayLetter; } // of "UMTWRFS"

private:
    Face& m_face;
    const PlayerSettings& m_settings;
    MinuteWatch m_minute{};
    QChar m_dayLetter{};
};

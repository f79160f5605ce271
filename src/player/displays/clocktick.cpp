#include "player/displays/clocktick.h"

#include <utility>

ClockTick MinuteWatch::tick(QTime now)
{
    const int minute = now.hour() * 60 + now.minute();
    const int told = std::exchange(m_told, now.second() == 0 ? minute : -1);
    const bool newMinute = m_told >= 0 && m_told != told;
    return {newMinute, newMinute && minute == 0};
}

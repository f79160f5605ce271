// Tells what a tick of the player's clock has to do.
#pragma once

#include <QTime>

struct ClockTick {
    bool newMinute = false;
    bool newDay = false;
    bool operator==(const ClockTick&) const = default;
};

// Knows the minute that it told last: there are several ticks to a second, and a minute is told once.
class MinuteWatch {
public:
    // Kept: a tick that misses a minute's first second misses the minute.
    ClockTick tick(QTime now);

private:
    int m_told = -1; // minute of the day
};

// Limits how often something costly is done, such as showing progress.
#pragma once

#include <chrono>

class Throttle {
public:
    using Clock = std::chrono::steady_clock;

    explicit Throttle(std::chrono::milliseconds interval = std::chrono::milliseconds(33))
        : m_interval(interval)
    {
    }

    // Is true at the first call and then at most once an interval.
    bool due()
    {
        const Clock::time_point now = Clock::now();
        if (now < m_next)
            return false;
        m_next = now + m_interval;
        return true;
    }

private:
    std::chrono::milliseconds m_interval;
    Clock::time_point m_next{};
};

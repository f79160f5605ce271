// Waits for a condition, without a turn of any event loop.
#pragma once

#include <chrono>
#include <thread>

template <typename Condition>
bool eventually(Condition&& holds, std::chrono::milliseconds atMost = std::chrono::seconds(10))
{
    const auto end = std::chrono::steady_clock::now() + atMost;
    while (!holds()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

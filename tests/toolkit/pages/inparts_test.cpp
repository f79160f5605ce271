#include "toolkit/pages/inparts.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <new>
#include <thread>

TEST(InParts, eachIsDoneOnce)
{
    for (const int parts : {1, 2, 8}) {
        std::atomic<int> sum = 0;
        doInParts(parts, [&](int part) { sum += 1 << (4 * part); });
        EXPECT_EQ(sum, 0x11111111 & ((1LL << (4 * parts)) - 1)) << parts;
    }
}

TEST(InParts, whatAPartThrowsIsThrownWhenAllHaveEnded)
{
    for (const int throwing : {0, 1, 3}) {
        std::atomic<int> ended = 0;
        const auto work = [&](int part) {
            if (part == throwing)
                throw std::bad_alloc();
            std::this_thread::sleep_for(std::chrono::milliseconds(30));
            ++ended;
        };
        EXPECT_THROW(doInParts(4, work), std::bad_alloc) << throwing;
        EXPECT_EQ(ended, 3) << throwing;
    }
}

TEST(InParts, allMayThrow)
{
    EXPECT_THROW(doInParts(8, [](int) { throw std::bad_alloc(); }), std::bad_alloc);
}

// Makes the player's decisions, apart from what carries them out. Times are milliseconds.
#pragma once

#include <QtGlobal>

// Returns the nearest number of 32 bits.
qint32 within32Bits(qint64 value);

// Returns where a jump ends up: not before the beginning, and a second before the end for one beyond it.
qint32 jumpTarget(qint32 wanted, qint32 trackLength);

// Holds the two points of the repeat between A and B; 0 stands for one that is not set.
struct LoopPoints {
    qint32 start = 0;
    qint32 end = 0;
    bool operator==(const LoopPoints&) const = default;
};

// Returns what a press of the A-B button makes of them: with a B button of its own it only sets A, else it
// sets A, sets B, clears both.
LoopPoints pressedAB(const LoopPoints& points, qint32 position, bool hasButtonB);

struct TickState {
    qint32 position = 0;
    qint32 trackLength = 0;
    qint32 overlap = 0;
    LoopPoints loop{};
    bool introMode = false;
};

struct TickPlan {
    bool jumpsToLoopStart = false;
    bool over = false; // the entry
    bool operator==(const TickPlan&) const = default;
};

TickPlan planTick(const TickState& state);

// Returns the entry after this one; `random` is in [0, 1). Kept: at random it can be one behind the last
// entry, which stops the player on the first.
int entryAfter(int current, int entries, bool shuffle, double random);

// Plays one medium of each format at once with the others, so that a test of all takes as long as one.
#pragma once

#include "system/media/gstmediaelement.h"
#include "tests/support/soundrecorder.h"
#include "tests/support/world.h"
#include "tests/system/media/formats.h"

#include <chrono>
#include <memory>
#include <optional>
#include <string>

// What was seen of one.
struct Seen {
    std::string encoderMissing; // else empty
    std::string failure;        // while the file was made, else empty
    int error = 0;
    QString message;
    qint32 length = 0;
    qint32 from = 0;
    double playTook = 0;            // milliseconds, as all times here
    std::optional<double> endAfter; // from the begin of "play" until the position was the length
    double lookedAfter = 0;         // from the end of "play" to a look in the middle
    qint32 positionThen = 0;
    bool wentBack = false; // a position was less than the one before
    Frames recorded;
};

enum class Way {
    Whole,         // from the beginning to the end, as the player does it
    NearEnd,       // "play" with "from" 800 ms before the end
    FromOneSecond, // "seek" to 1000 ms, "play" for 400 ms, "close"
};

// Returns them in the order of formats().
std::vector<Seen> playAll(World& world, Way way);

// Writes into drive D:; what hinders that is noted.
void makeAll(World& world, std::vector<Seen>& seen);

void openFile(GstMediaElement& element, const char* device, const char* file);

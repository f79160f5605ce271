// Every format that the player plays, and how to make a file of it.
#pragma once

#include "tests/support/mediafiles.h"

#include <functional>
#include <ostream>
#include <vector>

struct Format {
    const char* name; // of the test
    const char* file;
    const char* device; // what the player chooses for the file's extension
    std::function<void(const QByteArray& target)> make;
    int length;            // milliseconds
    int tolerance = 50;    // of that length; encoders fill their last block
    bool lossless = false; // holds counted frames
    bool seeks = true;
    bool sounds = true;
    int seekError = 0; // what the decoder's delay shifts the position by
};

inline std::ostream& operator<<(std::ostream& out, const Format& format)
{
    return out << format.name;
}

// Made once, lasting until the program's end.
const std::vector<Format>& formats();

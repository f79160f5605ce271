// Knows every format that the player plays, and how to make a file of it.
#pragma once

#include "tests/support/mediafiles.h"

#include <functional>
#include <ostream>
#include <vector>

struct Format {
    enum class Sound {
        Counted,     // without loss, the frames count from 0
        SilenceThen, // loud from the middle on
        Notes,       // struck anew now and then
        None
    };

    const char* name; // of the test
    const char* file;
    const char* device; // what the player chooses for the file's extension
    Sound sound;
    std::function<void(const QByteArray& target)> make;
    int length = 2400;  // milliseconds
    int tolerance = 50; // of that length: encoders fill their last block
    int tail = 0;       // what sounds on after the length
};

inline std::ostream& operator<<(std::ostream& out, const Format& format)
{
    return out << format.name;
}

const std::vector<Format>& formats();
// False for the one whose reader cannot seek.
bool canSeek(const Format& format);

// Is the master volume of the system's sound output, one word of two channels.
#pragma once

#include <cstdint>

class WaveVolume {
public:
    virtual ~WaveVolume() = default;

    // The left channel is in the low 16 bits, the right one in the high ones; 0xFFFF is full. It never waits:
    // without a sound server, or with one that does not answer, it is the last word set or seen (full when
    // none was).
    virtual std::uint32_t get() = 0;
    virtual void set(std::uint32_t word) = 0;
    // Is false as long as the word is a guess: none was set, and no server has told its own.
    virtual bool isKnown() const = 0;
};

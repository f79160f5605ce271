// Notes what an audio sink writes at the pace of the clock, and has GStreamer's own player used bare, the
// rival of whatever plays sound.
#pragma once

#include "posix/descriptor.h"
#include "system/media/gstpointer.h"

#include <QString>

#include <string>

class Heard {
public:
    Heard();

    std::string sink() const; // a description: 16-bit stereo of 44,100 frames a second into this
    void awaitFirst() const;
    long take() const; // how many bytes came since the last time; waits a moment when there are none
    void forget() const;

private:
    Descriptor m_out;
    Descriptor m_in;
};

// Is a playbin that is brought to PAUSED and then PLAYING, and ends with its owner.
class BarePlayer {
public:
    BarePlayer(const std::string& file, const Heard& heard);
    ~BarePlayer();
    BarePlayer(const BarePlayer&) = delete;
    BarePlayer& operator=(const BarePlayer&) = delete;

    void awaitEnd() const;

private:
    GstPointer<GstElement> m_player;
};

// Returns the milliseconds from nothing to the first sound of that player.
double bareFirstSound(const std::string& file, const Heard& heard);

QString programPath(const std::string& file); // on drive Z:, the whole machine

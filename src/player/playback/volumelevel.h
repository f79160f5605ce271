// Gives the system's volume to the player's user: in steps, and silent for a while.
#pragma once

#include "player/playback/mutenote.h"

class WaveVolume;

class VolumeLevel {
public:
    VolumeLevel(WaveVolume& volume, UserSettings& store, const Program& program)
        : m_volume(volume), m_note(store, program)
    {
    }
    ~VolumeLevel(); // the system is not left silent
    VolumeLevel(const VolumeLevel&) = delete;
    VolumeLevel& operator=(const VolumeLevel&) = delete;

    // Brings back what the mute of a program that was killed took away, if it is still silent. Returns false
    // as long as the system has not told its volume: it has to be asked again, and before the first mute.
    bool settle();

    float value();         // from 0 to 1
    void set(float value); // ends the silence
    void step(int percent);
    void toggleMute(); // nothing while the volume is not known
    bool muted();      // until somebody, here or elsewhere, makes it louder

private:
    WaveVolume& m_volume;
    MuteNote m_note;
    float m_before = 0; // what it was when it was silenced
    bool m_muted = false;
};

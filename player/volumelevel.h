// The system's volume as the player's user has it: in steps, and silent for a while.
#pragma once

class WaveVolume;

class VolumeLevel {
public:
    explicit VolumeLevel(WaveVolume& volume) : m_volume(volume) {}
    ~VolumeLevel(); // the system is not left silent
    VolumeLevel(const VolumeLevel&) = delete;
    VolumeLevel& operator=(const VolumeLevel&) = delete;

    float value();         // from 0 to 1
    void set(float value); // ends the silence
    void step(int percent);
    void toggleMute();
    bool muted(); // until somebody, here or elsewhere, makes it louder

private:
    WaveVolume& m_volume;
    float m_before = 0; // what it was when it was silenced
    bool m_muted = false;
};

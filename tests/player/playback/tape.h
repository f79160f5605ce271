// Takes down what media devices play, and when: as long as it lives, every device that is opened plays into
// it. Each sound is a counter (see counter()), so that every frame tells its entry and its number.
#pragma once

#include "posix/descriptor.h"

#include <QByteArray>

#include <chrono>
#include <mutex>
#include <span>
#include <thread>
#include <vector>

using Clock = std::chrono::steady_clock;

inline double millisecondsSince(Clock::time_point begin)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

constexpr int kRate = 44100;

inline double inMilliseconds(quint32 frames)
{
    return frames * 1000.0 / kRate;
}

// Counts frames of one entry that follow one another without a gap.
struct Stretch {
    int entry = 0;
    quint32 first = 0;
    quint32 end = 0;
    double begin = 0;  // milliseconds since the tape began: its first frame is heard
    double finish = 0; // its last frame has been heard
};

class Tape {
public:
    Tape();
    ~Tape();
    Tape(const Tape&) = delete;
    Tape& operator=(const Tape&) = delete;

    // They come in the order of their beginning, so far; of one entry (counted from 1) or of all (0).
    std::vector<Stretch> runs(int entry = 0) const;
    qint64 frames() const; // that were played so far
    double now() const { return millisecondsSince(m_begin); }

private:
    void record();
    void take(std::span<const quint32> piece, double at); // written at once by one device

    Clock::time_point m_begin = Clock::now();
    Descriptor m_in; // what the devices write to
    Descriptor m_out;
    QByteArray m_before; // of the environment
    mutable std::mutex m_mutex;
    std::vector<Stretch> m_runs;
    qint64 m_frames = 0;
    std::thread m_recorder;
};

// Makes a WAV file of that many frames, which tells them apart from those of all other entries: at most 1023
// entries of 95 seconds.
QByteArray counter(int entry, int milliseconds);

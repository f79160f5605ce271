// Makes test media of known length, in this process.
#pragma once

#include <QByteArray>

#include <optional>
#include <stdexcept>
#include <vector>

struct Frame {
    qint16 left;
    qint16 right;
    bool operator==(const Frame&) const = default;
};
using Frames = std::vector<Frame>; // 44,100 a second

constexpr int kFramesPerSecond = 44100;

// The frame with the index i has the low half of i in its left sample, the high half in its right one, so
// that a recording without loss tells which frames it holds.
Frames counterFrames(int milliseconds, int from = 0);
qint64 counted(const Frame& frame);

Frames toneFrames(int milliseconds);
Frames noiseFrames(int milliseconds);
// Returns it with the first half made silent, so that a recording tells where it was begun.
Frames silenceThen(Frames frames);

QByteArray waveFile(const Frames& frames);
QByteArray auFile(const Frames& frames);
QByteArray aiffFile(const Frames& frames);

// Returns it with the frame before the sound that tells how many follow; of a stereo file without one.
QByteArray withCountOfFrames(const QByteArray& mp3, bool variable);

// They hold a square wave, struck twice a second, for 2,400 ms.
constexpr int kModuleLength = 2400;
QByteArray modFile();
QByteArray s3mFile();
QByteArray xmFile();
QByteArray itFile();

// Makes notes of half a second one after the other, at 120 beats a minute.
QByteArray midiFile(int notes);

QByteArray flcFile(int pictures, int millisecondsEach);

struct EncoderMissing : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// `encoder` is what a GStreamer pipeline has between the raw sound and the file. Throws EncoderMissing, or
// std::runtime_error for any other failure.
void encodeSound(const QByteArray& target, const Frames& frames, const QByteArray& encoder);
// It has 25 pictures a second for as long as the sound lasts. `pictures` and `sound` may be empty: there are
// none then.
void encodeFilm(const QByteArray& target, const Frames& frames, const QByteArray& pictures,
                const QByteArray& sound, const QByteArray& muxer);

#include "tests/support/bytes.h"
#include "tests/support/mediafiles.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr int kAmplitude = 12000;

int framesIn(int milliseconds)
{
    return static_cast<int>(qint64(milliseconds) * kFramesPerSecond / 1000);
}

quint32 sizeOf(const Frames& frames)
{
    return static_cast<quint32>(frames.size() * sizeof(Frame));
}

void addBigFrames(QByteArray& bytes, const Frames& frames)
{
    for (const Frame& frame : frames) {
        addBig(bytes, frame.left);
        addBig(bytes, frame.right);
    }
}

Frame toneFrame(int index)
{
    const double turns = 440.0 * index / kFramesPerSecond;
    const auto level = static_cast<qint16>(kAmplitude * std::sin(2 * std::numbers::pi * turns));
    return {level, level};
}

} // namespace

Frames counterFrames(int milliseconds, int from)
{
    Frames frames;
    for (int index = framesIn(from); index < framesIn(milliseconds); ++index)
        frames.push_back({static_cast<qint16>(index & 0xffff), static_cast<qint16>(index >> 16)});
    return frames;
}

qint64 counted(const Frame& frame)
{
    return (qint64(static_cast<quint16>(frame.right)) << 16) + static_cast<quint16>(frame.left);
}

Frames toneFrames(int milliseconds)
{
    Frames frames;
    for (int index = 0; index < framesIn(milliseconds); ++index)
        frames.push_back(toneFrame(index));
    return frames;
}

Frames noiseFrames(int milliseconds)
{
    Frames frames;
    quint32 state = 1;
    const auto noise = [&state] {
        state = state * 1664525 + 1013904223;
        return static_cast<qint16>(static_cast<int>(state >> 16) % (2 * kAmplitude) - kAmplitude);
    };
    for (int index = 0; index < framesIn(milliseconds); ++index)
        frames.push_back({noise(), noise()});
    return frames;
}

Frames silenceThen(Frames frames)
{
    std::fill_n(frames.begin(), frames.size() / 2, Frame{0, 0});
    return frames;
}

QByteArray waveFile(const Frames& frames)
{
    QByteArray bytes("RIFF");
    addLittle(bytes, sizeOf(frames) + 36);
    bytes += "WAVEfmt ";
    addLittle(bytes, quint32(16));
    addLittle(bytes, quint16(1)); // PCM
    addLittle(bytes, quint16(2));
    addLittle(bytes, quint32(kFramesPerSecond));
    addLittle(bytes, quint32(kFramesPerSecond * sizeof(Frame)));
    addLittle(bytes, quint16(sizeof(Frame)));
    addLittle(bytes, quint16(16));
    bytes += "data";
    addLittle(bytes, sizeOf(frames));
    for (const Frame& frame : frames) {
        addLittle(bytes, frame.left);
        addLittle(bytes, frame.right);
    }
    return bytes;
}

QByteArray auFile(const Frames& frames)
{
    QByteArray bytes(".snd");
    addBig(bytes, quint32(24)); // where the sound begins
    addBig(bytes, sizeOf(frames));
    addBig(bytes, quint32(3)); // PCM, 16 bit
    addBig(bytes, quint32(kFramesPerSecond));
    addBig(bytes, quint32(2));
    addBigFrames(bytes, frames);
    return bytes;
}

QByteArray aiffFile(const Frames& frames)
{
    QByteArray bytes("FORM");
    addBig(bytes, 4 + 8 + 18 + 8 + 8 + sizeOf(frames));
    bytes += "AIFFCOMM";
    addBig(bytes, quint32(18));
    addBig(bytes, quint16(2));
    addBig(bytes, static_cast<quint32>(frames.size()));
    addBig(bytes, quint16(16));
    addBig(bytes, quint16(16383 + 15)); // the rate as an 80-bit number: exponent and mantissa
    addBig(bytes, quint64(kFramesPerSecond) << 48);
    bytes += "SSND";
    addBig(bytes, 8 + sizeOf(frames));
    addBig(bytes, quint64(0)); // no blocks
    addBigFrames(bytes, frames);
    return bytes;
}

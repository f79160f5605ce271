// Makes disc images for tests: each stereo sample tells its own index, the low 16 bits left, the others
// right.
#pragma once

#include "tests/support/temporary.h"

#include <array>

namespace discs {

constexpr int kFrameBytes = 2352;
constexpr int kFrameSamples = kFrameBytes / 4;

inline QByteArray sample(int index)
{
    QByteArray bytes;
    for (const int shift : {0, 8, 16, 24})
        bytes += static_cast<char>(index >> shift & 0xFF);
    return bytes;
}

inline QByteArray samples(int first, int count)
{
    QByteArray bytes;
    bytes.reserve(qsizetype{4} * count);
    for (int i = first; i < first + count; ++i)
        bytes += sample(i);
    return bytes;
}

inline QByteArray image(int frames)
{
    return samples(0, frames * kFrameSamples);
}

// Returns the sheet of an image with three tracks that begin at frames 0, 75 and 225.
inline QByteArray threeTracks(const QByteArray& image)
{
    return "FILE \"" + image +
           "\" BINARY\n  TRACK 01 AUDIO\n    INDEX 01 00:00:00\n  TRACK 02 AUDIO\n"
           "    INDEX 01 00:01:00\n  TRACK 03 AUDIO\n    INDEX 01 00:03:00\n";
}
constexpr int kThreeTracksFrames = 300;

} // namespace discs

// Audio discs: in an optical drive, or as a cue sheet with its image (FILE, TRACK and INDEX 01 lines; one
// image file). Their tracks are shown as the small files that the old desktop showed: Track01.cda and so on.
#pragma once

#include <QByteArray>

#include <vector>

namespace audiodisc {

constexpr int kFramesPerSecond = 75;

struct Track {
    int number;
    int start;  // frames from the beginning of the disc's first track
    int length; // frames

    bool operator==(const Track&) const = default;
};

// By its name; what is in the file is looked at later.
bool isSheet(const QByteArray& path);

// The audio tracks in their order; none when the device or the sheet holds no audio disc.
std::vector<Track> tracksOf(const QByteArray& deviceOrSheet);
// The same from the text of a sheet, with the image that it names in `directory`.
std::vector<Track> tracksOfSheet(const QByteArray& sheet, const QByteArray& directory);

// The 44 bytes of a track's file (RIFF form "CDDA").
QByteArray trackFile(const Track& track);

// A directory below `cache` that holds the track files of that disc, made anew; empty when it cannot be.
QByteArray trackDirectory(const QByteArray& cache, const QByteArray& deviceOrSheet,
                          const std::vector<Track>& tracks);

} // namespace audiodisc

// Reads the table of contents of a disc, and the audio tracks that it tells of.
#pragma once

#include <vector>

namespace audiodisc {

constexpr int kFramesPerSecond = 75;

// Places are counted in frames from the beginning of the disc's program area (the address of the old minutes
// less two seconds).
struct TocEntry {
    int number;
    int start;
    bool audio;
};

struct Toc {
    std::vector<TocEntry> entries;
    int end = 0;         // the lead-out's place
    int lastSession = 0; // where the last session's first track begins; 0 when there is one session only
};

struct Track {
    int number;
    int start;  // frames
    int length; // frames, above 0

    bool operator==(const Track&) const = default;
};

// Returns the audio tracks in their order. A table whose numbers (1 to 99) or places do not rise contradicts
// itself and gives none. What begins beyond the end is left out, what reaches beyond it is cut.
std::vector<Track> tracksOf(const Toc& toc);

} // namespace audiodisc

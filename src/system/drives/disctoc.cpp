#include "system/drives/disctoc.h"

#include <algorithm>

namespace audiodisc {

namespace {

constexpr int kMostTracks = 99;
// Between two sessions lie a lead-out of 90 s, a lead-in of 60 s and a pause of 2 s, none of which can be
// read.
constexpr int kSessionGap = (90 + 60 + 2) * kFramesPerSecond;

bool contradictsItself(const std::vector<TocEntry>& entries)
{
    int number = 0;
    int start = -1;
    for (const TocEntry& entry : entries) {
        if (entry.number <= number || entry.number > kMostTracks || entry.start <= start)
            return true;
        number = entry.number;
        start = entry.start;
    }
    return false;
}

} // namespace

std::vector<Track> tracksOf(const Toc& toc)
{
    if (contradictsItself(toc.entries))
        return {};
    std::vector<Track> tracks;
    for (auto entry = toc.entries.begin(); entry != toc.entries.end(); ++entry) {
        const auto next = entry + 1;
        int end = toc.end;
        if (next != toc.entries.end()) {
            const bool newSession = toc.lastSession > 0 && next->start == toc.lastSession;
            end = std::min(end, newSession ? next->start - kSessionGap : next->start);
        }
        if (entry->audio && end > entry->start)
            tracks.push_back({entry->number, entry->start, end - entry->start});
    }
    return tracks;
}

} // namespace audiodisc

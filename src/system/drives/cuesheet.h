// Reads and writes cue sheets, texts that tell which tracks the image of a disc holds.
#pragma once

#include "system/drives/disctoc.h"

#include <QByteArray>

#include <optional>

namespace audiodisc {

struct CueSheet {
    QByteArray image; // the file's name as the sheet has it
    std::vector<TocEntry> entries;
};

// Reads FILE, TRACK and INDEX 01 lines, without regard to case; others say nothing about places. It gives
// nothing for what cannot be played track by track: several image files, one that is not BINARY (sound files
// with a header, samples with the high byte first), sectors of other than 2352 bytes, tracks that do not
// count from 1 on without a gap, one without its INDEX 01, places that are none.
std::optional<CueSheet> readCueSheet(const QByteArray& text);

// Writes a sheet of our own for those tracks, in the words that every reader knows: the missing numbers from
// 1 on are data. `end` is the number of the image's frames.
QByteArray cueSheetOf(const std::vector<Track>& tracks, int end, const QByteArray& image);

} // namespace audiodisc

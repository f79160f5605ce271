// Serves audio discs, in an optical drive or as a cue sheet with its image. Their tracks are shown as the
// small files that the old desktop showed: Track01.cda and so on.
#pragma once

#include "system/drives/disctoc.h"

#include <QByteArray>

namespace audiodisc {

struct Disc {
    std::vector<Track> tracks;
    QByteArray
        image{}; // of a readable cue sheet: the file with the samples, there or not; empty for a device
    int imageFrames = 0;
};

// Is told by its name; what is in the file is looked at later.
bool isSheet(const QByteArray& path);

// Reads what the device or the sheet holds; there are no tracks when that is no audio disc.
Disc discIn(const QByteArray& deviceOrSheet);
// Reads the same from the text of a sheet that lies in `directory`.
Disc discOfSheet(const QByteArray& sheet, const QByteArray& directory);

// Makes the 44 bytes of a track's file (RIFF form "CDDA").
QByteArray trackFile(const Track& track);

struct Place {
    QByteArray tracks; // the directory of the tracks' files, empty when it cannot be made
    QByteArray player; // what the player of discs is given: the device, or a plain sheet of ours
};

// Brings the track files of that disc below `cache` up to date.
Place show(const Disc& disc, const QByteArray& deviceOrSheet, const QByteArray& cache);

} // namespace audiodisc

// Tells which device plays a file, by its extension.
#pragma once

#include <QString>

struct MediaKind {
    enum Entry {
        Medium,
        Picture,  // shown as the cover for five seconds
        NotPlayed // texts and programs: playing halts there
    };

    QString deviceType;
    Entry entry = Medium;
    bool hasTag = false; // MPEG audio: its facts and its tag are read
};

// The extension counts in any case; every one that is not known goes to "ActiveMovie".
MediaKind mediaKindOf(const QString& path);

// Returns the number that a track's file of an audio disc has in its name ("Track05.cda"), by the last six
// characters.
int discTrackOf(const QString& path);

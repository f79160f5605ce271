// Takes artist and song from a file's name.
#pragma once

#include <QString>

struct NameParts {
    QString artist;
    QString song;
};

// Of "Artist_Name - Song.mp3" these are what stands before the first "-" and what stands behind it,
// underscores made blanks; without a "-" the whole name is both. The extension stays with the song, blanks
// round the "-" stay too.
NameParts partsOfName(const QString& fileName);

// Finds the fields of an ID3v1 tag in the text of a file's last bytes.
#pragma once

#include <QString>

#include <optional>

struct TagText {
    QString song;
    QString artist;
    QString album;
    QString year;
    QString comment; // 30 characters where they are there: the track's byte is the last
};

// Kept: the marker is looked for loosely, so the first "tag" in any case counts, be it in the music or in the
// text of another tag. Characters behind the end of the text are missing from the fields.
std::optional<TagText> findTag(const QString& tail);

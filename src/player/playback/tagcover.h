// Finds the picture that belongs to a song, by the names of its tag.
#pragma once

#include <QString>

class Files;
struct TagRecord;

// Looks beside the song for one named by its album, or by artist and album with "-" or " - " between, and
// returns an empty text when there is none. The tag's artist and album lose their blanks at both ends.
QString tagCover(Files& files, const QString& directory, TagRecord& tag);

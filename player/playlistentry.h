// How one line of a playlist file becomes an entry's path, and a path a line.
#pragma once

#include "player/playlistfile.h"

// U+0020 alone.
QByteArrayView lineWithoutBlanks(QByteArrayView line);

// What the line means: a path of the program that may still be relative. Blanks are off the line's ends.
QString entryText(QByteArrayView line, const PlaylistSeams& seams);

// The full path of an entry; `directory` is the playlist's own, with a backslash behind.
QString entryPath(const QString& text, const QString& directory);

// The line for a path, without its end.
QString entryLine(const QString& path, const QString& directory, const PlaylistSeams& seams);

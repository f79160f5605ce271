// How one line of a playlist file becomes an entry's path, and a path a line.
#pragma once

#include "player/playlistfile.h"

#include <QHash>

class Drives;

// U+0020 alone.
QByteArrayView lineWithoutBlanks(QByteArrayView line);

// Paths of this machine as those of the program. Directories are kept, because a list's entries lie side by
// side; so it is for one list, during which no disk comes or goes.
class MachinePaths {
public:
    explicit MachinePaths(Drives& drives) : m_drives(drives) {}

    QString drivePath(QByteArrayView path);

private:
    Drives& m_drives;
    QHash<QByteArray, QString> m_directories; // each text with a backslash behind
};

// What the line means: a path of the program that may still be relative. Blanks are off the line's ends.
QString entryText(QByteArrayView line, const PlaylistSeams& seams, MachinePaths& paths);

// The full path of an entry; `directory` is the playlist's own, with a backslash behind.
QString entryPath(const QString& text, const QString& directory);

// The line for a path, without its end.
QString entryLine(const QString& path, const QString& directory, const PlaylistSeams& seams);

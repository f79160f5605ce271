// Makes an entry's path of one line of a playlist file, and a line of a path.
#pragma once

#include "player/playlist/playlistseams.h"

#include <QHash>
#include <QString>

class Drives;

// Takes off U+0020 alone.
QByteArrayView lineWithoutBlanks(QByteArrayView line);

// Writes paths of this machine as those of the program. Directories are kept, because a list's entries lie
// side by side; it serves one list, during which no disk comes or goes.
class MachinePaths {
public:
    explicit MachinePaths(Drives& drives) : m_drives(drives) {}

    // Makes `text` the program's path; tells whether the machine's is UTF-8.
    bool drivePath(QString& text, QByteArrayView path);

private:
    struct Directory {
        QString text; // with a backslash behind
        bool isUtf8 = false;
    };

    bool wholePath(QString& text, QByteArrayView path);
    bool isKnown(QByteArrayView directory);

    Drives& m_drives;
    QHash<QByteArray, Directory> m_directories;
    QByteArray m_last; // the directory of the entry before, which mostly is the next one's too
    Directory m_lastDirectory;
};

// Makes `text` what the line means: a path of the program that may still be relative. Blanks are off the
// line's ends. A list's lines share one text, so that only what is kept of it takes memory of its own.
void entryText(QString& text, QByteArrayView line, const PlaylistSeams& seams, MachinePaths& paths);

// Returns the full path of an entry; `directory` is the playlist's own, with a backslash behind.
QString entryPath(QStringView text, const QString& directory);

// Writes the line for a path, without its end.
QString entryLine(const QString& path, const QString& directory, const PlaylistSeams& seams);

// Reads playlist files, M3U (a path a line) and PLS ("File1=path"), and writes M3U.
//
// Beside paths of the program ("D:\Music\a.mp3", "\Music\a.mp3", "sub\a.mp3") a file may hold paths of this
// machine ("/home/me/a.mp3") and file addresses ("file:///home/me/a.mp3", "file:///D:/Music/a.mp3").
#pragma once

#include "player/playlist/playlist.h"
#include "player/playlist/playlistseams.h"

#include <QByteArray>

#include <optional>

class CodePage;
struct Platform;

// Tells what came of reading a list.
enum class ListRead {
    Whole,
    Full,    // the list took no more entries, and the file holds more
    Missing, // there is no such file
    Failed,  // the file, or the rest of it, could not be read
};

// Returns what the playlist shows for a path: the friendly name, and " (picture)" behind a picture's.
QString entryName(const QString& path, bool friendlyNames, const CodePage& codePage);

// Returns the path of the program that a file address of this machine means, and nothing for any other text.
std::optional<QString> pathOfFileAddress(QByteArrayView address, const PlaylistSeams& seams);

// Appends the entries of an M3U or PLS file; the list takes the file's name in any case. What could be read
// of a file stays, and a file of another extension has nothing to read. Nothing is read beyond 256 MB. One
// that holds a null character is Failed, whatever its entries are.
ListRead PlRead(Playlist& list, const QString& file, bool friendlyNames, const PlaylistSeams& seams);

// Writes the list as an M3U file in UTF-8, the paths below the file's directory relative to it. A path that a
// line cannot carry is written as a file address. Throws RunTimeError; the old file stays then, as
// Files::replace has it.
void writeList(const Playlist& list, const QString& file, const PlaylistSeams& seams);
// Does the same, but an error shows a message; then it is false.
bool WritePL(const Playlist& list, const QString& file, const PlaylistSeams& seams);
void tellNotWritten(const Platform& platform); // that message

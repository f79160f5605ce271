// The player's free helpers: names, extensions, pictures, table cells, volume, windows' edges. Paths are the
// program's (drive letter, backslashes). What asks the disk or moves a window takes the seam it needs.
#pragma once

#include <QRect>
#include <QString>

class Dialogs;
class Files;
class WaveVolume;

// Up to and including the last backslash; empty when there is none.
QString GetPath(const QString& path);
// Ends in a backslash; an empty text stays empty.
QString AddSlash(const QString& path);
QString GetFileName(const QString& path);
// Behind the last dot; empty when there is none. Callers make it upper case.
QString GetExtension(const QString& path);
QString StripExtension(const QString& path);
// By the last four characters: ".jpeg" is none.
bool IsPicture(const QString& path);

// What the playlist shows for a path. With friendlyNames, underscores and dots become blanks and leading
// track numbers and the extension go; without, it is the file's name.
QString FriendlyName(const QString& path, bool friendlyNames);

// A table is one text of cells of equal width. The bits from first to last (0 is the lowest) choose the cell;
// it comes without its blanks, empty beyond the table's end.
QString BitCell(quint8 byte, int firstBit, int lastBit, int width, QStringView table);

bool FileExists(Files& files, const QString& path);
// The first picture that is there of a path without extension; empty when none is.
QString FindPicture(Files& files, const QString& pathWithoutExtension);

// The louder channel as a fraction from 0 to 1.
float GetVolume(WaveVolume& volume);
void SetVolume(WaveVolume& volume, float fraction);

// The folder that the user chooses, with a trailing backslash; empty when cancelled.
QString BrowseFolder(Dialogs& dialogs, const QString& title);

// Where a window belongs when windows snap to the edges of the work area. All in twips; the window's size
// stays as it is.
QPoint snappedPosition(const QRect& window, const QRect& workArea);

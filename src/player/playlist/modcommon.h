// These are the player's free helpers for names, extensions, pictures, table cells, volume and windows'
// edges. Paths are the program's (drive letter, backslashes). What asks the disk or moves a window takes the
// seam it needs.
#pragma once

#include <QRect>
#include <QString>

class Dialogs;
class Files;
class WaveVolume;

// Takes all up to and including the last backslash; it is empty when there is none.
QString GetPath(const QString& path);
// Makes a text end in a backslash; an empty text stays empty.
QString AddSlash(const QString& path);
QString GetFileName(const QString& path);
// Takes what stands behind the last dot; it is empty when there is none. Callers make it upper case.
QString GetExtension(const QString& path);
QString StripExtension(const QString& path);
// Goes by the last four characters: ".jpeg" is none.
bool IsPicture(const QString& path);

// Returns what the playlist shows for a path. With friendlyNames, underscores and dots become blanks and
// leading track numbers and the extension go; without, it is the file's name.
QString FriendlyName(const QString& path, bool friendlyNames);

// A table is one text of cells of equal width. The bits from first to last (0 is the lowest) choose the cell;
// it comes without its blanks, and is empty beyond the table's end.
QString BitCell(quint8 byte, int firstBit, int lastBit, int width, QStringView table);

bool FileExists(Files& files, const QString& path);
// Returns the first picture that is there of a path without extension, and nothing when none is.
QString FindPicture(Files& files, const QString& pathWithoutExtension);

// Returns the louder channel as a fraction from 0 to 1.
float GetVolume(WaveVolume& volume);
void SetVolume(WaveVolume& volume, float fraction);

// Returns the folder that the user chooses, with a trailing backslash; it is empty when cancelled.
QString BrowseFolder(Dialogs& dialogs, const QString& title);

// Tells where a window belongs when windows snap to the edges of the work area. All is in twips; the window's
// size stays as it is.
QPoint snappedPosition(const QRect& window, const QRect& workArea);

// Tells which letter stands for which directory: what users declare, and how volumes get a letter that they
// keep.
#pragma once

#include "system/drives/mounts.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <map>
#include <vector>

struct DriveEntry {
    DriveKind kind = DriveKind::Fixed;
    QByteArray directory; // absolute, without "." and doubled or trailing slashes; empty: nothing is mounted
    QByteArray device;    // empty when there is none
    QString name;         // declared for the volume; empty: the volume's own label counts
    QByteArray disc{};    // what plays the audio disc; its tracks' files are in `directory` then
};

using DriveTable = std::map<char, DriveEntry>; // 'A' to 'Z'

// Adds declared drives, over what the table holds at their letters. Entries "D=/absolute/directory,VOLUME
// NAME" stand one a line or parted by ";"; the comma behind a directory that exists begins the name (of
// several the last one, of a directory that is not there the last of all), which may be missing. Others are
// ignored.
void addDeclared(DriveTable& drives, QByteArrayView entries);
// Takes one of them, as "D" and "/absolute/directory,VOLUME NAME".
void addDeclared(DriveTable& drives, const QString& letter, const QByteArray& directoryAndName);

// Makes an absolute path without ".", "..", doubled and trailing slashes.
QByteArray cleanedPath(const QByteArray& path);

using LetterMemory = std::map<char, QByteArray>; // letter to the identity of a volume

// Adds volumes at letters that are free, each at one that is remembered for it, else at the first from D on
// that is remembered for none, else at one whose volume is not there. What is beyond the last letter gets
// none. The memory is brought up to date.
void addVolumes(DriveTable& drives, const std::vector<Volume>& volumes, LetterMemory& memory);

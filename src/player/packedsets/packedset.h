// Serves sets of pictures that come as a ZIP archive: they are unpacked into a directory of the player's own,
// because skins take their pictures from directories.
//
// Nothing is written but that directory: the archive's paths are dropped, names are made of letters, digits
// and a few marks, and only pictures and texts are taken. Directories of sets are replaced whole; of those
// that nobody has unpacked for long only the last few stay.
#pragma once

#include "player/packedsets/ziparchive.h"

#include <QByteArray>
#include <QString>

namespace packedset {

enum class Fault { None, Damaged, Protected, TooLarge, NoReader, NoPicture, CannotWrite };

inline constexpr int kMostSets = 8; // that stay unpacked

// Tells a packed set by its name ("…/Gold.WSZ"); what it holds is looked at later.
bool isName(const QString& path);

// Returns the name that a file of the archive gets, made of its last part, in lower case. It is empty for
// what no set needs.
QString fileName(const QString& nameInArchive);

// Returns the files beside the main picture (main.bmp or main.png) that lies least deep, under those names;
// of two of one name the first. There are none when there is no main picture.
std::vector<ZipFile> filesOfSet(const std::vector<ZipFile>& files);

struct Unpacked {
    QByteArray directory{}; // of this machine, without a slash behind
    Fault fault = Fault::None;
};

// Unpacks into a directory below `store`, which is made where it is not there. Its name tells the archive's
// name and content, so that the same set always has the same one.
Unpacked unpack(const QByteArray& archive, const QString& name, const QByteArray& store);

} // namespace packedset

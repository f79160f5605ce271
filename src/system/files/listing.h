// Lists the entries of one directory of this machine.
#pragma once

#include "platform/files.h"

#include <QByteArray>

// Does what Files::list says. Throws RunTimeError PathFileAccess or PathNotFound.
std::vector<DirEntry> readListing(const QByteArray& directory);
// Gives nothing when the walk need not enter it.
std::optional<std::vector<DirEntry>> readListing(const QByteArray& directory, EnteredDirectories& walk);

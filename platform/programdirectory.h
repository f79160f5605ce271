// Where the archive and the texts beside the program live.
#pragma once

#include <QByteArray>

// The installed directory itself when it can be written; otherwise the user's data directory, filled with
// those of the installed files that belong beside the program and are not there yet. A directory that does
// not exist is named as it is: what misses it then says so. Paths are this machine's.
QByteArray programDirectory(const QByteArray& installed, const QByteArray& userData);

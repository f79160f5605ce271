// Tells where the archive and the texts beside the program live.
#pragma once

#include <QByteArray>

// Names the running executable's file, links resolved; its name need not be text.
QByteArray executableFile();

// Is the directory that a user named for the program, made absolute, or the executable's own when that is
// empty.
QByteArray installedDirectory(const QByteArray& executable, const QByteArray& named);

// Is the installed directory itself when it can be written; otherwise the user's data directory, filled with
// those of the installed files that belong beside the program and are not there yet. A directory that does
// not exist is named as it is: what misses it then says so. Paths are this machine's.
QByteArray programDirectory(const QByteArray& installed, const QByteArray& userData);

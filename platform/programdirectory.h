// Where the archive and the texts beside the program live.
#pragma once

#include <QByteArray>

// The installed directory itself when it can be written; otherwise the user's data directory, filled with the
// installed files that it lacks (all but the executable). Paths are this machine's.
QByteArray programDirectory(const QByteArray& installed, const QByteArray& executable,
                            const QByteArray& userData);

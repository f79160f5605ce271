// Makes an archive one whole file again after a program that was killed while it wrote.
#pragma once

#include <QByteArray>

// The path is the machine's. What the killed program left unfinished is undone and its journal removed. Does
// nothing where there is no journal, waits for nobody (a program that writes at this moment will tidy up
// itself), and never fails.
void recoverArchive(const QByteArray& path);

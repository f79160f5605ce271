// Names the file in which the importer writes what it does. Kept: the path is fixed, whatever drive that is;
// the drives map this one file into the user's state directory, so that no file of the user's home is
// overwritten.
#pragma once

#include <QString>

inline const QString kTraceFile = QStringLiteral("c:\\test.txt");

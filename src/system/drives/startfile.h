// Looks at the FILE of the command line before anything is started for it.
#pragma once

#include <QByteArray>

struct UserDirectories;

// Takes an absolute path of this machine, or a "file://" address, and is false when it is certain that there
// is no such file or directory. What cannot be looked at may be there; names count as the program's drives
// find them.
bool mayBeThere(const QByteArray& file, const UserDirectories& user, const QByteArray& declaredDrives);

// Says so in one line for the user.
QByteArray notThere(const QByteArray& file);

// The FILE of the command line, before anything is started for it.
#pragma once

#include <QByteArray>

struct UserDirectories;

// False when it is certain that there is no such file or directory: an absolute path of this machine, or a
// "file://" address. What cannot be looked at may be there; names count as the program's drives find them.
bool mayBeThere(const QByteArray& file, const UserDirectories& user, const QByteArray& declaredDrives);

// One line for the user.
QByteArray notThere(const QByteArray& file);

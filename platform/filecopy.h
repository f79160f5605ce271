// Copies a file of this machine.
#pragma once

#include <QByteArray>

// The content goes to a temporary file beside the target, to the disk, and is renamed over the target (over
// what it leads to, where it is a link), whose rights stay. Throws RunTimeError 61, 70, 75 or 76; the old
// target then stays as it was and no temporary is left.
void copyToFile(int source, const QByteArray& target);

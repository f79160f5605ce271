// Tells which of the mounts of this machine are volumes that a user would give a drive letter.
#pragma once

#include "platform/drives.h"
#include "posix/mounttable.h"

#include <QByteArray>

#include <vector>

struct Volume {
    QByteArray identity;  // what a letter stays with: the mount place, or an optical drive's device
    QByteArray directory; // empty when an optical drive holds nothing that is mounted
    QByteArray device;    // empty when there is none
    DriveKind kind;
};

// Lists the optical drives first ("/dev/sr0"; each one, mounted or not), then the other volumes, ordered by
// place: what is mounted below /media, /mnt or /run/media, and what is of a network's, another system's or an
// optical disk's file-system type wherever it is. The system's own mounts are none.
std::vector<Volume> volumesOf(const std::vector<Mount>& mounts,
                              const std::vector<QByteArray>& opticalDevices);

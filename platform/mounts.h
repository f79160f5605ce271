// The mounts of this machine, and which of them are volumes that a user would give a drive letter.
//
// mountinfo is the kernel's table, one mount a line (proc_pid_mountinfo(5)).
#pragma once

#include "platform/drives.h"

#include <QByteArray>
#include <QByteArrayView>

#include <vector>

struct Mount {
    QByteArray directory; // absolute
    QByteArray type;      // of its file system
    QByteArray source;    // a device file ("/dev/sdb1") or whatever else the file system goes by
};

// In the order of the text; lines that are damaged are left out, of mounts at one place the last one counts.
std::vector<Mount> parseMounts(QByteArrayView mountinfo);

struct Volume {
    QByteArray identity;  // what a letter stays with: the mount place, or an optical drive's device
    QByteArray directory; // empty when an optical drive holds nothing that is mounted
    QByteArray device;    // empty when there is none
    DriveKind kind;
};

// The optical drives first ("/dev/sr0"; each one, mounted or not), then the other volumes, ordered by place:
// what is mounted below /media, /mnt or /run/media, and what is of a network's, another system's or an
// optical disk's file-system type wherever it is. The system's own mounts are none.
std::vector<Volume> volumesOf(const std::vector<Mount>& mounts,
                              const std::vector<QByteArray>& opticalDevices);

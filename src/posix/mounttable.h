// Reads the kernel's table of mounts, one a line (proc_pid_mountinfo(5)), again when it has changed.
#pragma once

#include "posix/atomicfile.h"
#include "posix/descriptor.h"

#include <QByteArray>
#include <QByteArrayView>

#include <optional>
#include <vector>

struct Mount {
    QByteArray directory; // absolute
    QByteArray type;      // of its file system
    QByteArray source;    // a device file ("/dev/sdb1") or whatever else the file system goes by
};

// Keeps the order of the text; lines that are damaged are left out, of mounts at one place the last one
// counts.
std::vector<Mount> parseMounts(QByteArrayView mountinfo);

class MountTable {
public:
    explicit MountTable(QByteArray file); // an ordinary file of the same form will do

    // Is true once after each change, and cheap.
    bool changed();
    // Gives no mounts when the table cannot be read.
    std::vector<Mount> read() const;

private:
    QByteArray m_file;
    Descriptor m_watched; // the kernel tells of a change through the open file
    bool m_ordinary;
    std::optional<FileStamp> m_stamp;
};

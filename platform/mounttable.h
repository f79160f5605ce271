// The kernel's table of mounts, read again when it has changed.
#pragma once

#include "platform/descriptor.h"
#include "platform/mounts.h"
#include "platform/replacedfile.h"

#include <optional>

class MountTable {
public:
    explicit MountTable(QByteArray file); // an ordinary file of the same form will do

    // True once after each change; cheap.
    bool changed();
    // None when it cannot be read.
    std::vector<Mount> read() const;

private:
    QByteArray m_file;
    Descriptor m_watched; // the kernel tells of a change through the open file
    bool m_ordinary;
    std::optional<FileStamp> m_stamp;
};

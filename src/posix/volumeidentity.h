// Tells a volume from another that is mounted at the same place.
#pragma once

#include <QByteArray>

class VolumeIdentity {
public:
    VolumeIdentity() = default;
    // `mounts` is the kernel's table of mounts, `uuids` the directory of the device manager's links.
    VolumeIdentity(QByteArray mounts, QByteArray uuids)
        : m_mounts(std::move(mounts)), m_uuids(std::move(uuids))
    {
    }

    // Describes the volume that the directory, named without links, lies on or would lie on: by the file
    // system's UUID, which stays whatever device it becomes, or, where that is not known, by its type and
    // what it is mounted from. It is empty when nothing can be told.
    QByteArray ofDirectory(const QByteArray& directory) const;

private:
    QByteArray m_mounts = "/proc/self/mountinfo";
    QByteArray m_uuids = "/dev/disk/by-uuid";
};

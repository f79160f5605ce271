#include "system/drives/mounts.h"

#include <algorithm>
#include <initializer_list>

namespace {

using Names = std::initializer_list<QByteArrayView>;

bool isOneOf(QByteArrayView name, Names names)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool isBelowOneOf(const QByteArray& directory, Names places)
{
    return std::any_of(places.begin(), places.end(), [&](QByteArrayView place) {
        return directory.startsWith(place) &&
               (directory.size() == place.size() || directory[place.size()] == '/');
    });
}

bool isOptical(const Mount& mount)
{
    return isOneOf(mount.type, {"iso9660", "udf", "fuse.fuseiso"});
}

bool isNetwork(const Mount& mount)
{
    return isOneOf(mount.type, {"nfs",
                                "nfs4",
                                "cifs",
                                "smb3",
                                "smbfs",
                                "ncpfs",
                                "afs",
                                "ceph",
                                "9p",
                                "virtiofs",
                                "vboxsf",
                                "davfs",
                                "fuse.sshfs",
                                "fuse.davfs2",
                                "fuse.davfs",
                                "fuse.rclone",
                                "fuse.s3fs",
                                "fuse.curlftpfs",
                                "fuse.vmhgfs-fuse",
                                "fuse.glusterfs"});
}

bool isForeign(const Mount& mount)
{
    return isOneOf(mount.type, {"vfat", "msdos", "exfat", "ntfs", "ntfs3", "fuseblk", "fuse.ntfs",
                                "fuse.ntfs-3g", "fuse.exfat", "hfs", "hfsplus", "fuse.apfs", "affs", "befs"});
}

// These hold nothing that outlives the mount, or show other mounts once more.
bool isVirtual(const Mount& mount)
{
    return isOneOf(mount.type, {"proc",        "sysfs",      "devtmpfs",     "devpts",  "tmpfs",
                                "ramfs",       "cgroup",     "cgroup2",      "overlay", "autofs",
                                "mqueue",      "hugetlbfs",  "debugfs",      "tracefs", "securityfs",
                                "pstore",      "bpf",        "configfs",     "fusectl", "binfmt_misc",
                                "efivarfs",    "rpc_pipefs", "nsfs",         "nfsd",    "fuse.gvfsd-fuse",
                                "fuse.portal", "fuse.lxcfs", "fuse.snapfuse"});
}

bool isSystems(const Mount& mount)
{
    return mount.directory == "/" ||
           isBelowOneOf(mount.directory, {"/boot", "/efi", "/etc", "/usr", "/var", "/opt", "/snap", "/nix",
                                          "/proc", "/sys", "/dev", "/lib", "/lib64", "/run/user"});
}

bool isVolume(const Mount& mount)
{
    if (isVirtual(mount) || isSystems(mount))
        return false;
    return isBelowOneOf(mount.directory, {"/media", "/mnt", "/run/media"}) || isOptical(mount) ||
           isNetwork(mount) || isForeign(mount);
}

DriveKind kindOf(const Mount& mount)
{
    if (isOptical(mount))
        return DriveKind::Optical;
    return isNetwork(mount) ? DriveKind::Network : DriveKind::Removable;
}

bool isLocalFile(const QByteArray& source)
{
    return source.startsWith('/') && !source.startsWith("//"); // "//server/share"
}

Volume opticalDrive(const QByteArray& device, const std::vector<Mount>& mounts)
{
    const auto mounted = std::find_if(mounts.begin(), mounts.end(),
                                      [&](const Mount& mount) { return mount.source == device; });
    return {device, mounted == mounts.end() ? QByteArray() : mounted->directory, device, DriveKind::Optical};
}

} // namespace

std::vector<Volume> volumesOf(const std::vector<Mount>& mounts, const std::vector<QByteArray>& opticalDevices)
{
    std::vector<Volume> volumes;
    volumes.reserve(opticalDevices.size());
    for (const QByteArray& device : opticalDevices)
        volumes.push_back(opticalDrive(device, mounts));
    const auto others = static_cast<std::ptrdiff_t>(volumes.size());
    for (const Mount& mount : mounts) {
        const bool listed =
            std::find(opticalDevices.begin(), opticalDevices.end(), mount.source) != opticalDevices.end();
        if (!listed && isVolume(mount))
            volumes.push_back({mount.directory, mount.directory,
                               isLocalFile(mount.source) ? mount.source : QByteArray(), kindOf(mount)});
    }
    std::sort(volumes.begin() + others, volumes.end(),
              [](const Volume& a, const Volume& b) { return a.identity < b.identity; });
    return volumes;
}

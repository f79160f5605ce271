#include "system/files/directoryvisit.h"

#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>

#include <algorithm>
#include <iterator>

namespace {

// These are those that linux/magic.h leaves out.
constexpr unsigned long kConfigFs = 0x62656570;
constexpr unsigned long kFuseControl = 0x65735543;
constexpr unsigned long kMessageQueues = 0x19800202;
constexpr unsigned long kRpcPipes = 0x67596969;
constexpr unsigned long kNfsServer = 0x6e667364;
constexpr unsigned long kResourceControl = 0x07655821;

constexpr unsigned long kKernels[] = {
    PROC_SUPER_MAGIC, SYSFS_MAGIC,    DEVPTS_SUPER_MAGIC, CGROUP_SUPER_MAGIC,  CGROUP2_SUPER_MAGIC,
    DEBUGFS_MAGIC,    TRACEFS_MAGIC,  SECURITYFS_MAGIC,   PSTOREFS_MAGIC,      BPF_FS_MAGIC,
    EFIVARFS_MAGIC,   BINFMTFS_MAGIC, HUGETLBFS_MAGIC,    SELINUX_MAGIC,       SMACK_MAGIC,
    NSFS_MAGIC,       SOCKFS_MAGIC,   PIPEFS_MAGIC,       ANON_INODE_FS_MAGIC, kResourceControl,
    kConfigFs,        kFuseControl,   kMessageQueues,     kRpcPipes,           kNfsServer};

bool isKernels(int directory)
{
    struct statfs system {};
    const bool known = fstatfs(directory, &system) == 0;
    const auto type = static_cast<unsigned long>(system.f_type) & 0xffffffffUL;
    return known && std::find(std::begin(kKernels), std::end(kKernels), type) != std::end(kKernels);
}

} // namespace

bool enterDirectory(EnteredDirectories& walk, int directory)
{
    struct stat status {};
    if (fstat(directory, &status) != 0)
        return true; // reading it tells what is wrong
    const DirectoryPlace place{status.st_dev, status.st_ino, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
    return walk.enter(place, [directory] { return isKernels(directory); });
}

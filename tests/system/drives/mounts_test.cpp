#include "system/drives/mounts.h"

#include <gtest/gtest.h>

namespace {

QByteArray line(const QByteArray& directory, const QByteArray& type, const QByteArray& source)
{
    return "36 27 8:17 / " + directory + " rw,relatime shared:7 master:2 - " + type + ' ' + source + " rw\n";
}

std::vector<Volume> volumes(const QByteArray& mountinfo, const std::vector<QByteArray>& optical = {})
{
    return volumesOf(parseMounts(mountinfo), optical);
}

bool isVolume(const QByteArray& directory, const QByteArray& type, const QByteArray& source = "/dev/sdb1")
{
    return !volumes(line(directory, type, source)).empty();
}

} // namespace

TEST(ParseMounts, readsPlaceTypeAndSource)
{
    const auto mounts = parseMounts("27 1 254:0 / / rw,relatime - ext4 /dev/vda rw\n"
                                    "90 27 8:17 /sub /media/me/USB rw shared:1 - vfat /dev/sdb1 rw,uid=1000");
    ASSERT_EQ(mounts.size(), 2U);
    EXPECT_EQ(mounts[0].directory, "/");
    EXPECT_EQ(mounts[1].directory, "/media/me/USB");
    EXPECT_EQ(mounts[1].type, "vfat");
    EXPECT_EQ(mounts[1].source, "/dev/sdb1");
}

TEST(ParseMounts, placesHoldBlanksTabsLineEndsAndBackslashes)
{
    const auto mounts =
        parseMounts(line("/mnt/a\\040b\\011c\\012d\\134e\\0\xF8", "ext4", "/dev/my\\040disk"));
    ASSERT_EQ(mounts.size(), 1U);
    EXPECT_EQ(mounts[0].directory, "/mnt/a b\tc\nd\\e\\0\xF8");
    EXPECT_EQ(mounts[0].source, "/dev/my disk");
}

TEST(ParseMounts, damagedLinesAreLeftOut)
{
    EXPECT_TRUE(parseMounts("").empty());
    EXPECT_TRUE(
        parseMounts("\n\n - \n36 27 8:17 / /mnt rw - ext4\n36 27 8:17 / mnt rw - ext4 /dev/sda rw").empty());
    EXPECT_TRUE(parseMounts("36 27 8:17 / /mnt rw shared:1 ext4 /dev/sda rw").empty());
}

TEST(ParseMounts, theLastMountAtAPlaceHidesTheOthers)
{
    const auto mounts =
        parseMounts(line("/mnt/x", "autofs", "systemd-1") + line("/mnt/x", "nfs4", "server:/x"));
    ASSERT_EQ(mounts.size(), 1U);
    EXPECT_EQ(mounts[0].type, "nfs4");
}

TEST(Volumes, areWhatIsMountedWhereUsersMount)
{
    EXPECT_TRUE(isVolume("/media/me/USB", "ext4"));
    EXPECT_TRUE(isVolume("/mnt", "xfs"));
    EXPECT_TRUE(isVolume("/run/media/me/Big disk", "btrfs"));
    EXPECT_FALSE(isVolume("/mntx/disk", "ext4"));
    EXPECT_FALSE(isVolume("/", "ext4"));
    EXPECT_FALSE(isVolume("/home", "ext4"));
    EXPECT_FALSE(isVolume("/mnt/sandbox", "tmpfs", "tmpfs"));
    EXPECT_FALSE(isVolume("/media", "autofs", "systemd-1"));
}

TEST(Volumes, ofForeignNetworkAndOpticalTypesAreTakenAnywhereButAtTheSystemsPlaces)
{
    EXPECT_TRUE(isVolume("/windows", "ntfs3"));
    EXPECT_TRUE(isVolume("/home/me/share", "cifs", "//server/share"));
    EXPECT_TRUE(isVolume("/home/me/iso", "fuse.fuseiso", "fuseiso"));
    EXPECT_FALSE(isVolume("/boot/efi", "vfat"));
    EXPECT_FALSE(isVolume("/var/lib/machines", "nfs"));
    EXPECT_FALSE(isVolume("/run/user/1000/gvfs", "fuse.gvfsd-fuse", "gvfsd-fuse"));
    EXPECT_FALSE(isVolume("/snap/core/1", "squashfs", "/dev/loop1"));
}

TEST(Volumes, tellKindAndDevice)
{
    const auto found = volumes(line("/mnt/b", "iso9660", "/dev/loop3") +
                               line("/mnt/c", "cifs", "//server/c") + line("/mnt/a", "ext4", "/dev/sdb1"));
    ASSERT_EQ(found.size(), 3U);
    EXPECT_EQ(found[0].identity, "/mnt/a");
    EXPECT_EQ(found[0].kind, DriveKind::Removable);
    EXPECT_EQ(found[0].device, "/dev/sdb1");
    EXPECT_EQ(found[1].kind, DriveKind::Optical);
    EXPECT_EQ(found[2].kind, DriveKind::Network);
    EXPECT_EQ(found[2].device, "");
    EXPECT_EQ(found[2].directory, "/mnt/c");
}

TEST(Volumes, anOpticalDriveIsOneAlsoWhenItIsEmpty)
{
    const auto found =
        volumes(line("/media/a", "ext4", "/dev/sdb1") + line("/media/cdrom0", "udf", "/dev/sr1"),
                {"/dev/sr0", "/dev/sr1"});
    ASSERT_EQ(found.size(), 3U);
    EXPECT_EQ(found[0].identity, "/dev/sr0");
    EXPECT_EQ(found[0].directory, "");
    EXPECT_EQ(found[0].kind, DriveKind::Optical);
    EXPECT_EQ(found[1].identity, "/dev/sr1");
    EXPECT_EQ(found[1].directory, "/media/cdrom0");
    EXPECT_EQ(found[2].identity, "/media/a");
}

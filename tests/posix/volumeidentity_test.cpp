#include "posix/volumeidentity.h"

#include "tests/support/temporary.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

// Two mounts within each other; of the inner one the device has a link.
struct VolumeIdentityTest : testing::Test {
    VolumeIdentityTest()
    {
        directory.write("mounts", "1 0 8:1 / / rw - ext4 /dev/nowhere rw\n"
                                  "2 1 1:3 / /media/ROCK\\04001 rw - vfat /dev/null rw\n"
                                  "3 1 0:9 / /media/share rw - cifs //server/music rw\n");
        directory.makeDirectory("links");
        std::filesystem::create_symlink("/dev/zero", directory.at("links/AAAA-0001").toStdString());
        std::filesystem::create_symlink("/dev/null", directory.at("links/1234-ABCD").toStdString());
    }

    Temporary directory;
    VolumeIdentity volumes{directory.at("mounts"), directory.at("links")};
};

} // namespace

TEST_F(VolumeIdentityTest, isTheFileSystemsOwnWhereTheDeviceManagerKnowsIt)
{
    EXPECT_EQ(volumes.ofDirectory("/media/ROCK 01/"), "UUID 1234-ABCD");
    EXPECT_EQ(volumes.ofDirectory("/media/ROCK 01"), "UUID 1234-ABCD");
    EXPECT_EQ(volumes.ofDirectory("/media/ROCK 01/Music/"), "UUID 1234-ABCD");
}

TEST_F(VolumeIdentityTest, isElseWhatItIsMountedFrom)
{
    EXPECT_EQ(volumes.ofDirectory("/media/share/"), "cifs //server/music");
    EXPECT_EQ(volumes.ofDirectory("/media/ROCK 012/"), "ext4 /dev/nowhere");
    EXPECT_EQ(volumes.ofDirectory("/"), "ext4 /dev/nowhere");
}

TEST_F(VolumeIdentityTest, isNoneWithoutATableOfMounts)
{
    EXPECT_EQ(VolumeIdentity(directory.at("none"), directory.at("links")).ofDirectory("/media/"), "");
}

TEST(VolumeIdentity, isThatOfAMountThatIsThere)
{
    EXPECT_TRUE(VolumeIdentity().ofDirectory("/proc/").startsWith("proc "));
    EXPECT_NE(VolumeIdentity().ofDirectory("/"), "");
}

#include "system/drives/startfile.h"

#include "posix/xdg.h"
#include "tests/support/rights.h"
#include "tests/support/temporary.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

struct StartFile : testing::Test {
    Temporary directory;
    UserDirectories user{directory.at("home"), directory.at("config"), directory.at("state"),
                         directory.at("data")};

    StartFile()
    {
        directory.makeDirectory("home");
        directory.write("disk/a b.mp3");
    }
    bool may(const QByteArray& file) const
    {
        return mayBeThere(file, user, "D=" + directory.at("disk") + ",ROCK_01");
    }
};

} // namespace

TEST_F(StartFile, isThere)
{
    EXPECT_TRUE(may(directory.at("disk/a b.mp3")));
    EXPECT_TRUE(may(directory.at("disk")));
    EXPECT_TRUE(may(directory.at("disk/A B.MP3"))) << "as the drives find names";
    EXPECT_TRUE(may("file://" + directory.at("disk/a%20b.mp3")));
    EXPECT_TRUE(may("FILE://localhost" + directory.at("disk/a%20b.mp3")));
    EXPECT_TRUE(may("file:///D:/a%20b.mp3"));
    EXPECT_TRUE(may("file://another.machine/a.mp3")) << "nobody can tell";
}

TEST_F(StartFile, isNotThere)
{
    EXPECT_FALSE(may(directory.at("disk/none.mp3")));
    EXPECT_FALSE(may(directory.at("none/a.mp3")));
    EXPECT_FALSE(may(directory.at("disk/a b.mp3/below")));
    EXPECT_FALSE(may("file://" + directory.at("disk/none.mp3")));
    EXPECT_FALSE(may("file:///D:/none.mp3"));
    EXPECT_FALSE(may("file:///Q:/a.mp3"));
    ASSERT_EQ(symlink("nowhere", directory.at("disk/link.mp3").constData()), 0);
    EXPECT_FALSE(may(directory.at("disk/link.mp3")));
}

TEST_F(StartFile, whatCannotBeLookedAtMayBeThere)
{
    directory.makeDirectory("closed");
    chmod(directory.path().constData(), 0755);
    chmod(directory.at("closed").constData(), 0700);
    const Unprivileged ordinary;
    EXPECT_TRUE(may(directory.at("closed/a.mp3")));
}

TEST_F(StartFile, isToldInOneLine)
{
    EXPECT_EQ(notThere("/a b.mp3"), "Songbin: there is no file /a b.mp3\n");
    EXPECT_EQ(notThere("/a\nb\x1b[2J\x7f.mp3"), "Songbin: there is no file /a?b?[2J?.mp3\n");
    EXPECT_EQ(notThere("/\xc3\xb8\xff"), "Songbin: there is no file /\xc3\xb8\xff\n");
}

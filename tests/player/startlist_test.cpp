#include "player/startlist.h"

#include "tests/player/playlistworld.h"
#include "tests/support/rights.h"

#include <sys/stat.h>

namespace {

struct StartListTest : PlaylistWorld {
    StartListTest()
    {
        list.add(u"a"_qs, u"D:\\a.mp3"_qs);
        list.add(u"b"_qs, u"P:\\b.mp3"_qs);
    }
    // In a list of its own.
    Playlist readBack(int lastTrack)
    {
        Playlist fresh;
        readStartList(fresh, lastTrack, true, seams);
        return fresh;
    }
};

} // namespace

TEST_F(StartListTest, comesBackWithItsLastEntry)
{
    EXPECT_TRUE(writeStartList(list, seams));
    EXPECT_EQ(world.directory.read("program/playlist.m3u"), "D:\\a.mp3\r\nb.mp3\r\n");
    const Playlist fresh = readBack(2);
    EXPECT_EQ(fresh.entries(), list.entries());
    EXPECT_EQ(fresh.selected(), 1);
    EXPECT_EQ(fresh.CurTrack(), 2);
}

TEST_F(StartListTest, aNumberOfNoEntryStartsAtTheFirst)
{
    writeStartList(list, seams);
    for (const int number : {0, -1, 3, 32767, -32768, 100'000}) {
        const Playlist fresh = readBack(number);
        EXPECT_EQ(fresh.count(), 2);
        EXPECT_EQ(fresh.selected(), -1);
        EXPECT_EQ(fresh.CurTrack(), 1);
    }
}

TEST_F(StartListTest, anEmptyOrMissingListIsEmpty)
{
    EXPECT_EQ(readBack(1).count(), 0);
    EXPECT_EQ(readBack(1).selected(), -1);
    EXPECT_EQ(readBack(1).name(), u"untitled"_qs);
    EXPECT_EQ(readBack(1).file(), QString());
    world.directory.write("program/playlist.m3u");
    EXPECT_EQ(readBack(1).count(), 0);
    EXPECT_EQ(readBack(1).CurTrack(), 1);
}

TEST_F(StartListTest, theAutomaticListComesBack)
{
    const QStringList items{u"Sjø €"_qs, u"b"_qs};
    EXPECT_TRUE(writeAutoList(true, items, seams));
    EXPECT_EQ(world.directory.read("program/autolist.txt"), "Sj\xC3\xB8 \xE2\x82\xAC\r\nb\r\n");
    EXPECT_EQ(readAutoList(true, seams), items);
    EXPECT_EQ(readAutoList(false, seams), QStringList());
}

TEST_F(StartListTest, theAutomaticListIsTrimmedLinesThatAreNotEmpty)
{
    EXPECT_EQ(readAutoList(true, seams), QStringList());
    world.directory.write("program/autolist.txt", "\xEF\xBB\xBF a \r\n\r\n   \nSj\xF8\rlast");
    EXPECT_EQ(readAutoList(true, seams), (QStringList{u"a"_qs, u"Sjø"_qs, u"last"_qs}));
}

TEST_F(StartListTest, anItemIsOneLine)
{
    writeAutoList(true, {u"a\r\nb"_qs}, seams);
    EXPECT_EQ(readAutoList(true, seams), QStringList(u"a  b"_qs));
}

TEST_F(StartListTest, switchedOffTheAutomaticListStays)
{
    world.directory.write("program/autolist.txt", "old");
    EXPECT_TRUE(writeAutoList(false, {u"new"_qs}, seams));
    EXPECT_EQ(world.directory.read("program/autolist.txt"), "old");
}

TEST_F(StartListTest, aFailedWriteKeepsTheOldList)
{
    world.directory.write("program/autolist.txt", "old");
    world.directory.makeDirectory("program/autolist.txt.new/full"); // where the new content would go
    EXPECT_FALSE(writeAutoList(true, {u"new"_qs}, seams));
    EXPECT_EQ(world.directory.read("program/autolist.txt"), "old");
}

#include "player/playlist/startlist.h"

#include "tests/support/errorof.h"
#include "tests/support/playlistworld.h"
#include "tests/support/rights.h"

#include <filesystem>

#include <sys/stat.h>

namespace {

struct StartListTest : PlaylistWorld {
    StartListTest()
    {
        list.add(u"a"_qs, u"D:\\a.mp3"_qs);
        list.add(u"b"_qs, u"P:\\b.mp3"_qs);
    }
    // Reads it into a list of its own.
    Playlist readBack(int lastTrack)
    {
        Playlist fresh;
        last = StartList(seams).read(fresh, lastTrack, true);
        return fresh;
    }
    // Makes a link, so that reading fails in that file's way.
    void becomes(const QByteArray& file, const char* target) const
    {
        unlink(world.directory.at(file).constData());
        ASSERT_EQ(symlink(target, world.directory.at(file).constData()), 0);
    }
    void becomesFile(const QByteArray& file, const QByteArray& content) const
    {
        unlink(world.directory.at(file).constData());
        world.directory.write(file, content);
    }

    StartList start{seams};
    AutoList items{seams};
    ListRead last = ListRead::Whole;
    inline static const QByteArray kStart = "program/playlist.m3u";
    inline static const QByteArray kItems = "program/autolist.txt";
};

} // namespace

TEST_F(StartListTest, comesBackWithItsLastEntry)
{
    start.write(list);
    EXPECT_EQ(world.directory.read("program/playlist.m3u"), "D:\\a.mp3\r\nb.mp3\r\n");
    const Playlist fresh = readBack(2);
    EXPECT_EQ(fresh.entries(), list.entries());
    EXPECT_EQ(fresh.selected(), 1);
    EXPECT_EQ(fresh.CurTrack(), 2);
}

TEST_F(StartListTest, aNumberOfNoEntryStartsAtTheFirst)
{
    start.write(list);
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
    EXPECT_EQ(last, ListRead::Missing);
    EXPECT_EQ(readBack(1).selected(), -1);
    EXPECT_EQ(readBack(1).name(), u"untitled"_qs);
    EXPECT_EQ(readBack(1).file(), QString());
    world.directory.write("program/playlist.m3u");
    EXPECT_EQ(readBack(1).count(), 0);
    EXPECT_EQ(readBack(1).CurTrack(), 1);
}

TEST_F(StartListTest, whatCouldNotBeReadIsNotWrittenOver)
{
    struct stat state {};
    const char* const kShort = "/sys/kernel/mm/transparent_hugepage/enabled";
    for (const char* const target : {"/proc/self/mem", "/dev/null", "nowhere/at/all", kShort}) {
        if (target == kShort && stat(kShort, &state) != 0)
            continue;
        Playlist fresh;
        becomes(kStart, target);
        EXPECT_EQ(start.read(fresh, 1, true), ListRead::Failed) << target;
        EXPECT_FALSE(start.isKept()) << target;
        becomesFile(kStart, "mine.mp3\r\n"); // it could be read again
        start.write(list);
        EXPECT_EQ(world.directory.read(kStart), "mine.mp3\r\n") << target;
    }
    Playlist fresh;
    EXPECT_EQ(start.read(fresh, 1, true), ListRead::Whole);
    start.write(list);
    EXPECT_EQ(world.directory.read(kStart), "D:\\a.mp3\r\nb.mp3\r\n");
}

TEST_F(StartListTest, whatMayNotBeReadIsNotWrittenOver)
{
    world.directory.write(kStart, "mine.mp3\r\n");
    chmod(world.directory.at(kStart).constData(), 0);
    chmod(world.directory.path().constData(), 0755);
    {
        const Unprivileged ordinary;
        Playlist fresh;
        EXPECT_EQ(start.read(fresh, 1, true), ListRead::Failed);
    }
    start.write(list);
    EXPECT_EQ(world.directory.read(kStart), "mine.mp3\r\n");
}

TEST_F(StartListTest, aPartThatWasReadIsShownAndNotWrittenOver)
{
    world.directory.write(kStart, "a.mp3\r\n");
    std::filesystem::resize_file(world.directory.at(kStart).toStdString(), 100'000'000); // a line without end
    Playlist fresh;
    EXPECT_EQ(start.read(fresh, 1, true), ListRead::Failed);
    EXPECT_EQ(fresh.count(), 1);
    start.write(fresh);
    EXPECT_EQ(std::filesystem::file_size(world.directory.at(kStart).toStdString()), 100'000'000U);
}

TEST_F(StartListTest, oneThatIsLeftAloneIsNotWritten)
{
    world.directory.write(kStart, "mine.mp3\r\n");
    start.leaveAlone();
    start.write(list);
    EXPECT_EQ(world.directory.read(kStart), "mine.mp3\r\n");
}

TEST_F(StartListTest, whatAListDoesNotTakeIsCopiedBeforeItIsWrittenOver)
{
    const QByteArray whole = QByteArray("a.mp3\r\n").repeated(40'000);
    for (const QByteArray& copy :
         {QByteArray("program/playlist.whole.m3u"), QByteArray("program/playlist.whole-2.m3u")}) {
        world.directory.write(kStart, whole);
        Playlist fresh;
        EXPECT_EQ(start.read(fresh, 1, true), ListRead::Full);
        EXPECT_EQ(fresh.count(), kMostEntries);
        EXPECT_FALSE(world.directory.exists(copy));
        start.write(fresh);
        start.write(fresh);
        EXPECT_EQ(world.directory.read(copy), whole) << copy.constData();
        EXPECT_EQ(world.directory.read(kStart), QByteArray("a.mp3\r\n").repeated(kMostEntries));
    }
    EXPECT_FALSE(world.directory.exists("program/playlist.whole-3.m3u"));
}

TEST_F(StartListTest, withoutACopyTheLongListStays)
{
    const QByteArray whole = QByteArray("a.mp3\r\n").repeated(40'000);
    world.directory.write(kStart, whole);
    world.directory.makeDirectory("program/playlist.whole.m3u"); // in the way
    Playlist fresh;
    start.read(fresh, 1, true);
    EXPECT_NE(errorOf([&] { start.write(fresh); }), 0);
    EXPECT_EQ(world.directory.read(kStart), whole);
    rmdir(world.directory.at("program/playlist.whole.m3u").constData());
    start.write(fresh);
    EXPECT_EQ(world.directory.read("program/playlist.whole.m3u"), whole);
}

TEST_F(StartListTest, theAutomaticListComesBack)
{
    items.items = {u"Sjø €"_qs, u"b"_qs};
    items.write(true);
    EXPECT_EQ(world.directory.read("program/autolist.txt"), "Sj\xC3\xB8 \xE2\x82\xAC\r\nb\r\n");
    AutoList again(seams);
    EXPECT_EQ(again.read(true), ListRead::Whole);
    EXPECT_EQ(again.items, items.items);
    again.read(false);
    EXPECT_EQ(again.items, QStringList());
}

TEST_F(StartListTest, theAutomaticListIsTrimmedLinesThatAreNotEmpty)
{
    EXPECT_EQ(items.read(true), ListRead::Missing);
    EXPECT_EQ(items.items, QStringList());
    world.directory.write("program/autolist.txt", "\xEF\xBB\xBF a \r\n\r\n   \nSj\xF8\rlast");
    EXPECT_EQ(items.read(true), ListRead::Whole);
    EXPECT_EQ(items.items, (QStringList{u"a"_qs, u"Sjø"_qs, u"last"_qs}));
}

TEST_F(StartListTest, anItemIsOneLine)
{
    items.items = {u"a\r\nb"_qs};
    items.write(true);
    items.read(true);
    EXPECT_EQ(items.items, QStringList(u"a  b"_qs));
}

TEST_F(StartListTest, switchedOffTheAutomaticListStays)
{
    world.directory.write("program/autolist.txt", "old");
    items.items = {u"new"_qs};
    items.write(false);
    EXPECT_EQ(world.directory.read("program/autolist.txt"), "old");
}

TEST_F(StartListTest, aFailedWriteKeepsTheOldAutomaticList)
{
    world.directory.write(kItems, "old");
    // Where the new content would go.
    world.directory.makeDirectory("program/.songbin-new-" + QByteArray::number(geteuid()) + "/full");
    items.items = {u"new"_qs};
    EXPECT_NE(errorOf([&] { items.write(true); }), 0);
    EXPECT_EQ(world.directory.read(kItems), "old");
}

TEST_F(StartListTest, anAutomaticListThatCouldNotBeReadIsNotWrittenOver)
{
    struct stat state {};
    const char* const kShort = "/sys/kernel/mm/transparent_hugepage/enabled";
    for (const char* const target : {"/proc/self/mem", "/dev/null", kShort}) {
        if (target == kShort && stat(kShort, &state) != 0)
            continue;
        becomes(kItems, target);
        EXPECT_EQ(items.read(true), ListRead::Failed) << target;
        EXPECT_EQ(items.items, QStringList());
        becomesFile(kItems, "mine");
        items.items = {u"new"_qs};
        items.write(true);
        EXPECT_EQ(world.directory.read(kItems), "mine") << target;
    }
    world.directory.write(kItems, QByteArray(17 << 20, 'x'));
    EXPECT_EQ(items.read(true), ListRead::Failed) << "larger than a hand could make it";
    items.write(true);
    EXPECT_EQ(world.directory.read(kItems).size(), 17 << 20);
    EXPECT_EQ(numbers.freeFile(), 1);
}

TEST_F(StartListTest, anAutomaticListThatMayNotBeReadIsNotWrittenOver)
{
    world.directory.write(kItems, "mine");
    chmod(world.directory.at(kItems).constData(), 0);
    chmod(world.directory.path().constData(), 0755);
    {
        const Unprivileged ordinary;
        EXPECT_EQ(items.read(true), ListRead::Failed);
    }
    items.items = {u"new"_qs};
    items.write(true);
    EXPECT_EQ(world.directory.read(kItems), "mine");
}

TEST_F(StartListTest, theAutomaticListMayHave16Megabytes)
{
    world.directory.write(kItems, "a\n" + QByteArray((16 << 20) - 2, ' '));
    EXPECT_EQ(items.read(true), ListRead::Whole);
    EXPECT_EQ(items.items, QStringList(u"a"_qs));
    world.directory.write(kItems, "a\n" + QByteArray((16 << 20) - 1, ' '));
    EXPECT_EQ(items.read(true), ListRead::Failed);
    EXPECT_EQ(items.items, QStringList());
}

TEST_F(StartListTest, theAutomaticListNeedsNoFileNumber)
{
    world.directory.write(kItems, "a");
    for (int number = 1; number <= 511; ++number)
        numbers.openBinary(number, u"P:\\autolist.txt"_qs);
    EXPECT_EQ(items.read(true), ListRead::Whole);
    EXPECT_EQ(items.items, QStringList(u"a"_qs));
}

#include "player/playlist/playlist.h"

#include "base/runtimeerror.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <functional>

namespace {

struct PlaylistTest : testing::Test {
    PlaylistTest()
    {
        for (const QString& name : {u"a"_qs, u"b"_qs, u"c"_qs})
            list.add(name, u"D:\\"_qs + name);
        list.setObserver([this] { ++told; });
    }
    QStringList names() const
    {
        QStringList names;
        for (const PlaylistEntry& entry : list.entries()) {
            names += entry.name;
            EXPECT_EQ(entry.path, u"D:\\"_qs + entry.name);
        }
        return names;
    }

    Playlist list;
    int told = 0;
};

} // namespace

TEST(Playlist, isEmptyAndUntitledAtFirst)
{
    const Playlist list;
    EXPECT_EQ(list.count(), 0);
    EXPECT_EQ(list.selected(), -1);
    EXPECT_EQ(list.CurTrack(), 1);
    EXPECT_EQ(list.name(), u"untitled"_qs);
    EXPECT_EQ(list.entryCountText(), u" 0"_qs);
}

TEST_F(PlaylistTest, countsItsEntriesWithALeadingBlank)
{
    EXPECT_EQ(list.entryCountText(), u" 3"_qs);
}

TEST_F(PlaylistTest, removingSelectsTheFollowingOrTheNewLastEntry)
{
    list.select(0);
    list.remove(1);
    EXPECT_EQ(names(), (QStringList{u"a"_qs, u"c"_qs}));
    EXPECT_EQ(list.selected(), 1);
    list.remove(1);
    EXPECT_EQ(list.selected(), 0);
    list.remove(0);
    EXPECT_EQ(list.selected(), -1);
    EXPECT_EQ(told, 4);
}

TEST_F(PlaylistTest, removingWhatIsNoEntryDoesNothing)
{
    list.select(2);
    told = 0;
    list.remove(-1);
    list.remove(3);
    EXPECT_EQ(list.count(), 3);
    EXPECT_EQ(list.selected(), 2);
    EXPECT_EQ(told, 0);
}

TEST_F(PlaylistTest, removingLeavesTheNumberOfTheCurrentEntry)
{
    list.setCurTrack(3);
    list.remove(0);
    EXPECT_EQ(list.CurTrack(), 3);
}

TEST_F(PlaylistTest, theSelectedEntryMoves)
{
    list.select(0);
    list.PlMoveEntry(1);
    EXPECT_EQ(names(), (QStringList{u"b"_qs, u"a"_qs, u"c"_qs}));
    EXPECT_EQ(list.selected(), 1);
    list.PlMoveEntry(-1);
    EXPECT_EQ(names(), (QStringList{u"a"_qs, u"b"_qs, u"c"_qs}));
    EXPECT_EQ(list.selected(), 0);
    EXPECT_EQ(told, 3);
}

TEST_F(PlaylistTest, nothingMovesBeyondTheEndsOrWithoutASelection)
{
    const QStringList before = names();
    list.PlMoveEntry(1);
    list.PlMoveEntry(-1);
    list.select(0);
    list.PlMoveEntry(-1);
    list.select(2);
    list.PlMoveEntry(1);
    EXPECT_EQ(names(), before);
    EXPECT_EQ(list.selected(), 2);
    EXPECT_EQ(told, 2);
}

TEST_F(PlaylistTest, clearingForgetsAll)
{
    list.select(1);
    list.setCurTrack(2);
    list.setFile(u"Mine"_qs, u"D:\\Mine.m3u"_qs);
    EXPECT_EQ(list.name(), u"Mine"_qs);
    told = 0;
    list.PlClear();
    EXPECT_EQ(list.count(), 0);
    EXPECT_EQ(list.selected(), -1);
    EXPECT_EQ(list.CurTrack(), 1);
    EXPECT_EQ(list.name(), u"untitled"_qs);
    EXPECT_EQ(list.file(), QString());
    EXPECT_EQ(told, 1);
}

TEST_F(PlaylistTest, aMissingFileIsMarkedOnce)
{
    list.markNotFound(1);
    list.markNotFound(1);
    list.markNotFound(-1);
    list.markNotFound(3);
    EXPECT_EQ(list.entries()[1], (PlaylistEntry{u"b [FILE NOT FOUND]"_qs, QString()}));
    EXPECT_EQ(list.entries()[0].path, u"D:\\a"_qs);
    list.add(u"a [FILE NOT FOUND] b"_qs, u"D:\\x"_qs);
    list.markNotFound(list.count() - 1);
    EXPECT_EQ(list.entries().back(), (PlaylistEntry{u"a [FILE NOT FOUND] b"_qs, QString()}));
}

TEST_F(PlaylistTest, onlyAnEntryCanBeSelected)
{
    list.select(2);
    EXPECT_EQ(list.selected(), 2);
    list.select(3);
    EXPECT_EQ(list.selected(), -1);
    list.select(-5);
    EXPECT_EQ(list.selected(), -1);
}

TEST_F(PlaylistTest, theCurrentEntryHasSixteenBits)
{
    list.setCurTrack(32767);
    EXPECT_THROW(list.setCurTrack(32768), RunTimeError);
    EXPECT_THROW(list.setCurTrack(-32769), RunTimeError);
    EXPECT_EQ(list.CurTrack(), 32767);
}

TEST_F(PlaylistTest, aBatchIsToldOnceWhenTheLastOneEnds)
{
    {
        const Playlist::Batch outer(list);
        {
            const Playlist::Batch inner(list);
            for (int i = 0; i < 30'000; ++i)
                list.add(u"x"_qs, u"D:\\x"_qs);
        }
        EXPECT_EQ(told, 0);
        EXPECT_EQ(list.entryCountText(), u" 30003"_qs);
    }
    EXPECT_EQ(told, 1);
}

TEST_F(PlaylistTest, whatAUserDoesDuringABatchIsToldAtOnce)
{
    {
        const Playlist::Batch batch(list);
        list.add(u"x"_qs, u"D:\\x"_qs);
        list.select(0);
        EXPECT_EQ(told, 1);
    }
    EXPECT_EQ(told, 1); // nothing came after it
    {
        const Playlist::Batch nothing(list);
    }
    EXPECT_EQ(told, 1);
}

TEST_F(PlaylistTest, takesNoMoreThanItsMost)
{
    const Playlist::Batch batch(list);
    while (list.count() < kMostEntries)
        ASSERT_TRUE(list.add(u"x"_qs, u"D:\\x"_qs));
    EXPECT_TRUE(list.isFull());
    EXPECT_FALSE(list.add(u"y"_qs, u"D:\\y"_qs));
    EXPECT_EQ(list.count(), 32'766);
    list.remove(0);
    EXPECT_TRUE(list.add(u"y"_qs, u"D:\\y"_qs));
}

TEST_F(PlaylistTest, countsWhatIsDoneToItsEntries)
{
    const auto changes = [this](const std::function<void()>& action) {
        const int before = list.changes();
        action();
        return list.changes() != before;
    };
    EXPECT_TRUE(changes([this] { list.add(u"x"_qs, u"D:\\x"_qs); }));
    EXPECT_TRUE(changes([this] { list.add(u"y"_qs, u"D:\\y"_qs); }));
    EXPECT_FALSE(changes([this] { list.select(0); }));
    EXPECT_FALSE(changes([this] { list.setCurTrack(2); }));
    EXPECT_FALSE(changes([this] { list.setFile(u"n"_qs, u"D:\\n.m3u"_qs); }));
    EXPECT_FALSE(changes([this] { list.PlMoveEntry(-1); })) << "there is nothing above";
    EXPECT_TRUE(changes([this] { list.PlMoveEntry(1); }));
    EXPECT_FALSE(changes([this] { list.markNotFound(0); })) << "nobody has done that";
    EXPECT_TRUE(changes([this] { list.remove(0); }));
    EXPECT_FALSE(changes([this] { list.remove(7); }));
    EXPECT_TRUE(changes([this] { list.PlClear(); }));
}

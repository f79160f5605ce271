#include "player/playback/playerkeeper.h"

#include "tests/player/playback/playersettingstest.h"
#include "tests/support/playlistworld.h"

using namespace std::chrono_literals;

namespace {

const QByteArray kList = "program/playlist.m3u";
const QByteArray kItems = "program/autolist.txt";

struct Keeper : PlaylistWorld {
    // Does what a window does as it loads, with the list of the last time if the options say so.
    void begin()
    {
        keeper.loadOptions();
        if (settings.StartMd == 1)
            keeper.restoreList(list);
        settings.LastTrack = list.CurTrack();
        keeper.begin();
    }
    void add(const QString& path) { list.add(u"name"_qs, path); }
    QString look(std::chrono::milliseconds time) { return keeper.look(start + time); }
    QByteArray kept() const
    {
        return world.directory.exists(kList) ? world.directory.read(kList) : "(absent)";
    }

    RecordingSettings store;
    PlayerSettings settings;
    PlayerKeeper keeper{store, settings, list, seams};
    const PlayerKeeper::Clock::time_point start{};
};

} // namespace

TEST_F(Keeper, savesTwoSecondsAfterAnOptionChanged)
{
    begin();
    look(0s);
    store.names.clear();
    settings.WinOnTop = 1;
    look(1s);
    look(2999ms);
    EXPECT_EQ(store.names, QStringList());
    look(3s);
    EXPECT_EQ(store.values.value(u"WinOnTop"_qs), u"1"_qs);
    EXPECT_EQ(kept(), "(absent)") << "nobody touched the list";
    store.names.clear();
    look(60s);
    EXPECT_EQ(store.names, QStringList()) << "once";
}

TEST_F(Keeper, savesTwoSecondsAfterTheListChanged)
{
    begin();
    add(u"D:\\a"_qs);
    look(1s);
    look(2999ms);
    EXPECT_EQ(kept(), "(absent)");
    look(3s);
    EXPECT_EQ(kept(), "D:\\a\r\n");
    EXPECT_EQ(store.values.value(u"WinOnTop"_qs, u"(absent)"_qs), u"(absent)"_qs);
    list.remove(0);
    look(4s);
    look(6s);
    EXPECT_EQ(kept(), "");
}

TEST_F(Keeper, savesWhileItGoesOnChanging)
{
    begin();
    for (int second = 0; second <= 4; ++second) {
        add(u"D:\\%1"_qs.arg(second));
        look(std::chrono::seconds(second));
    }
    EXPECT_EQ(kept(), "D:\\0\r\nD:\\1\r\nD:\\2\r\n") << "the first change counts";
    look(5s);
    EXPECT_EQ(kept(), "D:\\0\r\nD:\\1\r\nD:\\2\r\nD:\\3\r\nD:\\4\r\n");
}

TEST_F(Keeper, savesTheCurrentEntryAndThePlace)
{
    begin();
    settings.WinSavePos = 1;
    settings.X = 150;
    settings.LastTrack = 7;
    settings.LastCover = u"D:\\c.jpg"_qs;
    look(0s);
    look(2s);
    EXPECT_EQ(store.values.value(u"X"_qs), u"150"_qs);
    EXPECT_EQ(store.values.value(u"LastTrack"_qs), u"7"_qs);
    EXPECT_EQ(store.values.value(u"LastCover"_qs), u"D:\\c.jpg"_qs);
}

TEST_F(Keeper, savesNothingBeforeItHasBegun)
{
    keeper.loadOptions();
    settings.WinOnTop = 1;
    add(u"D:\\a"_qs);
    look(0s);
    look(60s);
    keeper.saveChanges();
    EXPECT_TRUE(store.values.isEmpty());
    EXPECT_EQ(kept(), "(absent)");
}

TEST_F(Keeper, savesAtAnEndWhatHasChanged)
{
    begin();
    store.names.clear();
    keeper.saveChanges();
    EXPECT_EQ(store.names, QStringList());
    EXPECT_EQ(kept(), "(absent)");
    add(u"D:\\a"_qs);
    settings.LastTrack = 1;
    keeper.saveChanges();
    EXPECT_EQ(kept(), "D:\\a\r\n");
}

TEST_F(Keeper, leavesAListAloneThatCouldNotBeRead)
{
    store.values[u"StartMd"_qs] = u"1"_qs;
    store.values[u"LastTrack"_qs] = u"5"_qs;
    world.directory.makeDirectory(kList); // in the way
    begin();
    EXPECT_EQ(keeper.unread(),
              u"playlist.m3u could not be read. It stays as it is; this list is not kept."_qs);
    ASSERT_EQ(rmdir(world.directory.at(kList).constData()), 0);
    world.directory.write(kList, "mine");
    add(u"D:\\a"_qs);
    settings.LastTrack = 1;
    look(0s);
    look(2s);
    EXPECT_EQ(kept(), "mine");
    keeper.saveChanges();
    keeper.saveAll();
    EXPECT_EQ(kept(), "mine");
    EXPECT_EQ(store.values.value(u"LastTrack"_qs), u"5"_qs);
    EXPECT_EQ(store.values.value(u"WinOnTop"_qs), u"0"_qs) << "the options have nothing to do with it";
    EXPECT_TRUE(world.dialogs.messages.empty());
}

TEST_F(Keeper, writesAListThatWasNotToBeRead)
{
    world.directory.makeDirectory(kList);
    begin();
    EXPECT_EQ(keeper.unread(), QString());
    ASSERT_EQ(rmdir(world.directory.at(kList).constData()), 0);
    world.directory.write(kList, "of another time");
    add(u"D:\\a"_qs);
    keeper.saveAll();
    EXPECT_EQ(kept(), "D:\\a\r\n");
}

TEST_F(Keeper, leavesTheListAloneWhenTheOptionsCouldNotBeRead)
{
    store.values[u"StartMd"_qs] = u"1"_qs;
    store.unread = {u"StartMd"_qs};
    world.directory.write(kList, "mine");
    keeper.loadOptions();
    EXPECT_EQ(keeper.unread(),
              u"The settings could not be read. They stay as they are. This list is not kept."_qs);
    keeper.restoreList(list); // it can be read now, but who knows whether it was wanted
    keeper.begin();
    add(u"D:\\a"_qs);
    look(0s);
    look(2s);
    keeper.saveAll();
    EXPECT_EQ(kept(), "mine");
}

TEST_F(Keeper, keepsTheListWhenAnotherOptionCouldNotBeRead)
{
    store.unread = {u"WinOnTop"_qs};
    begin();
    EXPECT_EQ(keeper.unread(), u"The settings could not be read. They stay as they are."_qs);
    add(u"D:\\a"_qs);
    look(0s);
    EXPECT_EQ(look(2s), QString());
    EXPECT_EQ(kept(), "D:\\a\r\n");
}

TEST_F(Keeper, savesWhatHasChangedAndNothingElse)
{
    store.values[u"TimeFmt"_qs] = u"1"_qs;
    begin();
    store.values[u"TimeFmt"_qs] = u"0"_qs; // by hand
    store.names.clear();
    settings.WinOnTop = 1;
    look(0s);
    look(2s);
    EXPECT_EQ(store.names, (QStringList{u"WinOnTop"_qs, u"LastCover"_qs, u"LastTrack"_qs}));
    EXPECT_EQ(store.values.value(u"TimeFmt"_qs), u"0"_qs);
    store.names.clear();
    settings.WinSavePos = 1;
    look(3s);
    look(5s);
    EXPECT_EQ(store.names,
              (QStringList{u"WinSavePos"_qs, u"X"_qs, u"Y"_qs, u"LastCover"_qs, u"LastTrack"_qs}))
        << "a place that was not to be saved before";
}

TEST_F(Keeper, saysThatOptionsCannotBeSavedThoughSomethingElseWasUnread)
{
    store.values[u"Auto"_qs] = u"1"_qs;
    world.directory.makeDirectory(kItems);
    begin();
    ASSERT_FALSE(keeper.unread().isEmpty());
    store.fails = true;
    settings.WinOnTop = 1;
    look(0s);
    EXPECT_EQ(look(2s), u"What has changed could not be saved yet."_qs);
    store.fails = false;
    look(32s);
    EXPECT_EQ(store.values.value(u"WinOnTop"_qs), u"1"_qs);
}

TEST_F(Keeper, writesTheListOnceWhileOptionsCannotBeSaved)
{
    begin();
    store.fails = true;
    settings.WinOnTop = 1;
    add(u"D:\\a"_qs);
    look(0s);
    look(2s);
    EXPECT_EQ(kept(), "D:\\a\r\n");
    world.directory.write(kList, "of another program");
    look(32s);
    EXPECT_EQ(kept(), "of another program");
    add(u"D:\\b"_qs);
    look(62s);
    EXPECT_EQ(kept(), "D:\\a\r\nD:\\b\r\n");
}

TEST_F(Keeper, leavesAnAutomaticListAloneThatCouldNotBeRead)
{
    store.values[u"Auto"_qs] = u"1"_qs;
    world.directory.makeDirectory(kItems);
    begin();
    EXPECT_EQ(keeper.unread(), u"autolist.txt could not be read. It stays as it is."_qs);
    ASSERT_EQ(rmdir(world.directory.at(kItems).constData()), 0);
    world.directory.write(kItems, "mine");
    keeper.saveAll();
    EXPECT_EQ(world.directory.read(kItems), "mine");
}

TEST_F(Keeper, saysThatAListIsLongerThanWhatWasRead)
{
    store.values[u"StartMd"_qs] = u"1"_qs;
    world.directory.write(kList, QByteArray("a.mp3\r\n").repeated(32'767));
    begin();
    EXPECT_EQ(keeper.unread(), u"playlist.m3u holds more than 32766 entries. The first ones were read."_qs);
    EXPECT_FALSE(world.directory.exists("program/playlist.whole.m3u"));
    list.remove(0);
    look(0s);
    look(2s);
    EXPECT_EQ(world.directory.read("program/playlist.whole.m3u").count('\n'), 32'767);
    EXPECT_EQ(kept().count('\n'), 32'765);
}

TEST_F(Keeper, saysOnceThatSavingFails)
{
    begin();
    world.directory.makeDirectory(kList); // in the way
    add(u"D:\\a"_qs);
    EXPECT_EQ(look(0s), QString());
    EXPECT_EQ(look(2s), u"What has changed could not be saved yet."_qs);
    EXPECT_EQ(look(3s), QString());
    EXPECT_EQ(look(40s), QString()) << "once";
    ASSERT_EQ(rmdir(world.directory.at(kList).constData()), 0);
    look(50s);
    EXPECT_EQ(kept(), "(absent)") << "not again and again";
    look(70s);
    EXPECT_EQ(kept(), "D:\\a\r\n");
    EXPECT_TRUE(world.dialogs.messages.empty());
}

TEST_F(Keeper, tellsAtTheEndWhatCouldNotBeWritten)
{
    store.values[u"Auto"_qs] = u"1"_qs;
    begin();
    world.directory.makeDirectory(kList);
    world.directory.makeDirectory(kItems);
    keeper.saveAll();
    ASSERT_EQ(world.dialogs.messages.size(), 2U);
    for (const int index : {0, 1})
        EXPECT_EQ(world.dialogs.said(index), u"Songbin|Unable to write Playlist! Is the file read-only?"_qs);
    EXPECT_EQ(store.values.value(u"LastTrack"_qs), u"1"_qs);
}

TEST_F(Keeper, tellsAtTheEndOnceEverythingElseIsSaved)
{
    store.values[u"Auto"_qs] = u"1"_qs;
    begin();
    add(u"D:\\a"_qs);
    world.directory.makeDirectory(kItems);
    QByteArray keptWhenTold;
    world.dialogs.onMessage = [&](const Message&) { keptWhenTold = kept(); };
    keeper.saveAll();
    ASSERT_EQ(world.dialogs.messages.size(), 1U);
    EXPECT_EQ(keptWhenTold, "D:\\a\r\n") << "a message may stand there when the program is killed";
}

#include "player/playlist/playlistcommands.h"

#include "base/filenametext.h"
#include "tests/support/playlistworld.h"

namespace {

// FakeDialogs keeps no filter.
class FilterDialogs : public FakeDialogs {
public:
    std::optional<QString> openFile(const FileQuestion& question) override
    {
        filter = question.filter;
        return FakeDialogs::openFile(question);
    }
    std::optional<QString> saveFile(const FileQuestion& question) override
    {
        filter = question.filter;
        return FakeDialogs::saveFile(question);
    }
    QString filter;
};

struct PlaylistCommandsTest : PlaylistWorld {
    PlaylistCommandsTest()
    {
        for (const char* const name : {"m/a.mp3", "m/b.txt", "m/sub/c.WAV", "m/d.jpg"})
            world.directory.write(QByteArray("disk/") + name, "x");
    }

    FilterDialogs dialogs;
    Platform platform{world.drives,   world.files,   world.registry, world.settings,
                      world.launcher, world.printer, dialogs,        world.program};
    PlaylistSeams ownSeams{platform, numbers, world.codePage};
    PlaylistOptions options{.path = u"D:\\m"_qs, .startDirectory = u"D:\\m"_qs};
    PlaylistCommands commands{list, options, ownSeams};
};

} // namespace

TEST_F(PlaylistCommandsTest, addsOneEntryForAFile)
{
    commands.addPath(QString());
    commands.addPath(u"D:\\m\\a.mp3"_qs);
    commands.addPath(u"D:\\m\\d.jpg"_qs);
    commands.addPath(u"D:\\m\\none.mp3"_qs);
    commands.addPath(u"Q:\\*.mp3"_qs);
    EXPECT_EQ(paths(),
              (QStringList{u"D:\\m\\a.mp3"_qs, u"D:\\m\\d.jpg"_qs, u"D:\\m\\none.mp3"_qs, u"Q:\\*.mp3"_qs}));
    EXPECT_EQ(names(), (QStringList{u"a"_qs, u"d (picture)"_qs, u"none"_qs, u"*"_qs}));
}

TEST_F(PlaylistCommandsTest, addsTheMediaFilesOfADirectory)
{
    const QStringList usual{u"D:\\m\\a.mp3"_qs, u"D:\\m\\sub\\c.WAV"_qs};
    int told = 0;
    list.setObserver([&] { ++told; });
    commands.addPath(u"D:\\m"_qs);
    EXPECT_EQ(paths(), usual);
    EXPECT_EQ(told, 1);
    commands.addPath(u"D:\\m\\"_qs);
    commands.addPath(u"D:\\"_qs);
    commands.addPath(u"D:"_qs);
    EXPECT_EQ(paths(), usual + usual + usual + usual);
    list.PlClear();
    options.validExt = u"txt"_qs;
    commands.addPath(u"d:\\M"_qs);
    EXPECT_EQ(list.count(), 1);
}

TEST_F(PlaylistCommandsTest, readsPlaylists)
{
    world.directory.write("disk/m/x.Pls", "File1=a.mp3\n");
    world.directory.write("disk/m/y.m3u", "b.mp3\n");
    world.directory.makeDirectory("disk/m/dir.m3u");
    commands.addPaths({u"D:\\m\\y.m3u"_qs, u"D:\\m\\dir.m3u"_qs, u"D:\\m\\x.Pls"_qs, u"D:\\m\\none.m3u"_qs});
    EXPECT_EQ(paths(), (QStringList{u"D:\\m\\b.mp3"_qs, u"D:\\m\\a.mp3"_qs}));
}

TEST_F(PlaylistCommandsTest, takesPathsFromOutside)
{
    commands.addPaths({QString::fromUtf8(world.directory.at("disk/m/a.mp3")), u"a.mp3"_qs, u"sub/c.WAV"_qs,
                       u"D:/m/a.mp3"_qs, u"\\m\\a.mp3"_qs, u"file:///D:/m/a%20b.mp3"_qs, QString()});
    EXPECT_EQ(paths(), (QStringList{u"D:\\m\\a.mp3"_qs, u"D:\\m\\a.mp3"_qs, u"D:\\m\\sub\\c.WAV"_qs,
                                    u"D:\\m\\a.mp3"_qs, u"D:\\m\\a.mp3"_qs, u"D:\\m\\a b.mp3"_qs}));
    options.startDirectory.clear();
    commands.addPath(u"x.mp3"_qs);
    EXPECT_EQ(paths().constLast(), u"P:\\x.mp3"_qs);
}

TEST_F(PlaylistCommandsTest, takesDroppedBytes)
{
    world.directory.write("disk/m/Sj\xF8.mp3", "x");
    const QByteArray disk = "file://" + world.directory.at("disk/m");
    commands.addUriList("# a remark\r\n" + disk + "/Sj%F8.mp3\r\nhttp://x/y.mp3\r\n\r\n" + disk + "/sub\n" +
                        disk + "/a.mp3");
    EXPECT_EQ(paths(), (QStringList{u"D:\\m\\"_qs + filenametext::toText("Sj\xF8.mp3"),
                                    u"D:\\m\\sub\\c.WAV"_qs, u"D:\\m\\a.mp3"_qs}));
    EXPECT_EQ(names()[0], u"Sjø"_qs);
    commands.addUriList({});
    EXPECT_EQ(list.count(), 3);
}

TEST_F(PlaylistCommandsTest, theEditorAddsOneEntryWhateverItIs)
{
    world.directory.write("disk/m/y.m3u", "b.mp3\nc.mp3\n");
    commands.PlAddFileFromEditor(u"D:\\m\\y.m3u"_qs);
    commands.PlAddFileFromEditor(u"D:\\m"_qs);
    commands.PlAddFileFromEditor(QString());
    EXPECT_EQ(paths(), (QStringList{u"D:\\m\\y.m3u"_qs, u"D:\\m"_qs}));
}

TEST_F(PlaylistCommandsTest, loadsAChosenPlaylist)
{
    commands.PlLoad();
    EXPECT_EQ(list.count(), 0);
    EXPECT_EQ(dialogs.asked, QStringList(u"open|Load Playlist||D:\\m|CommonDialog1|"_qs + dialogs.filter));
    EXPECT_EQ(dialogs.filter, u"MP3 Playlists (*.M3U)|*.M3U|Playlists (*.PLS)|*.PLS"_qs);
    world.directory.write("disk/x.m3u", "a.mp3\n");
    dialogs.fileAnswer = u"D:\\x.m3u"_qs;
    commands.PlLoad();
    EXPECT_EQ(paths(), QStringList(u"D:\\a.mp3"_qs));
    EXPECT_EQ(list.name(), u"x"_qs);
    EXPECT_EQ(options.path, u"D:\\m"_qs);
}

TEST_F(PlaylistCommandsTest, savesAndKeepsTheDirectoryAtOnce)
{
    const auto stored = [&] {
        return world.settings.get(u"tonedeckpro"_qs, u"config"_qs, u"Path"_qs, u"(none)"_qs);
    };
    list.add(u"a"_qs, u"D:\\a.mp3"_qs);
    commands.save();
    EXPECT_EQ(dialogs.asked, QStringList(u"save|Save Playlist||D:\\m|CommonDialog1|"_qs + dialogs.filter));
    EXPECT_EQ(dialogs.filter, u"MP3 Playlists (*.M3U)|*.M3U"_qs);
    EXPECT_EQ(stored(), u"(none)"_qs);
    dialogs.fileAnswer = u"D:\\m\\My_List.m3u"_qs;
    commands.save();
    EXPECT_EQ(world.directory.read("disk/m/My_List.m3u"), "D:\\a.mp3\r\n");
    EXPECT_EQ(stored(), u"D:\\m\\"_qs);
    EXPECT_EQ(options.path, u"D:\\m\\"_qs);
    EXPECT_EQ(list.name(), u"My List"_qs);
}

TEST_F(PlaylistCommandsTest, aFailedSaveHasStoredTheDirectoryToo)
{
    dialogs.fileAnswer = u"D:\\none\\x.m3u"_qs;
    commands.save();
    EXPECT_EQ(options.path, u"D:\\none\\"_qs);
    EXPECT_EQ(dialogs.said(0), u"Songbin|Unable to write Playlist! Is the file read-only?"_qs);
}

TEST_F(PlaylistCommandsTest, opensMedia)
{
    commands.openMedia();
    EXPECT_EQ(list.count(), 0);
    EXPECT_EQ(dialogs.asked, QStringList(u"open|Open Media file||D:\\m|CommonDialog1|"_qs + dialogs.filter));
    EXPECT_TRUE(
        dialogs.filter.startsWith(u"MPEG Audio Files|*.MP?|ActiveMovie Files|*.MP?;*.MPEG;*.DAT;"_qs));
    EXPECT_TRUE(dialogs.filter.contains(u"|Music Modules|*.MOD;*.MTM;*FAR;*.669;"_qs));
    EXPECT_TRUE(dialogs.filter.contains(u"*.XM|Bitmaps|"_qs));
    dialogs.fileAnswer = u"D:\\m\\a.mp3"_qs;
    commands.openMedia();
    EXPECT_EQ(paths(), QStringList(u"D:\\m\\a.mp3"_qs));
}

// --- a list that is full --------------------------------------------------------------------------

namespace {

struct FullPlaylist : PlaylistCommandsTest {
    FullPlaylist()
    {
        const Playlist::Batch batch(list);
        while (list.count() < kMostEntries - 1)
            list.add(u"x"_qs, u"D:\\x"_qs);
        world.directory.write("disk/m/l.m3u", "1.mp3\n2.mp3\n3.mp3\n");
    }
    void fill() { list.add(u"last"_qs, u"D:\\last"_qs); }
    void expectTold(const char* what)
    {
        EXPECT_EQ(list.count(), 32'766) << what;
        EXPECT_EQ(dialogs.messages.size(), 1U) << what;
        EXPECT_EQ(dialogs.said(0),
                  u"Songbin|The playlist is full: it holds 32766 entries. What came after them "
                  "was not added."_qs)
            << what;
        dialogs.messages.clear();
    }
};

} // namespace

TEST_F(FullPlaylist, takesTheLastEntryWithoutAWord)
{
    commands.addPath(u"D:\\m\\a.mp3"_qs);
    EXPECT_EQ(list.count(), 32'766);
    EXPECT_EQ(paths().last(), u"D:\\m\\a.mp3"_qs);
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(FullPlaylist, tellsOnceThatThereWasMore)
{
    commands.addPaths({u"D:\\m\\a.mp3"_qs, u"D:\\m\\b.mp3"_qs, u"D:\\m\\c.mp3"_qs});
    EXPECT_EQ(paths().last(), u"D:\\m\\a.mp3"_qs);
    expectTold("paths");
    commands.PlAddFileFromEditor(u"D:\\m\\a.mp3"_qs);
    expectTold("editor");
    commands.addUriList("file:///D:/m/a.mp3\r\nfile:///D:/m/b.mp3\r\n");
    expectTold("drop");
    commands.addPath(u"D:\\m\\l.m3u"_qs);
    expectTold("list");
    dialogs.fileAnswer = u"D:\\m\\l.m3u"_qs;
    commands.PlLoad();
    expectTold("load");
    dialogs.fileAnswer = u"D:\\m\\a.mp3"_qs;
    commands.openMedia();
    expectTold("open");
    dialogs.folderAnswer = u"D:\\m"_qs;
    commands.AddFromDir();
    expectTold("directory");
}

TEST_F(FullPlaylist, endsTheWalkThroughADirectory)
{
    fill();
    for (int file = 0; file < 50; ++file)
        world.directory.write("disk/many/" + QByteArray::number(file) + ".mp3", "x");
    world.program.yields = 0;
    commands.addPath(u"D:\\many"_qs);
    EXPECT_LT(world.program.yields, 10);
    expectTold("walk");
}

// --- a list that cannot be read -------------------------------------------------------------------

TEST_F(PlaylistCommandsTest, saysWhatCouldNotBeRead)
{
    QStringList said;
    options.say = [&](const QString& text) { said += text; };
    world.directory.makeDirectory("disk/dir.m3u");
    world.directory.write("disk/cut.m3u", "a.mp3\n" + QByteArray(17 << 20, 'x'));
    world.directory.write("disk/whole.m3u", "a.mp3\n");
    commands.addPaths({u"D:\\none.m3u"_qs, u"D:\\dir.m3u"_qs, u"D:\\cut.m3u"_qs, u"D:\\whole.m3u"_qs});
    EXPECT_EQ(said, (QStringList{u"There is no playlist none.m3u."_qs, u"dir.m3u could not be read."_qs,
                                 u"Only a part of cut.m3u could be read."_qs}));
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(PlaylistCommandsTest, aListThatCannotBeReadDoesNotTakeTheOldOnesPlace)
{
    options.clearFirst = [this] { list.PlClear(); };
    list.add(u"mine"_qs, u"D:\\mine.mp3"_qs);
    world.directory.makeDirectory("disk/dir.m3u");
    for (const QString& file : {u"D:\\none.m3u"_qs, u"D:\\dir.m3u"_qs}) {
        dialogs.fileAnswer = file;
        commands.PlLoad();
        EXPECT_EQ(paths(), QStringList(u"D:\\mine.mp3"_qs)) << qPrintable(file);
    }
    world.directory.write("disk/whole.m3u", "a.mp3\n");
    dialogs.fileAnswer = u"D:\\whole.m3u"_qs;
    commands.PlLoad();
    EXPECT_EQ(paths(), QStringList(u"D:\\a.mp3"_qs));
}

TEST_F(PlaylistCommandsTest, aListThatFailsInItsMidstComesBehindTheOldOne)
{
    QStringList said;
    options.say = [&](const QString& text) { said += text; };
    options.clearFirst = [this] { list.PlClear(); };
    list.add(u"mine"_qs, u"D:\\mine.mp3"_qs);
    world.directory.write("disk/cut.m3u", "a.mp3\n" + QByteArray(17 << 20, 'x'));
    dialogs.fileAnswer = u"D:\\cut.m3u"_qs;
    EXPECT_EQ(commands.PlLoad(), 1);
    EXPECT_EQ(paths(), (QStringList{u"D:\\mine.mp3"_qs, u"D:\\a.mp3"_qs}));
    EXPECT_EQ(said, QStringList(u"Only a part of cut.m3u could be read."_qs));
}

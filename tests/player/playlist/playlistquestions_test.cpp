// Holds what the playlist's commands ask the user, and what they make of the answer.
#include "player/playlist/playlistcommands.h"
#include "tests/support/playlistworld.h"

namespace {

const QString kMediaFilter = QStringLiteral(
    "MPEG Audio Files|*.MP?|ActiveMovie Files|*.MP?;*.MPEG;*.DAT;*.WAV;*.AU;*.MID;*.RMI;*.AIF?;*.MOV;*.QT;"
    "*.AVI;*.M1V;*.RA;*.RAM;*.RM;*.RMM|Music Modules|*.MOD;*.MTM;*FAR;*.669;*.OKT;*.STM;*.S3M;*.NST;*.WOW;"
    "*.XM|Bitmaps|*.BMP;*.GIF;*.JPG");

struct PlaylistQuestions : PlaylistWorld {
    PlaylistQuestions()
    {
        for (const char* const name : {"m/a.mp3", "m/b.txt", "m/sub/c.WAV", "m/d.jpg"})
            world.directory.write(QByteArray("disk/") + name, "x");
        world.directory.write("disk/two.m3u", "x.mp3\r\ny.mp3\r\n");
        list.add(u"before"_qs, u"D:\\before.mp3"_qs);
    }

    PlaylistOptions options{.path = u"D:\\m"_qs};
    PlaylistCommands commands{list, options, seams};
};

} // namespace

// --- a directory ----------------------------------------------------------------------------------

TEST_F(PlaylistQuestions, addTheMediaFilesOfAChosenDirectory)
{
    world.dialogs.folderAnswer = u"D:\\m"_qs;
    commands.AddFromDir();
    EXPECT_EQ(world.dialogs.asked, QStringList(u"folder|Select Directory containing Media Files:"_qs));
    EXPECT_EQ(paths(), (QStringList{u"D:\\before.mp3"_qs, u"D:\\m\\a.mp3"_qs, u"D:\\m\\sub\\c.WAV"_qs}));
}

TEST_F(PlaylistQuestions, addFilesOfTheExtensionsThatAreValid)
{
    options.validExt = u"txt"_qs;
    world.dialogs.folderAnswer = u"D:\\m\\"_qs;
    commands.AddFromDir();
    EXPECT_EQ(paths(), (QStringList{u"D:\\before.mp3"_qs, u"D:\\m\\b.txt"_qs}));
}

TEST_F(PlaylistQuestions, addAWholeDrive)
{
    world.dialogs.folderAnswer = u"D:\\"_qs;
    commands.AddFromDir();
    EXPECT_EQ(list.count(), 3);
}

TEST_F(PlaylistQuestions, tellADirectoryOnce)
{
    int told = 0;
    list.setObserver([&] { ++told; });
    world.dialogs.folderAnswer = u"D:\\m"_qs;
    commands.AddFromDir();
    EXPECT_EQ(told, 1);
}

TEST_F(PlaylistQuestions, endAWalkWhenTheirWindowIsClosed)
{
    options.closed = [&] { return list.count() >= 2; };
    world.dialogs.folderAnswer = u"D:\\"_qs;
    commands.AddFromDir();
    EXPECT_EQ(list.count(), 2);
}

TEST_F(PlaylistQuestions, addNothingWithoutADirectory)
{
    commands.AddFromDir();
    world.dialogs.folderAnswer = QString();
    commands.AddFromDir();
    EXPECT_EQ(world.dialogs.asked.size(), 2);
    EXPECT_EQ(list.count(), 1);
}

TEST_F(PlaylistQuestions, addADirectoryWithTheNameOfAPlaylist)
{
    world.directory.write("disk/odd.m3u/a.mp3", "x");
    world.dialogs.folderAnswer = u"D:\\odd.m3u"_qs;
    commands.AddFromDir();
    EXPECT_EQ(paths().mid(1), QStringList(u"D:\\odd.m3u\\a.mp3"_qs));
}

// --- one file -------------------------------------------------------------------------------------

TEST_F(PlaylistQuestions, askForOneFileAndAddNothing)
{
    EXPECT_EQ(commands.GetOneFileDirect(), QString());
    EXPECT_EQ(world.dialogs.asked,
              QStringList(u"open|Open Media file||D:\\m|CommonDialog1|"_qs + kMediaFilter));
    world.dialogs.fileAnswer = u"D:\\m\\a.mp3"_qs;
    EXPECT_EQ(commands.GetOneFileDirect(), u"D:\\m\\a.mp3"_qs);
    EXPECT_EQ(list.count(), 1);
    EXPECT_EQ(options.path, u"D:\\m"_qs);
}

TEST_F(PlaylistQuestions, addWhatIsOpenedWhateverItIs)
{
    world.dialogs.fileAnswer = u"D:\\two.m3u"_qs;
    commands.openMedia();
    EXPECT_EQ(paths().mid(1), (QStringList{u"D:\\x.mp3"_qs, u"D:\\y.mp3"_qs}));
    world.dialogs.fileAnswer = u"D:\\m\\d.jpg"_qs;
    commands.openMedia();
    EXPECT_EQ(names().constLast(), u"d (picture)"_qs);
    world.dialogs.fileAnswer = u"D:\\m\\none.mp3"_qs;
    commands.openMedia();
    EXPECT_EQ(paths().constLast(), u"D:\\m\\none.mp3"_qs) << "found out when it is played";
}

TEST_F(PlaylistQuestions, keepTheListWhenMediaAreOpened)
{
    int cleared = 0;
    options.clearFirst = [&] { ++cleared; };
    world.dialogs.fileAnswer = u"D:\\two.m3u"_qs;
    commands.openMedia();
    world.dialogs.folderAnswer = u"D:\\m"_qs;
    commands.AddFromDir();
    commands.addPath(u"D:\\two.m3u"_qs);
    EXPECT_EQ(cleared, 0);
}

// --- a playlist -----------------------------------------------------------------------------------

TEST_F(PlaylistQuestions, tellWhereALoadedPlaylistBegins)
{
    world.dialogs.fileAnswer = u"D:\\two.m3u"_qs;
    EXPECT_EQ(commands.PlLoad(), 1);
    EXPECT_EQ(list.count(), 3);
    EXPECT_EQ(commands.PlLoad(), 3);
}

TEST_F(PlaylistQuestions, tellNothingWhenNoPlaylistIsChosen)
{
    int cleared = 0;
    options.clearFirst = [&] { ++cleared; };
    EXPECT_EQ(commands.PlLoad(), std::nullopt);
    world.dialogs.fileAnswer = QString();
    EXPECT_EQ(commands.PlLoad(), std::nullopt);
    EXPECT_EQ(cleared, 0);
    EXPECT_EQ(list.count(), 1);
}

TEST_F(PlaylistQuestions, clearTheListBeforeAPlaylistWhenAsked)
{
    options.clearFirst = [&] { list.PlClear(); };
    world.dialogs.fileAnswer = u"D:\\two.m3u"_qs;
    EXPECT_EQ(commands.PlLoad(), 0);
    EXPECT_EQ(paths(), (QStringList{u"D:\\x.mp3"_qs, u"D:\\y.mp3"_qs}));
    EXPECT_EQ(list.name(), u"two"_qs);
}

TEST_F(PlaylistQuestions, tellTheEndOfTheListForAPlaylistThatCannotBeRead)
{
    world.dialogs.fileAnswer = u"D:\\none.m3u"_qs;
    EXPECT_EQ(commands.PlLoad(), 1);
    world.dialogs.fileAnswer = u"D:\\m\\a.mp3"_qs; // no playlist at all
    EXPECT_EQ(commands.PlLoad(), 1);
    EXPECT_EQ(list.count(), 1);
}

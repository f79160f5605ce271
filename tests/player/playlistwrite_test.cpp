#include "platform/nametext.h"
#include "tests/player/playlistworld.h"
#include "tests/support/rights.h"

#include <csignal>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

using WritePLTest = PlaylistWorld;

TEST_F(WritePLTest, writesPathsBelowItsDirectoryRelative)
{
    EXPECT_EQ(written({u"D:\\L\\Rock\\a.mp3"_qs, u"D:\\b.mp3"_qs, u"d:\\L\\c.mp3"_qs, u"D:\\l\\d.mp3"_qs,
                       u"D:\\Lists\\e.mp3"_qs}),
              "Rock\\a.mp3\r\nD:\\b.mp3\r\nd:\\L\\c.mp3\r\nD:\\l\\d.mp3\r\nD:\\Lists\\e.mp3\r\n");
}

TEST_F(WritePLTest, leavesOutEmptyPathsAndStars)
{
    EXPECT_EQ(written({u"D:\\a"_qs, QString(), u"D:\\**\\b"_qs, u"D:\\*c*"_qs}), "D:\\a\r\nD:\\*c*\r\n");
    list.PlClear();
    list.add(u"x"_qs, u"D:\\x"_qs);
    list.markNotFound(0);
    EXPECT_TRUE(WritePL(list, kFile, seams));
    EXPECT_EQ(world.directory.read("disk/L/x.m3u"), "");
}

TEST_F(WritePLTest, writesUtf8)
{
    EXPECT_EQ(written({u"D:\\L\\Sjø €.mp3"_qs}), "Sj\xC3\xB8 \xE2\x82\xAC.mp3\r\n");
}

TEST_F(WritePLTest, whatALineCannotCarryIsAnAddress)
{
    EXPECT_EQ(written({u"D:\\L\\a\nb%.mp3"_qs, u"D:\\c "_qs, u"D:\\L\\ d"_qs}),
              "file:///D:/L/a%0Ab%25.mp3\r\nfile:///D:/c%20\r\nfile:///D:/L/%20d\r\n");
}

TEST_F(WritePLTest, everyNameComesBack)
{
    const char* const kNames[] = {"a.mp3",
                                  "a\nb",
                                  "a\rb\r\n",
                                  " a",
                                  "a ",
                                  "   ",
                                  "\"q\" 'r'",
                                  "#EXTM3U",
                                  "#a",
                                  "a\\b",
                                  "file:",
                                  "a:b",
                                  "*?",
                                  "Sj\xF8.mp3",
                                  "\xEF\xBB\xBFmark",
                                  "\xEE\xBE\x80",
                                  "\xEF\x81\x9C",
                                  "%41%2F",
                                  "%",
                                  "=",
                                  "File1=x",
                                  "\t",
                                  "\x01\x7F",
                                  "a;b",
                                  "\xC3\xB8",
                                  "\xF0\x9F\x8E\xB5",
                                  "\xFF\xFE",
                                  "..."};
    for (const char* const name : kNames) {
        const QString text = nametext::toText(name);
        expectToComeBack(u"D:\\L\\"_qs + text);
        expectToComeBack(u"D:\\"_qs + text);
        expectToComeBack(u"D:\\L\\"_qs + text + u"\\x.mp3"_qs);
        expectToComeBack(u"E:\\"_qs + text + u"\\"_qs + text);
    }
}

TEST_F(WritePLTest, everyTextWithADriveComesBack)
{
    for (const QString& path : {u"D:\\L\\file:///x"_qs, u"D:\\L\\E:\\x"_qs, u"D:\\L\\\\x"_qs,
                                u"D:\\L\\a/b"_qs, u"D:\\L\\/home/x"_qs, u"D:\\a/b"_qs, u"D:\\L\\"_qs,
                                u"D:\\"_qs, u"D:\\L\\\n"_qs, u"D:\\L\\#\n/x"_qs})
        expectToComeBack(path);
    expectToComeBack(u"D:\\L\\a"_qs + QChar(u'\0') + u"b"_qs);
    expectToComeBack(u"D:\\L\\"_qs + QChar(u'\0'));
}

TEST_F(WritePLTest, aListInTheRootComesBack)
{
    list.add(u"x"_qs, u"D:\\a.mp3"_qs);
    EXPECT_TRUE(WritePL(list, u"D:\\x.m3u"_qs, seams));
    EXPECT_EQ(world.directory.read("disk/x.m3u"), "a.mp3\r\n");
}

TEST_F(WritePLTest, anErrorIsToldOnce)
{
    const QString message = u"Songbin|Unable to write Playlist! Is the file read-only?"_qs;
    world.directory.makeDirectory("disk/dir.m3u");
    int count = 0;
    for (const QString& file : {u"D:\\no\\x.m3u"_qs, u"D:\\dir.m3u"_qs, u"Q:\\x.m3u"_qs, QString()}) {
        EXPECT_FALSE(WritePL(list, file, seams));
        EXPECT_EQ(world.dialogs.said(count++), message);
    }
    EXPECT_EQ(world.dialogs.messages.size(), 4U);
    EXPECT_EQ(numbers.freeFile(), 1);
}

TEST_F(WritePLTest, aReadOnlyFileStaysAsItIs)
{
    world.directory.write("disk/ro.m3u", "old");
    list.add(u"a"_qs, u"D:\\a"_qs);
    chmod(world.directory.path().constData(), 0755);
    {
        const Unprivileged ordinary;
        EXPECT_TRUE(world.files.exists(u"D:\\ro.m3u"_qs));
        EXPECT_FALSE(WritePL(list, u"D:\\ro.m3u"_qs, seams));
    }
    EXPECT_EQ(world.dialogs.messages.size(), 1U);
    EXPECT_EQ(world.directory.read("disk/ro.m3u"), "old");
}

TEST_F(WritePLTest, whatFitsOnAFullDiskStays)
{
    for (int i = 0; i < 500; ++i)
        list.add(u"a"_qs, u"D:\\some.mp3"_qs);
    const pid_t child = fork();
    if (child == 0) {
        const rlimit limit{1000, 1000};
        std::signal(SIGXFSZ, SIG_IGN);
        if (setrlimit(RLIMIT_FSIZE, &limit) != 0)
            _exit(1);
        const bool done = WritePL(list, u"D:\\x.m3u"_qs, seams);
        _exit(!done && world.dialogs.messages.size() == 1 && numbers.freeFile() == 1 ? 0 : 2);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(world.directory.read("disk/x.m3u").size(), 1000);
}

#include "base/filenametext.h"
#include "tests/support/childprocess.h"
#include "tests/support/failingcalls.h"
#include "tests/support/playlistworld.h"
#include "tests/support/rights.h"

#include <chrono>
#include <csignal>
#include <thread>

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
        const QString text = filenametext::toText(name);
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

TEST_F(WritePLTest, whatFitsOnAFullDiskStaysBesideTheOldList)
{
    world.directory.write("disk/x.m3u", "old");
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
    EXPECT_EQ(world.directory.read("disk/x.m3u"), "old");
    EXPECT_EQ(world.directory.read("disk/x.m3u.partial").size(), 1000);
}

TEST_F(WritePLTest, theOldListStaysWhenTheDiskDoesNotSyncOrRename)
{
    world.directory.write("disk/x.m3u", "old");
    list.add(u"a"_qs, u"D:\\a"_qs);
    for (const auto fail : {failSyncs, failRenames}) {
        const QByteArray said = saidByChild([&]() -> QByteArray {
            if (!fail(EIO))
                return "skip";
            return WritePL(list, u"D:\\x.m3u"_qs, seams) ? "done" : world.dialogs.said(0).toUtf8();
        });
        if (said == "skip")
            GTEST_SKIP() << "no call can be made to fail here";
        EXPECT_EQ(said, "Songbin|Unable to write Playlist! Is the file read-only?");
        EXPECT_EQ(world.directory.read("disk/x.m3u"), "old");
    }
}

TEST_F(WritePLTest, aReadOnlyFileStaysInADirectoryThatCouldTakeAnother)
{
    world.directory.write("disk/ro.m3u", "old");
    chmod(world.directory.path().constData(), 0755);
    chmod(world.directory.at("disk").constData(), 0777);
    {
        const Unprivileged ordinary;
        EXPECT_FALSE(WritePL(list, u"D:\\ro.m3u"_qs, seams));
    }
    EXPECT_EQ(world.dialogs.said(0), u"Songbin|Unable to write Playlist! Is the file read-only?"_qs);
    EXPECT_EQ(world.directory.read("disk/ro.m3u"), "old");
}

TEST_F(WritePLTest, isTheOldListOrTheNewOneWheneverTheProgramIsKilled)
{
    Playlist other;
    for (int i = 0; i < 20'000; ++i) {
        list.add(u"a"_qs, u"D:\\the first list.mp3"_qs);
        other.add(u"b"_qs, u"D:\\the other one.mp3"_qs);
    }
    ASSERT_TRUE(WritePL(other, u"D:\\x.m3u"_qs, seams));
    const QByteArray second = world.directory.read("disk/x.m3u");
    ASSERT_TRUE(WritePL(list, u"D:\\x.m3u"_qs, seams));
    const QByteArray first = world.directory.read("disk/x.m3u");
    for (int round = 0; round < 15; ++round) {
        ChildProcess writer([&](int to) {
            say(to, "begins");
            for (;;) {
                WritePL(other, u"D:\\x.m3u"_qs, seams);
                WritePL(list, u"D:\\x.m3u"_qs, seams);
            }
        });
        ASSERT_EQ(writer.read(), "begins");
        std::this_thread::sleep_for(std::chrono::microseconds(3000 * round));
        kill(writer.id(), SIGKILL);
        writer.wait();
        const QByteArray now = world.directory.read("disk/x.m3u");
        ASSERT_TRUE(now == first || now == second) << now.size();
    }
}

#include "base/filenametext.h"
#include "tests/support/playlistworld.h"
#include "tests/support/rights.h"

#include <filesystem>

#include <sys/stat.h>

using PlReadTest = PlaylistWorld;

TEST_F(PlReadTest, everyLineIsAnEntry)
{
    EXPECT_EQ(pathsOf("#EXTM3U\r\n\r\n  D:\\b.mp3  \n#EXTINF:1,a/b\rlast.mp3"),
              (QStringList{u"D:\\L\\#EXTM3U"_qs, u"D:\\L\\"_qs, u"D:\\b.mp3"_qs, u"D:\\L\\#EXTINF:1,a/b"_qs,
                           u"D:\\L\\last.mp3"_qs}));
    EXPECT_EQ(names(), (QStringList{u"#EXTM3U"_qs, QString(), u"b"_qs, u"#EXTINF:1,a/b"_qs, u"last"_qs}));
}

TEST_F(PlReadTest, pathsFollowTheirBeginning)
{
    EXPECT_EQ(
        pathsOf("\\Music\\a.mp3\nsub\\b.mp3\nE:\\c.mp3\nC:d.mp3\n\\e.mp3\n:x\nC:s\\f.mp3\nC:\n"),
        (QStringList{u"D:\\Music\\a.mp3"_qs, u"D:\\L\\sub\\b.mp3"_qs, u"E:\\c.mp3"_qs, u"D:\\L\\C:d.mp3"_qs,
                     u"D:\\e.mp3"_qs, u"D:\\L\\:x"_qs, u"C:s\\f.mp3"_qs, u"D:\\L\\C:"_qs}));
}

TEST_F(PlReadTest, picturesAreCalledSo)
{
    pathsOf("a_b.jpg\nc.jpeg\n");
    EXPECT_EQ(names(), (QStringList{u"a b (picture)"_qs, u"c"_qs}));
}

TEST_F(PlReadTest, plsTakesLinesThatBeginWithFile)
{
    EXPECT_EQ(
        pathsOf("[playlist]\nfile1=x.mp3\n File2=x.mp3\nFileX=y=1.mp3\nFile\nFile=z\nTitle1=t\n"
                "NumberOfEntries=3\nFILE3=n.mp3\nFile9=/Music/a.mp3\n",
                "L/x.PlS"),
        (QStringList{u"D:\\L\\x.mp3"_qs, u"D:\\L\\y=1.mp3"_qs, u"D:\\L\\z"_qs, u"Z:\\Music\\a.mp3"_qs}));
}

TEST_F(PlReadTest, otherExtensionsReadNothing)
{
    EXPECT_EQ(pathsOf("a.mp3\n", "L/x.txt"), QStringList());
    EXPECT_EQ(pathsOf("a.mp3\n", "L/m3u"), QStringList());
    EXPECT_EQ(pathsOf("a.mp3\n", "L/x.M3u"), QStringList(u"D:\\L\\a.mp3"_qs));
}

TEST_F(PlReadTest, whatCannotBeReadAddsNothingAndSaysNothing)
{
    list.add(u"kept"_qs, u"D:\\kept"_qs);
    world.directory.makeDirectory("disk/dir.m3u");
    EXPECT_EQ(PlRead(list, u"D:\\none.m3u"_qs, true, seams), ListRead::Missing);
    for (const QString& file : {u"D:\\no\\x.m3u"_qs, u"Q:\\x.m3u"_qs, u"D:\\dir.m3u"_qs})
        EXPECT_EQ(PlRead(list, file, true, seams), ListRead::Failed) << qPrintable(file);
    EXPECT_EQ(paths(), QStringList(u"D:\\kept"_qs));
    EXPECT_TRUE(world.dialogs.messages.empty());
    EXPECT_EQ(numbers.freeFile(), 1);
}

TEST_F(PlReadTest, whatMayNotBeReadIsNotMissing)
{
    world.directory.write("disk/x.m3u", "a\n");
    chmod(world.directory.at("disk/x.m3u").constData(), 0);
    chmod(world.directory.path().constData(), 0755);
    const Unprivileged ordinary;
    EXPECT_EQ(PlRead(list, u"D:\\x.m3u"_qs, true, seams), ListRead::Failed);
}

TEST_F(PlReadTest, whatFailsOrComesShortIsNotWhole)
{
    const auto readThrough = [this](const char* target) {
        unlink(world.directory.at("disk/x.m3u").constData());
        EXPECT_EQ(symlink(target, world.directory.at("disk/x.m3u").constData()), 0);
        return PlRead(list, u"D:\\x.m3u"_qs, true, seams);
    };
    EXPECT_EQ(readThrough("/proc/self/mem"), ListRead::Failed) << "an error of the disk";
    EXPECT_EQ(list.count(), 0);
    struct stat state {};
    if (stat("/sys/kernel/mm/transparent_hugepage/enabled", &state) == 0) {
        EXPECT_EQ(readThrough("/sys/kernel/mm/transparent_hugepage/enabled"), ListRead::Failed);
    }
    EXPECT_EQ(numbers.freeFile(), 1);
}

// It may be some other kind of file, or one of two bytes a letter: what is made of it must not take its
// place.
TEST_F(PlReadTest, whatHoldsANullCharacterIsNoWholeList)
{
    world.directory.write("disk/x.m3u", QByteArray("a.mp3\nb\0.mp3\nc.mp3\n", 19));
    EXPECT_EQ(PlRead(list, u"D:\\x.m3u"_qs, true, seams), ListRead::Failed);
    EXPECT_EQ(list.count(), 3) << "what could be read stays";
    EXPECT_EQ(paths().constFirst(), u"D:\\a.mp3"_qs);
}

TEST_F(PlReadTest, aHugeListGivesItsFirstEntries)
{
    const QByteArray line = QByteArray(2200, 'n') + ".mp3\n";
    for (const QByteArray& begin : {QByteArray(), QByteArray("File1=")}) {
        list.PlClear();
        const QByteArray name = begin.isEmpty() ? "huge.m3u" : "huge.pls";
        world.directory.write("disk/" + name, (begin + line).repeated(40'000));
        ASSERT_GT(std::filesystem::file_size(world.directory.at("disk/" + name).toStdString()), 64U << 20);
        EXPECT_EQ(PlRead(list, u"D:\\"_qs + QString::fromLatin1(name), true, seams), ListRead::Full);
        EXPECT_EQ(list.count(), 32766);
    }
}

TEST_F(PlReadTest, aListWithoutEndIsReadToALimit)
{
    world.directory.write("disk/huge.m3u", "a.mp3\n");
    world.directory.write("disk/huge.pls", "File1=a.mp3\n" + QByteArray("Title=x\n").repeated(1'000'000));
    for (const char* name : {"huge.m3u", "huge.pls"}) {
        list.PlClear();
        std::filesystem::resize_file(world.directory.at(QByteArray("disk/") + name).toStdString(),
                                     10'000'000'000);
        EXPECT_EQ(PlRead(list, u"D:\\"_qs + QLatin1String(name), true, seams), ListRead::Failed) << name;
        EXPECT_EQ(paths(), QStringList(u"D:\\a.mp3"_qs)) << name;
    }
}

TEST_F(PlReadTest, theListTakesThePlaylistsName)
{
    pathsOf("a\n", "L/01-My_List.m3u");
    EXPECT_EQ(list.name(), u"My List"_qs);
    EXPECT_EQ(list.file(), u"D:\\L\\01-My_List.m3u"_qs);
}

TEST_F(PlReadTest, theListHoldsAMostOfReadEntries)
{
    for (int i = 0; i < 10; ++i)
        list.add(u"x"_qs, u"D:\\x"_qs);
    world.directory.write("disk/x.m3u", QByteArray("a.mp3\n").repeated(40'000));
    EXPECT_EQ(PlRead(list, u"D:\\x.m3u"_qs, true, seams), ListRead::Full);
    EXPECT_EQ(list.count(), 32766);
    EXPECT_EQ(PlRead(list, u"D:\\x.m3u"_qs, true, seams), ListRead::Full);
    EXPECT_EQ(list.count(), 32766);
    list.PlClear();
    world.directory.write("disk/x.m3u", QByteArray("a.mp3\n").repeated(32766));
    EXPECT_EQ(PlRead(list, u"D:\\x.m3u"_qs, true, seams), ListRead::Whole);
    EXPECT_EQ(list.count(), 32766);
    world.directory.write("disk/x.pls", "[playlist]\nNumberOfEntries=0\n");
    EXPECT_EQ(PlRead(list, u"D:\\x.pls"_qs, true, seams), ListRead::Whole) << "it has none";
}

TEST_F(PlReadTest, isToldOnce)
{
    world.directory.write("disk/x.m3u", "a\nb\nc\n");
    int told = 0;
    list.setObserver([&] { ++told; });
    PlRead(list, u"D:\\x.m3u"_qs, true, seams);
    EXPECT_EQ(told, 2); // the name at the beginning, the entries at the end
    EXPECT_EQ(list.count(), 3);
}

TEST_F(PlReadTest, eachLineIsUtf8OrOfTheCodePage)
{
    EXPECT_EQ(pathsOf("\xEF\xBB\xBF"
                      "a.mp3\nSj\xC3\xB8.mp3\nSj\xF8.mp3\n\xEF\xBB\xBF"
                      "b.mp3\n")
                  .mid(0, 3),
              (QStringList{u"D:\\L\\a.mp3"_qs, u"D:\\L\\Sjø.mp3"_qs, u"D:\\L\\Sjø.mp3"_qs}));
}

TEST_F(PlReadTest, takesPathsOfThisMachine)
{
    const QByteArray home = world.directory.at("home");
    EXPECT_EQ(pathsOf(home + "/a b.mp3\nsub/b.mp3\nfile://" + home + "/a%20b.mp3\nfile://localhost" + home +
                      "/c%C3%B8%25.mp3\nfile:///C:/Music/a%23.mp3\nFILE:///usr/x\nD:/m/n.mp3\n"),
              (QStringList{u"C:\\a b.mp3"_qs, u"D:\\L\\sub\\b.mp3"_qs, u"C:\\a b.mp3"_qs, u"C:\\cø%.mp3"_qs,
                           u"C:\\Music\\a#.mp3"_qs, u"Z:\\usr\\x"_qs, u"D:\\m\\n.mp3"_qs}));
    EXPECT_EQ(names()[3], u"cø%"_qs);
}

TEST_F(PlReadTest, anAddressOfAnotherMachineIsNoPathOfThisOne)
{
    EXPECT_EQ(pathsOf("file://other/a.mp3\nfile:/a.mp3\n"),
              (QStringList{u"D:\\L\\file:\\\\other\\a.mp3"_qs, u"D:\\L\\file:\\a.mp3"_qs}));
}

TEST_F(PlReadTest, aNameThatIsNoUtf8FindsItsFile)
{
    const QByteArray raw = world.directory.at("home") + "/Sj\xF8.mp3";
    EXPECT_EQ(pathsOf(raw + '\n'), QStringList(u"C:\\Sjø.mp3"_qs)); // none is there: the text counts
    world.directory.write("home/Sj\xF8.mp3", "x");
    EXPECT_EQ(pathsOf(raw + "\nfile://" + world.directory.at("home") + "/Sj%F8.mp3\n"),
              QStringList(2, u"C:\\"_qs + filenametext::toText("Sj\xF8.mp3")));
    EXPECT_EQ(names()[0], u"Sjø"_qs);
}

TEST_F(PlReadTest, directoriesOfThisMachineAreKeptApart)
{
    const QByteArray home = world.directory.at("home");
    const QByteArray disk = world.directory.at("disk");
    QStringList expected{u"C:\\A\\a rather long name.mp3"_qs,
                         u"C:\\A\\b"_qs,
                         u"D:\\c"_qs,
                         u"C:\\A\\d"_qs,
                         u"D:\\"_qs,
                         u"D:\\e"_qs,
                         u"C:\\AB\\f"_qs,
                         u"C:\\A\\g"_qs,
                         u"C:\\"_qs,
                         u"C:\\A"_qs,
                         u"D:\\L\\h"_qs,
                         u"C:\\A\\i\uF05Cj"_qs,
                         u"D:\\"_qs,
                         u"Z:"_qs + QString::fromUtf8(world.directory.at("k")).replace(u'/', u'\\')};
    EXPECT_EQ(pathsOf(home + "/A/a rather long name.mp3\n" + home + "/A/b\n" + disk + "/c\n" + home +
                      "/A/d\n" + disk + '\n' + disk + "/e\n" + home + "/AB/f\n" + home + "/B/../A/g\n" +
                      home + "/A/..\n" + home + "/A/.\nh\n" + home + "/A/i\\j\n" + disk + '\n' +
                      world.directory.at("k") + '\n'),
              expected);
}

TEST_F(PlReadTest, eachNameOfAKnownDirectoryMayBeNoUtf8)
{
    const QByteArray home = world.directory.at("home");
    world.directory.write("home/Bj\xF8rk/\xE5.mp3", "x");
    EXPECT_EQ(pathsOf(home + "/a\n" + home + "/Sj\xF8\n" + home + "/Bj\xF8rk/\xE5.mp3\n" + home +
                      "/Bj\xF8rk/b\n" + home + "/Bj\xF8rk/\xE5.mp3\n" + home + "/Bj\xC3\xB8rk/c\n"),
              (QStringList{u"C:\\a"_qs, u"C:\\Sjø"_qs,
                           u"C:\\"_qs + filenametext::toText("Bj\xF8rk\\\xE5.mp3"), u"C:\\Bjørk\\b"_qs,
                           u"C:\\"_qs + filenametext::toText("Bj\xF8rk\\\xE5.mp3"), u"C:\\Bjørk\\c"_qs})
                  .replaceInStrings(QChar(0xF05C), u"\\"_qs));
}

TEST_F(PlReadTest, survivesDamage)
{
    pathsOf(QByteArray("\0\0\xFF\xFE\n=\n%\n/\nfile:///\nfile:///%\nfile:///%00\n", 42));
    EXPECT_EQ(list.count(), 7);
    pathsOf(QByteArray(1'000'000, '\\'));
    EXPECT_EQ(list.count(), 1);
    EXPECT_EQ(pathsOf(QByteArray()), QStringList());
}

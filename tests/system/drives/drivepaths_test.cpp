#include "base/filenametext.h"
#include "tests/support/drivestest.h"

#include <filesystem>

namespace fs = std::filesystem;

using MachinePath = SystemDrivesTest;
using DrivePaths = SystemDrivesTest;

TEST_F(MachinePath, takesPartsThatDoNotExistAsTheyStand)
{
    m_files.makeDirectory("d/Music");
    EXPECT_EQ(machinePath(u"D:\\Music\\New\\A.mp3"), at("d/Music/New/A.mp3"));
    EXPECT_EQ(machinePath(u"D:\\music\\New\\A.mp3"), at("d/Music/New/A.mp3"));
    EXPECT_EQ(machinePath(u"D:\\Nothing\\music"), at("d/Nothing/music"));
}

TEST_F(MachinePath, prefersTheExactNameAndElseIgnoresCase)
{
    m_files.write("d/Sj\xC3\270en/ROCK/a.MP3");
    m_files.write("d/Sj\xC3\270en/rock/b.mp3");
    EXPECT_EQ(machinePath(u"d:\\SJØEN\\ROCK\\A.mp3"), at("d/Sj\xC3\270en/ROCK/a.MP3"));
    EXPECT_EQ(machinePath(u"D:\\sjøen\\rock\\B.mp3"), at("d/Sj\xC3\270en/rock/b.mp3"));
    EXPECT_EQ(machinePath(u"D:\\sjøen\\Rock"), at("d/Sj\xC3\270en/ROCK")); // the first in order
    EXPECT_EQ(machinePath(u"D:\\sjøen\\Rock\\b.mp3"), at("d/Sj\xC3\270en/ROCK/b.mp3"));
}

TEST_F(MachinePath, ofAChosenFileIsExactlyThatOne)
{
    m_files.write("d/Songbin.Bck");
    EXPECT_EQ(m_drives.chosenPath(u"D:\\songbin.bck"_qs), at("d/songbin.bck"));
    EXPECT_EQ(m_drives.chosenPath(u"D:\\Songbin.Bck"_qs), at("d/Songbin.Bck"));
    EXPECT_NE(m_drives.chosenPath(u"C:\\test.txt"_qs), m_drives.machinePath(u"C:\\test.txt"_qs));
    EXPECT_EQ(m_drives.chosenPath(u"Q:\\x"_qs), std::nullopt);
}

TEST_F(MachinePath, seesNamesThatCameWentAndChangedSinceTheLastLook)
{
    m_files.write("d/Music/one.mp3");
    EXPECT_EQ(machinePath(u"D:\\MUSIC\\ONE.MP3"), at("d/Music/one.mp3"));
    EXPECT_EQ(machinePath(u"D:\\MUSIC\\TWO.MP3"), at("d/Music/TWO.MP3"));
    m_files.write("d/Music/two.mp3");
    EXPECT_EQ(machinePath(u"D:\\MUSIC\\TWO.MP3"), at("d/Music/two.mp3"));
    fs::rename(at("d/Music/two.mp3").toStdString(), at("d/Music/Two.mp3").toStdString());
    EXPECT_EQ(machinePath(u"D:\\MUSIC\\TWO.MP3"), at("d/Music/Two.mp3"));
    fs::rename(at("d/Music").toStdString(), at("d/music").toStdString());
    EXPECT_EQ(machinePath(u"D:\\MUSIC\\TWO.MP3"), at("d/music/Two.mp3"));
    m_files.write("d/MUSIC/TWO.MP3");
    EXPECT_EQ(machinePath(u"D:\\MUSIC\\TWO.MP3"), at("d/MUSIC/TWO.MP3"));
    fs::remove_all(at("d/music").toStdString());
    EXPECT_EQ(machinePath(u"D:\\Music\\Two.mp3"), at("d/MUSIC/TWO.MP3"));
}

TEST_F(MachinePath, slashesCountAsBackslashesAndDoubledOnesAsOne)
{
    m_files.write("d/a/b.mp3");
    EXPECT_EQ(machinePath(u"D:/a/b.mp3"), at("d/a/b.mp3"));
    EXPECT_EQ(machinePath(u"D:\\\\a\\/b.mp3"), at("d/a/b.mp3"));
    EXPECT_EQ(machinePath(u"D:\\a\\"), at("d/a"));
    EXPECT_EQ(machinePath(u"D:a\\b.mp3"), at("d/a/b.mp3"));
}

TEST_F(MachinePath, dotsNeverLeadOutOfTheDrive)
{
    EXPECT_EQ(machinePath(u"D:\\..\\..\\home\\x"), at("d/home/x"));
    EXPECT_EQ(machinePath(u"D:\\a\\.\\b\\..\\c"), at("d/a/c"));
    EXPECT_EQ(machinePath(u"D:\\a\\.."), at("d"));
    EXPECT_EQ(machinePath(u"D:\\a\\."), at("d/a"));
    EXPECT_EQ(machinePath(u"D:\\a\\...\\..b"), at("d/a/.../..b"));
}

TEST_F(MachinePath, textsThatAreNoPathGiveNothing)
{
    for (const char16_t* text :
         {u"", u"D", u":", u"\\\\server\\x", u"relative\\x", u"/abs", u"Å:\\x", u"1:\\"})
        EXPECT_EQ(machinePath(text), "nothing") << QString::fromUtf16(text).toStdString();
    EXPECT_FALSE(m_drives.machinePath(QStringLiteral("D:\\a") + QChar(u'\0') + u'b'));
    EXPECT_FALSE(m_drives.literalPath(QStringLiteral("D:\\a\\b") + QChar(u'\0')));
}

TEST_F(MachinePath, theTraceFileIsTheUsersStateWhateverDriveCIs)
{
    EXPECT_EQ(machinePath(u"c:\\test.txt"), at("state/test.txt"));
    EXPECT_TRUE(fs::is_directory(at("state").toStdString()));
    m_files.write("home/test.txt");
    EXPECT_EQ(machinePath(u"C:\\TEST.TXT"), at("state/test.txt"));
    EXPECT_EQ(machinePath(u"C:\\x\\..\\test.txt"), at("home/test.txt"));
    EXPECT_EQ(machinePath(u"C:\\test.txt2"), at("home/test.txt2"));
}

TEST_F(MachinePath, namesThatAreNoUtf8OrHoldBackslashesAreFound)
{
    const QByteArray name = "a\\b:\xF8*?\n\t\"'.mp3";
    m_files.write("d/" + name);
    const QString path = QStringLiteral("D:\\") + filenametext::toText(name);
    EXPECT_EQ(m_drives.machinePath(path), at("d/" + name));
    EXPECT_EQ(m_drives.machinePath(path.toUpper()), at("d/" + name));
}

TEST_F(MachinePath, linksAreNotResolvedAndBrokenOnesAreThere)
{
    m_files.makeDirectory("d/Real");
    fs::create_symlink("Real", at("d/Link").toStdString());
    fs::create_symlink("nowhere", at("d/Broken").toStdString());
    EXPECT_EQ(machinePath(u"D:\\link\\x"), at("d/Link/x"));
    EXPECT_EQ(machinePath(u"D:\\BROKEN"), at("d/Broken"));
}

TEST_F(MachinePath, literalPathAsksNothingAndFollowsTheDrives)
{
    const auto literal = [this](const char16_t* path) {
        return m_drives.literalPath(QString::fromUtf16(path)).value_or("nothing");
    };
    EXPECT_EQ(literal(u"D:\\a\\b"), at("d/a/b"));
    EXPECT_EQ(literal(u"D:\\a\\c"), at("d/a/c"));
    EXPECT_EQ(literal(u"D:\\a\\.."), at("d"));
    EXPECT_EQ(literal(u"D:\\a\\."), at("d/a"));
    EXPECT_EQ(literal(u"D:\\a\\"), at("d/a"));
    EXPECT_EQ(literal(u"Z:\\x"), "/x");
    m_machine.setMounts(volume("usb"));
    EXPECT_EQ(machinePath(u"E:\\a"), at("usb/a"));
    EXPECT_EQ(literal(u"E:\\b"), at("usb/b"));
    m_machine.setMounts({});
    m_drives.list();
    EXPECT_EQ(literal(u"E:\\b"), "nothing");
}

TEST_F(DrivePaths, takesTheDriveThatHoldsThePathMostClosely)
{
    EXPECT_EQ(m_drives.drivePath(at("d/x")), QStringLiteral("D:\\x"));
    EXPECT_EQ(m_drives.drivePath(at("d/in ner/x/y")), QStringLiteral("D:\\in ner\\x\\y"));
    m_machine.setMounts(volume("d/in ner"));
    EXPECT_EQ(m_drives.drivePath(at("d/in ner/x/y")), QStringLiteral("E:\\x\\y"));
    EXPECT_EQ(m_drives.drivePath(at("home")), QStringLiteral("C:\\"));
    EXPECT_EQ(m_drives.drivePath("/usr/lib"), QStringLiteral("Z:\\usr\\lib"));
    EXPECT_EQ(m_drives.drivePath("/"), QStringLiteral("Z:\\"));
    EXPECT_EQ(m_drives.drivePath(at("dd")).left(3), QStringLiteral("Z:\\"));
}

TEST_F(DrivePaths, ofEqualDirectoriesTakesTheDeclaredDrive)
{
    DriveSetup setup = m_machine.setup();
    setup.declared = "X=" + at("home");
    SystemDrives drives(setup);
    EXPECT_EQ(drives.drivePath(at("home/a")), QStringLiteral("X:\\a"));
}

TEST_F(DrivePaths, resolvesDotsAndDoubledSlashes)
{
    EXPECT_EQ(m_drives.drivePath(at("d//x/./y/../z/")), QStringLiteral("D:\\x\\z"));
    EXPECT_EQ(m_drives.drivePath(at("d/y//z")), QStringLiteral("D:\\y\\z"));
    EXPECT_EQ(m_drives.drivePath(at("d/z/")), QStringLiteral("D:\\z"));
    EXPECT_EQ(m_drives.drivePath(at("d/.a/b.c")), QStringLiteral("D:\\.a\\b.c"));
    EXPECT_EQ(m_drives.drivePath(at("d/../home/x")), QStringLiteral("C:\\x"));
    EXPECT_EQ(m_drives.drivePath("//usr"), QStringLiteral("Z:\\usr"));
}

TEST_F(DrivePaths, everyNameComesBack)
{
    for (const QByteArray name : {"a\\b", "a:b*?", "Sj\370en", "\xEF\x81\x9C", " a ", "x\ny"}) {
        const QByteArray path = at("d/" + name);
        const QString text = m_drives.drivePath(path);
        EXPECT_EQ(text.count(u'\\'), 1) << name.constData();
        EXPECT_EQ(m_drives.machinePath(text), path);
    }
}

TEST_F(DrivePaths, theRootCannotBeDeclaredAway)
{
    DriveSetup setup = m_machine.setup();
    setup.declared += ";Z=" + at("d/x");
    SystemDrives drives(setup);
    EXPECT_EQ(drives.drivePath("/usr"), QStringLiteral("Z:\\usr"));
}

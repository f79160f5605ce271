#include "platform/drives_system.h"
#include "platform/nametext.h"
#include "tests/support/machine.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace fs = std::filesystem;

namespace {

class SystemDrivesTest : public testing::Test {
protected:
    QByteArray at(const QByteArray& relative) const { return m_machine.temporary.at(relative); }

    QByteArray machinePath(const char16_t* path) {
        return m_drives.machinePath(QString::fromUtf16(path)).value_or("nothing");
    }

    static QString letters(SystemDrives& drives) {
        QString text;
        for (const Drive& drive : drives.list())
            text += drive.letter;
        return text;
    }

    static QByteArray rootOf(SystemDrives& drives, QChar letter) {
        return drives.machinePath(letter + QStringLiteral(":\\")).value_or("nothing");
    }

    // A volume of that name, its directory made.
    QByteArray volume(const QByteArray& name, const QByteArray& type = "cifs",
                      const QByteArray& source = "//server/x") const {
        m_machine.temporary.makeDirectory(name);
        return Machine::mount(at(name), type, source);
    }

    Machine m_machine;
    Temporary& m_files = m_machine.temporary;
    SystemDrives m_drives{m_machine.setup()};
};

using Letters = SystemDrivesTest;
using MachinePath = SystemDrivesTest;
using DrivePath = SystemDrivesTest;
using Declared = SystemDrivesTest;

} // namespace

TEST_F(Letters, homeIsCAndTheFileSystemsRootZ) {
    EXPECT_EQ(letters(m_drives), QStringLiteral("CDZ"));
    EXPECT_EQ(machinePath(u"C:\\"), at("home"));
    EXPECT_EQ(machinePath(u"Z:\\"), "/");
    EXPECT_EQ(machinePath(u"z:"), "/");
    EXPECT_EQ(machinePath(u"Q:\\a"), "nothing");
}

TEST_F(Letters, kindsAreTold) {
    m_files.write("block/sr0");
    m_machine.setMounts(volume("net") + volume("stick", "vfat", "/dev/sdx1"));
    std::map<QChar, DriveKind> kinds;
    for (const Drive& drive : m_drives.list())
        kinds[drive.letter] = drive.kind;
    const std::map<QChar, DriveKind> expected = {{u'C', DriveKind::Fixed},     {u'D', DriveKind::Declared},
                                                 {u'E', DriveKind::Optical},   {u'F', DriveKind::Network},
                                                 {u'G', DriveKind::Removable}, {u'Z', DriveKind::Fixed}};
    EXPECT_EQ(kinds, expected);
}

TEST_F(Letters, aVolumeThatIsMountedLaterIsFoundAtOnce) {
    EXPECT_EQ(machinePath(u"E:\\"), "nothing");
    m_machine.setMounts(volume("usb"));
    EXPECT_EQ(machinePath(u"E:\\"), at("usb"));
    m_machine.setMounts({});
    EXPECT_EQ(machinePath(u"E:\\"), "nothing");
}

TEST_F(Letters, stayWithTheirMountPlaceAcrossRuns) {
    m_machine.setMounts(volume("b"));
    EXPECT_EQ(rootOf(m_drives, u'E'), at("b"));
    m_machine.setMounts(volume("a") + volume("b") + volume("c d\xF8"));
    SystemDrives next(m_machine.setup());
    EXPECT_EQ(rootOf(next, u'E'), at("b"));
    EXPECT_EQ(rootOf(next, u'F'), at("a"));
    EXPECT_EQ(rootOf(next, u'G'), at("c d\xF8"));
    m_machine.setMounts(volume("c d\xF8"));
    SystemDrives last(m_machine.setup());
    EXPECT_EQ(letters(last), QStringLiteral("CDGZ"));
    EXPECT_EQ(rootOf(last, u'G'), at("c d\xF8"));
    m_machine.setMounts(volume("another")); // E to G stay the others' while letters are left
    EXPECT_EQ(rootOf(last, u'H'), at("another"));
}

TEST_F(Letters, anOpticalDriveKeepsItsLetterWhateverIsInIt) {
    m_files.write("block/sr0");
    m_machine.setMounts(volume("a"));
    EXPECT_EQ(letters(m_drives), QStringLiteral("CDEFZ"));
    EXPECT_EQ(rootOf(m_drives, u'E'), "nothing");
    m_machine.setMounts(volume("a") + volume("disc", "iso9660", "/dev/sr0"));
    EXPECT_EQ(rootOf(m_drives, u'E'), at("disc"));
    EXPECT_EQ(rootOf(m_drives, u'F'), at("a"));
}

TEST_F(Letters, ofAbsentVolumesAreTakenOnlyWhenNoOtherIsLeft) {
    QByteArray many;
    for (char c = 'a'; c <= 'u'; ++c) // D is declared: E to Y are 21
        many += volume(QByteArray("v") + c);
    m_machine.setMounts(many);
    EXPECT_EQ(letters(m_drives), QStringLiteral("CDEFGHIJKLMNOPQRSTUVWXYZ"));
    m_machine.setMounts(many + volume("w1"));
    EXPECT_EQ(rootOf(m_drives, u'E'), at("va")); // the one too many has none
    m_machine.setMounts(volume("w1"));
    EXPECT_EQ(letters(m_drives), QStringLiteral("CDEZ"));
    EXPECT_EQ(rootOf(m_drives, u'E'), at("w1"));
}

TEST_F(Letters, areKeptWhileTheProgramRunsWhenTheSettingsCannotBeWritten) {
    m_files.write("config", "a file where the directory should be");
    m_machine.setMounts(volume("b"));
    EXPECT_EQ(rootOf(m_drives, u'E'), at("b"));
    m_machine.setMounts(volume("a") + volume("b"));
    EXPECT_EQ(rootOf(m_drives, u'E'), at("b"));
    EXPECT_EQ(rootOf(m_drives, u'F'), at("a"));
}

TEST_F(Declared, oneALineOrPartedBySemicolonsAndBadOnesIgnored) {
    for (const char* directory : {"x", "y", "z", "a,b"})
        m_files.makeDirectory(directory);
    DriveSetup setup = m_machine.setup();
    setup.declared = "e=" + at("x") + "/;F=" + at("y") +
                     ", Sj\xC3\xB8"
                     "en 2 \n\n H = " +
                     at("z") + "//,\nI=" + at("a,b") +
                     ",X\nJ=relative/x,N\n1=/tmp\nKK=/tmp\nL\nM=\nN=,N\n=/tmp\n;";
    SystemDrives drives(setup);
    EXPECT_EQ(letters(drives), QStringLiteral("CEFHIZ"));
    EXPECT_EQ(rootOf(drives, u'E'), at("x"));
    EXPECT_EQ(rootOf(drives, u'H'), at("z"));
    EXPECT_EQ(rootOf(drives, u'I'), at("a,b"));
    EXPECT_EQ(drives.volumeName(QStringLiteral("F:\\any")), QStringLiteral("Sjøen 2"));
    EXPECT_EQ(drives.volumeName(QStringLiteral("i:")), QStringLiteral("X"));
}

TEST_F(Declared, winOverTheSettingsAndThoseOverMounts) {
    for (const char* directory : {"x", "y"})
        m_files.makeDirectory(directory);
    m_files.write("config/drives.conf", "[Drives]\nD=" + at("x") + ",X\nE=" + at("y") + ",Y\nC=" + at("x") +
                                            "\n[Letters]\nE=" + at("usb") + "\n");
    m_machine.setMounts(volume("usb"));
    SystemDrives drives(m_machine.setup());
    EXPECT_EQ(rootOf(drives, u'D'), at("d"));
    EXPECT_EQ(rootOf(drives, u'E'), at("y"));
    EXPECT_EQ(rootOf(drives, u'F'), at("usb"));
    EXPECT_EQ(rootOf(drives, u'C'), at("x"));
    EXPECT_EQ(drives.volumeName(QStringLiteral("E:")), QStringLiteral("Y"));
}

TEST_F(Declared, aChangeOfTheSettingsIsSeen) {
    m_files.makeDirectory("x");
    EXPECT_EQ(machinePath(u"M:\\"), "nothing");
    m_files.write("config/drives.conf", "[Drives]\nM=" + at("x") + ",X\n");
    EXPECT_EQ(machinePath(u"M:\\"), at("x"));
}

TEST_F(Declared, aDriveWhoseDirectoryIsNotThereIsNotReady) {
    fs::remove(at("d").toStdString());
    EXPECT_EQ(letters(m_drives), QStringLiteral("CDZ"));
    EXPECT_EQ(machinePath(u"D:\\"), "nothing");
    EXPECT_EQ(machinePath(u"D:\\a\\b"), "nothing");
}

TEST_F(MachinePath, takesPartsThatDoNotExistAsTheyStand) {
    m_files.makeDirectory("d/Music");
    EXPECT_EQ(machinePath(u"D:\\Music\\New\\A.mp3"), at("d/Music/New/A.mp3"));
    EXPECT_EQ(machinePath(u"D:\\music\\New\\A.mp3"), at("d/Music/New/A.mp3"));
    EXPECT_EQ(machinePath(u"D:\\Nothing\\music"), at("d/Nothing/music"));
}

TEST_F(MachinePath, prefersTheExactNameAndElseIgnoresCase) {
    m_files.write("d/Sj\xC3\xB8"
                  "en/ROCK/a.MP3");
    m_files.write("d/Sj\xC3\xB8"
                  "en/rock/b.mp3");
    EXPECT_EQ(machinePath(u"d:\\SJØEN\\ROCK\\A.mp3"), at("d/Sj\xC3\xB8"
                                                         "en/ROCK/a.MP3"));
    EXPECT_EQ(machinePath(u"D:\\sjøen\\rock\\B.mp3"), at("d/Sj\xC3\xB8"
                                                         "en/rock/b.mp3"));
    EXPECT_EQ(machinePath(u"D:\\sjøen\\Rock"), at("d/Sj\xC3\xB8"
                                                  "en/ROCK")); // the first in order
    EXPECT_EQ(machinePath(u"D:\\sjøen\\Rock\\b.mp3"), at("d/Sj\xC3\xB8"
                                                         "en/ROCK/b.mp3"));
}

TEST_F(MachinePath, seesNamesThatCameWentAndChangedSinceTheLastLook) {
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

TEST_F(MachinePath, slashesCountAsBackslashesAndDoubledOnesAsOne) {
    m_files.write("d/a/b.mp3");
    EXPECT_EQ(machinePath(u"D:/a/b.mp3"), at("d/a/b.mp3"));
    EXPECT_EQ(machinePath(u"D:\\\\a\\/b.mp3"), at("d/a/b.mp3"));
    EXPECT_EQ(machinePath(u"D:\\a\\"), at("d/a"));
    EXPECT_EQ(machinePath(u"D:a\\b.mp3"), at("d/a/b.mp3"));
}

TEST_F(MachinePath, dotsNeverLeadOutOfTheDrive) {
    EXPECT_EQ(machinePath(u"D:\\..\\..\\home\\x"), at("d/home/x"));
    EXPECT_EQ(machinePath(u"D:\\a\\.\\b\\..\\c"), at("d/a/c"));
    EXPECT_EQ(machinePath(u"D:\\a\\.."), at("d"));
    EXPECT_EQ(machinePath(u"D:\\a\\."), at("d/a"));
    EXPECT_EQ(machinePath(u"D:\\a\\...\\..b"), at("d/a/.../..b"));
}

TEST_F(MachinePath, textsThatAreNoPathGiveNothing) {
    for (const char16_t* text :
         {u"", u"D", u":", u"\\\\server\\x", u"relative\\x", u"/abs", u"Å:\\x", u"1:\\"})
        EXPECT_EQ(machinePath(text), "nothing") << QString::fromUtf16(text).toStdString();
    EXPECT_FALSE(m_drives.machinePath(QStringLiteral("D:\\a") + QChar(u'\0') + u'b'));
    EXPECT_FALSE(m_drives.literalPath(QStringLiteral("D:\\a\\b") + QChar(u'\0')));
}

TEST_F(MachinePath, theTraceFileIsTheUsersStateWhateverDriveCIs) {
    EXPECT_EQ(machinePath(u"c:\\test.txt"), at("state/test.txt"));
    EXPECT_TRUE(fs::is_directory(at("state").toStdString()));
    m_files.write("home/test.txt");
    EXPECT_EQ(machinePath(u"C:\\TEST.TXT"), at("state/test.txt"));
    EXPECT_EQ(machinePath(u"C:\\x\\..\\test.txt"), at("home/test.txt"));
    EXPECT_EQ(machinePath(u"C:\\test.txt2"), at("home/test.txt2"));
}

TEST_F(MachinePath, namesThatAreNoUtf8OrHoldBackslashesAreFound) {
    const QByteArray name = "a\\b:\xF8*?\n\t\"'.mp3";
    m_files.write("d/" + name);
    const QString path = QStringLiteral("D:\\") + nametext::toText(name);
    EXPECT_EQ(m_drives.machinePath(path), at("d/" + name));
    EXPECT_EQ(m_drives.machinePath(path.toUpper()), at("d/" + name));
}

TEST_F(MachinePath, linksAreNotResolvedAndBrokenOnesAreThere) {
    m_files.makeDirectory("d/Real");
    fs::create_symlink("Real", at("d/Link").toStdString());
    fs::create_symlink("nowhere", at("d/Broken").toStdString());
    EXPECT_EQ(machinePath(u"D:\\link\\x"), at("d/Link/x"));
    EXPECT_EQ(machinePath(u"D:\\BROKEN"), at("d/Broken"));
}

TEST_F(MachinePath, literalPathAsksNothingAndFollowsTheDrives) {
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

TEST_F(DrivePath, takesTheDriveThatHoldsThePathMostClosely) {
    EXPECT_EQ(m_drives.drivePath(at("d/x")), QStringLiteral("D:\\x"));
    EXPECT_EQ(m_drives.drivePath(at("d/in ner/x/y")), QStringLiteral("D:\\in ner\\x\\y"));
    m_machine.setMounts(volume("d/in ner"));
    EXPECT_EQ(m_drives.drivePath(at("d/in ner/x/y")), QStringLiteral("E:\\x\\y"));
    EXPECT_EQ(m_drives.drivePath(at("home")), QStringLiteral("C:\\"));
    EXPECT_EQ(m_drives.drivePath("/usr/lib"), QStringLiteral("Z:\\usr\\lib"));
    EXPECT_EQ(m_drives.drivePath("/"), QStringLiteral("Z:\\"));
    EXPECT_EQ(m_drives.drivePath(at("dd")).left(3), QStringLiteral("Z:\\"));
}

TEST_F(DrivePath, ofEqualDirectoriesTakesTheDeclaredDrive) {
    DriveSetup setup = m_machine.setup();
    setup.declared = "X=" + at("home");
    SystemDrives drives(setup);
    EXPECT_EQ(drives.drivePath(at("home/a")), QStringLiteral("X:\\a"));
}

TEST_F(DrivePath, resolvesDotsAndDoubledSlashes) {
    EXPECT_EQ(m_drives.drivePath(at("d//x/./y/../z/")), QStringLiteral("D:\\x\\z"));
    EXPECT_EQ(m_drives.drivePath(at("d/../home/x")), QStringLiteral("C:\\x"));
    EXPECT_EQ(m_drives.drivePath("//usr"), QStringLiteral("Z:\\usr"));
}

TEST_F(DrivePath, everyNameComesBack) {
    for (const QByteArray name : {"a\\b", "a:b*?",
                                  "Sj\xF8"
                                  "en",
                                  "\xEF\x81\x9C", " a ", "x\ny"}) {
        const QByteArray path = at("d/" + name);
        const QString text = m_drives.drivePath(path);
        EXPECT_EQ(text.count(u'\\'), 1) << name.constData();
        EXPECT_EQ(m_drives.machinePath(text), path);
    }
}

TEST_F(DrivePath, isEmptyWhenNoDriveHoldsThePath) {
    DriveSetup setup = m_machine.setup();
    setup.declared += ";Z=" + at("d/x");
    SystemDrives drives(setup);
    EXPECT_EQ(drives.drivePath("/usr"), QString());
    EXPECT_EQ(drives.drivePath(at("d/x/y")), QStringLiteral("Z:\\y"));
}

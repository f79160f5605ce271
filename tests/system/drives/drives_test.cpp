#include "tests/support/drivestest.h"
#include "tests/support/lockhook.h"

#include <filesystem>
#include <map>

namespace fs = std::filesystem;

using Letters = SystemDrivesTest;
using Declared = SystemDrivesTest;

TEST_F(Letters, homeIsCAndTheFileSystemsRootZ)
{
    EXPECT_EQ(letters(m_drives), QStringLiteral("CDZ"));
    EXPECT_EQ(machinePath(u"C:\\"), at("home"));
    EXPECT_EQ(machinePath(u"Z:\\"), "/");
    EXPECT_EQ(machinePath(u"z:"), "/");
    EXPECT_EQ(machinePath(u"Q:\\a"), "nothing");
}

TEST_F(Letters, kindsAreTold)
{
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

TEST_F(Letters, aVolumeThatIsMountedLaterIsFoundAtOnce)
{
    EXPECT_EQ(machinePath(u"E:\\"), "nothing");
    m_machine.setMounts(volume("usb"));
    EXPECT_EQ(machinePath(u"E:\\"), at("usb"));
    m_machine.setMounts({});
    EXPECT_EQ(machinePath(u"E:\\"), "nothing");
}

TEST_F(Letters, stayWithTheirMountPlaceAcrossRuns)
{
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

TEST_F(Letters, anOpticalDriveKeepsItsLetterWhateverIsInIt)
{
    m_files.write("block/sr0");
    m_machine.setMounts(volume("a"));
    EXPECT_EQ(letters(m_drives), QStringLiteral("CDEFZ"));
    EXPECT_EQ(rootOf(m_drives, u'E'), "nothing");
    m_machine.setMounts(volume("a") + volume("disc", "iso9660", "/dev/sr0"));
    EXPECT_EQ(rootOf(m_drives, u'E'), at("disc"));
    EXPECT_EQ(rootOf(m_drives, u'F'), at("a"));
}

TEST_F(Letters, ofAbsentVolumesAreTakenOnlyWhenNoOtherIsLeft)
{
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

TEST_F(Letters, areKeptWhileTheProgramRunsWhenTheSettingsCannotBeWritten)
{
    m_files.write("config", "a file where the directory should be");
    m_machine.setMounts(volume("b"));
    EXPECT_EQ(rootOf(m_drives, u'E'), at("b"));
    m_machine.setMounts(volume("a") + volume("b"));
    EXPECT_EQ(rootOf(m_drives, u'E'), at("b"));
    EXPECT_EQ(rootOf(m_drives, u'F'), at("a"));
}

// They stay even when the file can be read again while the new letters are about to be noted.
TEST_F(Letters, thatCouldNotBeReadAreNotGivenAway)
{
    const QByteArray noted = "[Letters]\nE=" + at("a") + "\nF=" + at("b") + "\n";
    m_files.makeDirectory("config2/drives.conf"); // in the way
    m_machine.setMounts(volume("b"));
    DriveSetup setup = m_machine.setup();
    setup.settings = at("config2/drives.conf");
    const auto makeReadable = [&] {
        if (rmdir(setup.settings.constData()) == 0)
            m_files.write("config2/drives.conf", noted);
    };
    beforeLock = makeReadable;
    SystemDrives drives(setup);
    EXPECT_EQ(rootOf(drives, u'E'), at("b")) << "as long as nobody knows better";
    makeReadable();
    beforeLock = {};
    EXPECT_EQ(m_files.read("config2/drives.conf"), noted);
    EXPECT_EQ(rootOf(drives, u'F'), at("b"));
    EXPECT_EQ(m_files.read("config2/drives.conf"), noted);
    m_machine.setMounts(volume("a") + volume("b") + volume("c"));
    EXPECT_EQ(rootOf(drives, u'E'), at("a"));
    EXPECT_EQ(rootOf(drives, u'G'), at("c"));
    EXPECT_EQ(m_files.read("config2/drives.conf"), noted + "G=" + at("c") + "\n");
}

TEST_F(Declared, oneALineOrPartedBySemicolonsAndBadOnesIgnored)
{
    for (const char* directory : {"x", "y", "z", "a,b"})
        m_files.makeDirectory(directory);
    DriveSetup setup = m_machine.setup();
    setup.declared = "e=" + at("x") + "/;F=" + at("y") + ", Sj\xC3\270en 2 \n\n H = " + at("z") +
                     "//,\nI=" + at("a,b") + ",X\nJ=relative/x,N\n1=/tmp\nKK=/tmp\nL\nM=\nN=,N\n=/tmp\n;";
    SystemDrives drives(setup);
    EXPECT_EQ(letters(drives), QStringLiteral("CEFHIZ"));
    EXPECT_EQ(rootOf(drives, u'E'), at("x"));
    EXPECT_EQ(rootOf(drives, u'H'), at("z"));
    EXPECT_EQ(rootOf(drives, u'I'), at("a,b"));
    EXPECT_EQ(drives.volumeName(QStringLiteral("F:\\any")), QStringLiteral("Sjøen 2"));
    EXPECT_EQ(drives.volumeName(QStringLiteral("i:")), QStringLiteral("X"));
}

TEST_F(Declared, theNameBeginsBehindADirectoryThatIsThere)
{
    for (const char* directory : {"disk", "Simon", "Simon, Paul", "Simon, Paul, Art"})
        m_files.makeDirectory(directory);
    DriveSetup setup = m_machine.setup();
    setup.declared = "E=" + at("disk") + ",Rock, Pop, and more\nF=" + at("Simon, Paul") +
                     "\nG=" + at("Simon, Paul") + ",DUO\nH=" + at("Simon, Paul, Art") +
                     "/,TRIO, live\nI=" + at("gone, away") + ",LATER";
    SystemDrives drives(setup);
    EXPECT_EQ(rootOf(drives, u'E'), at("disk"));
    EXPECT_EQ(drives.volumeName(QStringLiteral("E:")), QStringLiteral("Rock, Pop, and more"));
    EXPECT_EQ(rootOf(drives, u'F'), at("Simon, Paul"));
    EXPECT_EQ(rootOf(drives, u'G'), at("Simon, Paul"));
    EXPECT_EQ(drives.volumeName(QStringLiteral("G:")), QStringLiteral("DUO"));
    EXPECT_EQ(rootOf(drives, u'H'), at("Simon, Paul, Art"));
    EXPECT_EQ(drives.volumeName(QStringLiteral("H:")), QStringLiteral("TRIO, live"));
    m_files.makeDirectory("gone, away");
    EXPECT_EQ(rootOf(drives, u'I'), at("gone, away")) << "the last comma, while it is not there";
}

TEST_F(Declared, winOverTheSettingsAndThoseOverMounts)
{
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

TEST_F(Declared, aChangeOfTheSettingsIsSeen)
{
    m_files.makeDirectory("x");
    EXPECT_EQ(machinePath(u"M:\\"), "nothing");
    m_files.write("config/drives.conf", "[Drives]\nM=" + at("x") + ",X\n");
    EXPECT_EQ(machinePath(u"M:\\"), at("x"));
}

TEST_F(Declared, aDriveWhoseDirectoryIsNotThereIsNotReady)
{
    fs::remove(at("d").toStdString());
    EXPECT_EQ(letters(m_drives), QStringLiteral("CDZ"));
    EXPECT_EQ(machinePath(u"D:\\"), "nothing");
    EXPECT_EQ(machinePath(u"D:\\a\\b"), "nothing");
}

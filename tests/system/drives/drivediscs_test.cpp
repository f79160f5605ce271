#include "tests/support/discs.h"
#include "tests/support/filestest.h"

namespace fs = std::filesystem;

namespace {

class DriveDiscs : public testing::Test {
protected:
    DriveDiscs()
    {
        m_tree.write("rips/disc.bin", QByteArray(discs::kThreeTracksFrames * discs::kFrameBytes, '\0'));
        m_tree.write("rips/disc.cue", discs::threeTracks("disc.bin"));
    }
    DriveSetup setup(const QByteArray& declared) const
    {
        DriveSetup setup = m_machine.setup();
        setup.declared += ';' + declared;
        return setup;
    }
    QByteArray at(const QByteArray& relative) const { return m_tree.at(relative); }
    QByteArray path(const char16_t* text)
    {
        return m_drives.machinePath(QString::fromUtf16(text)).value_or("nothing");
    }
    static QStringList trackNames(int last)
    {
        QStringList names;
        for (int i = 1; i <= last; ++i)
            names += QStringLiteral("Track0%1.cda").arg(i);
        return names;
    }
    QStringList names() { return m_files.dir(QStringLiteral("E:\\*.cda")); }

    Machine m_machine;
    Temporary& m_tree = m_machine.temporary;
    SystemDrives m_drives{setup("E=" + at("rips/disc.cue") + ",MY DISC")};
    SystemFiles m_files{m_drives};
};

} // namespace

TEST_F(DriveDiscs, tracksAreFilesOfTheDrive)
{
    QStringList listed;
    for (const DirEntry& entry : m_files.list(QStringLiteral("E:\\")))
        listed += entry.name;
    EXPECT_EQ(listed, trackNames(3));
    EXPECT_EQ(names(), trackNames(3));
    EXPECT_TRUE(m_files.exists(QStringLiteral("E:\\Track03.cda")));
    EXPECT_TRUE(m_files.exists(QStringLiteral("e:\\TRACK03.CDA")));
    EXPECT_FALSE(m_files.exists(QStringLiteral("E:\\Track04.cda")));
    EXPECT_EQ(m_files.read(QStringLiteral("E:\\Track03.cda")).size(), 44);
}

TEST_F(DriveDiscs, theDeclaredNameIsTheVolumes)
{
    EXPECT_EQ(m_drives.volumeName(QStringLiteral("E:\\")), QStringLiteral("MY DISC"));
    EXPECT_EQ(m_files.dir(QStringLiteral("E:"), kVolumeLabel), QStringList{QStringLiteral("MY DISC")});
}

TEST_F(DriveDiscs, withoutADeclaredNameThereIsNoneNotThatOfTheDiskWithTheTrackFiles)
{
    m_tree.write("dev/sdx1"); // a device with a label, by the links of the system
    m_tree.makeDirectory("labels");
    fs::create_symlink(at("dev/sdx1").toStdString(), at("labels/HOMEDISK").toStdString());
    m_machine.setMounts(Machine::mount(at("state"), "ext4", "/dev/sdx1"));
    SystemDrives drives(setup("E=" + at("rips/disc.cue")));
    EXPECT_FALSE(drives.audioDiscs().empty());
    EXPECT_EQ(drives.volumeName(QStringLiteral("E:\\")), QString());
}

TEST_F(DriveDiscs, pathsLeadToTheTrackFilesAndBack)
{
    const QByteArray third = path(u"E:\\Track03.cda");
    EXPECT_TRUE(third.startsWith(at("state/discs/"))) << third.toStdString();
    EXPECT_EQ(path(u"E:\\TRACK03.CDA"), third);
    EXPECT_EQ(m_drives.drivePath(third), QStringLiteral("E:\\Track03.cda"));
    EXPECT_EQ(m_drives.drivePath(path(u"E:\\")), QStringLiteral("E:\\"));
}

TEST_F(DriveDiscs, areToldInTheOrderOfTheirLetters)
{
    m_tree.write("rips/b.cue", discs::threeTracks("disc.bin"));
    SystemDrives drives(setup("G=" + at("rips/disc.cue") + ",Z\nF=" + at("rips/b.cue") + ",A"));
    const std::vector<QByteArray> all = drives.audioDiscs();
    ASSERT_EQ(all.size(), 2U);
    const auto tracks = [&](const char16_t* letter) {
        return *drives.machinePath(QString::fromUtf16(letter));
    };
    EXPECT_EQ(all[0], tracks(u"F:\\") + ".cue");
    EXPECT_EQ(all[1], tracks(u"G:\\") + ".cue");
}

TEST_F(DriveDiscs, aSheetThatIsAwayOrHoldsNoneIsADriveThatIsNotReady)
{
    EXPECT_EQ(names().size(), 3);
    for (const char* content : {"", "FILE disc.wav WAVE\nTRACK 1 AUDIO\nINDEX 01 00:00:00"}) {
        m_tree.write("rips/disc.cue", content);
        EXPECT_EQ(path(u"E:\\"), "nothing");
        EXPECT_EQ(path(u"E:\\Track01.cda"), "nothing");
        EXPECT_TRUE(m_drives.audioDiscs().empty());
    }
    fs::remove(at("rips/disc.cue").toStdString());
    EXPECT_EQ(path(u"E:\\"), "nothing");
    EXPECT_EQ(m_drives.volumeName(QStringLiteral("E:")), QStringLiteral("MY DISC"));
    EXPECT_EQ(m_drives.list().size(), 4U); // C D E Z
    m_tree.write("rips/disc.cue", discs::threeTracks("disc.bin"));
    EXPECT_EQ(names().size(), 3);
}

TEST_F(DriveDiscs, aChangeOfTheSheetOrItsImageIsSeenAtOnce)
{
    EXPECT_EQ(names(), trackNames(3));
    fs::resize_file(at("rips/disc.bin").toStdString(), 200 * discs::kFrameBytes);
    EXPECT_EQ(names(), trackNames(2));
    fs::remove(at("rips/disc.bin").toStdString());
    EXPECT_EQ(path(u"E:\\Track01.cda"), "nothing");
    m_tree.write("rips/disc.bin", QByteArray(300 * discs::kFrameBytes, '\0'));
    EXPECT_EQ(names(), trackNames(3));
    m_tree.write("rips/disc.cue", "FILE disc.bin BINARY\nTRACK 1 AUDIO\nINDEX 01 00:00:00\n");
    EXPECT_EQ(names(), trackNames(1));
}

TEST_F(DriveDiscs, theSheetIsNotReadAtEveryLookUp)
{
    const QByteArray first = path(u"E:\\Track01.cda");
    fs::remove(first.toStdString()); // reading the sheet again would bring it back
    EXPECT_EQ(path(u"E:\\Track01.cda"), first);
    EXPECT_EQ(names().size(), 2);
    m_drives.volumeName(QStringLiteral("E:"));
    EXPECT_FALSE(fs::exists(first.toStdString()));
    m_drives.list();
    EXPECT_TRUE(fs::exists(first.toStdString()));
}

TEST_F(DriveDiscs, aDirectoryOfThatNameIsAnOrdinaryDrive)
{
    m_tree.write("folder.cue/a.mp3");
    SystemDrives drives(setup("E=" + at("folder.cue")));
    EXPECT_EQ(drives.machinePath(QStringLiteral("E:\\a.mp3")), at("folder.cue/a.mp3"));
    EXPECT_TRUE(drives.audioDiscs().empty());
}

TEST_F(DriveDiscs, aPipeOfThatNameHoldsUpNobody)
{
    ASSERT_EQ(mkfifo(at("pipe.cue").constData(), 0600), 0);
    SystemDrives drives(setup("E=" + at("pipe.cue")));
    EXPECT_TRUE(drives.audioDiscs().empty());
    EXPECT_FALSE(drives.machinePath(QStringLiteral("E:\\")));
}

TEST_F(DriveDiscs, withoutAPlaceForTheTrackFilesTheDriveIsNotReady)
{
    DriveSetup other = setup("E=" + at("rips/disc.cue"));
    other.user.state = at("rips/disc.bin");
    SystemDrives drives(other);
    EXPECT_TRUE(drives.audioDiscs().empty());
    EXPECT_FALSE(drives.machinePath(QStringLiteral("E:\\Track01.cda")));
}

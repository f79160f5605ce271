#include "posix/volumelabel.h"
#include "system/drives/systemdrives.h"
#include "system/files/systemfiles.h"
#include "tests/support/machine.h"

#include <QProcess>

#include <gtest/gtest.h>

#include <filesystem>

#include <sys/mount.h>

namespace fs = std::filesystem;

namespace {

bool run(const QString& program, const QStringList& arguments)
{
    return QProcess::execute(program, arguments) == 0;
}

// Is an image with an ext4 file system that holds one file.
class LabelledImage {
public:
    LabelledImage(const Temporary& temporary, const char* label) : m_path(temporary.at("volume.img"))
    {
        temporary.write("content/a.mp3", "sound");
        made =
            run(QStringLiteral("mkfs.ext4"),
                {QStringLiteral("-q"), QStringLiteral("-F"), QStringLiteral("-L"), QString::fromUtf8(label),
                 QStringLiteral("-d"), QString::fromUtf8(temporary.at("content")), QString::fromUtf8(m_path),
                 QStringLiteral("8M")});
    }
    const QByteArray& path() const { return m_path; }

    bool made = false;

private:
    QByteArray m_path;
};

class Mounted {
public:
    Mounted(const QByteArray& image, const QByteArray& directory) : m_directory(directory)
    {
        done = run(QStringLiteral("mount"), {QStringLiteral("-o"), QStringLiteral("loop,ro"),
                                             QString::fromUtf8(image), QString::fromUtf8(directory)});
    }
    ~Mounted() { unmount(); }
    void unmount()
    {
        if (std::exchange(done, false))
            umount2(m_directory.constData(), MNT_DETACH);
    }

    bool done = false;

private:
    QByteArray m_directory;
};

} // namespace

TEST(VolumeLabel, isReadFromADeviceOrImage)
{
    const Temporary temporary;
    const LabelledImage image(temporary, "ROCK_01");
    if (!image.made)
        GTEST_SKIP() << "mkfs.ext4 is not here";
    EXPECT_EQ(volumelabel::ofDevice(image.path()), QStringLiteral("ROCK_01"));
}

TEST(VolumeLabel, whatHasNoneIsEmpty)
{
    const Temporary temporary;
    temporary.write("noise", QByteArray(200'000, 'x'));
    temporary.write("empty");
    EXPECT_EQ(volumelabel::ofDevice(temporary.at("noise")), QString());
    EXPECT_EQ(volumelabel::ofDevice(temporary.at("empty")), QString());
    EXPECT_EQ(volumelabel::ofDevice(temporary.at("missing")), QString());
    EXPECT_EQ(volumelabel::ofDirectory(temporary.at("missing")), QString());
    EXPECT_EQ(volumelabel::ofDirectory("/proc"), QString());
    EXPECT_EQ(volumelabel::ofLinks(temporary.path(), "/dev/null"), QString());
    EXPECT_EQ(volumelabel::ofLinks(temporary.at("missing"), "/dev/null"), QString());
}

TEST(VolumeLabel, isFoundAmongTheDeviceManagersLinks)
{
    const Temporary temporary;
    fs::create_symlink("/dev/zero", temporary.at("WRONG").toStdString());
    fs::create_symlink("/dev/null", temporary.at("Sj\xC3\270en\\x20\\x2f2 ").toStdString());
    fs::create_symlink("nowhere", temporary.at("GONE").toStdString());
    EXPECT_EQ(volumelabel::ofLinks(temporary.path(), "/dev/null"), QStringLiteral("Sjøen /2"));
    EXPECT_EQ(volumelabel::ofLinks(temporary.path(), temporary.at("no device")), QString());
}

TEST(VolumeName, ofAMountComesFromTheLinksOrTheDevice)
{
    Machine machine;
    const LabelledImage image(machine.temporary, "ROCK_02");
    machine.temporary.makeDirectory("labels");
    machine.temporary.makeDirectory("disc");
    fs::create_symlink("/dev/null", machine.temporary.at("labels/LINKED").toStdString());
    SystemDrives drives(machine.setup());
    machine.setMounts(Machine::mount(machine.temporary.at("disc"), "iso9660", "/dev/null"));
    EXPECT_EQ(drives.volumeName(QStringLiteral("E:\\")), QStringLiteral("LINKED"));
    if (!image.made)
        GTEST_SKIP() << "mkfs.ext4 is not here";
    machine.setMounts(Machine::mount(machine.temporary.at("disc"), "iso9660", image.path()));
    EXPECT_EQ(drives.volumeName(QStringLiteral("e:")), QStringLiteral("ROCK_02"));
}

TEST(VolumeName, isEmptyForWhatIsNoDriveOrNotReady)
{
    Machine machine;
    machine.temporary.write("block/sr9");
    SystemDrives drives(machine.setup());
    EXPECT_EQ(drives.volumeName(QStringLiteral("D:\\Music")), QStringLiteral("ROCK_01"));
    EXPECT_EQ(drives.volumeName(QStringLiteral("E:")), QString()); // the optical drive
    EXPECT_EQ(drives.volumeName(QStringLiteral("Q:")), QString());
    EXPECT_EQ(drives.volumeName(QString()), QString());
}

TEST(VolumeName, ofARealMountIsItsLabel)
{
    Machine machine;
    const LabelledImage image(machine.temporary, "ROCK_03");
    machine.temporary.makeDirectory("media");
    DriveSetup setup = machine.setup();
    setup.mountinfo = DriveSetup().mountinfo;
    setup.declared = "M=" + machine.temporary.at("media");
    SystemDrives drives(setup);
    SystemFiles files(drives);
    EXPECT_TRUE(files.list(QStringLiteral("M:\\")).empty());

    Mounted mounted(image.path(), machine.temporary.at("media"));
    if (!image.made || !mounted.done)
        GTEST_SKIP() << "mounting is not allowed here";
    EXPECT_EQ(drives.volumeName(QStringLiteral("M:")), QStringLiteral("ROCK_03"));
    EXPECT_EQ(files.dir(QStringLiteral("M:\\*.*"), kVolumeLabel), QStringList(QStringLiteral("ROCK_03")));
    EXPECT_TRUE(files.exists(QStringLiteral("M:\\A.MP3")));
    mounted.unmount();
    EXPECT_FALSE(files.exists(QStringLiteral("M:\\A.MP3")));
}

TEST(VolumeName, aRealVolumeUnderMntGetsALetterAtOnce)
{
    Machine machine;
    const LabelledImage image(machine.temporary, "ROCK_04");
    DriveSetup setup = machine.setup();
    setup.mountinfo = DriveSetup().mountinfo;
    SystemDrives drives(setup);
    const QByteArray place = "/mnt/songbin-test-" + QByteArray::number(getpid());
    if (mkdir(place.constData(), 0755) != 0)
        GTEST_SKIP() << "no directory can be made in /mnt";
    EXPECT_EQ(drives.drivePath(place + "/a.mp3").left(3), QStringLiteral("Z:\\"));
    {
        const Mounted mounted(image.path(), place);
        if (mounted.done) {
            const QString path = drives.drivePath(place + "/a.mp3");
            EXPECT_EQ(path.mid(1), QStringLiteral(":\\a.mp3"));
            EXPECT_EQ(drives.volumeName(path), QStringLiteral("ROCK_04"));
            EXPECT_EQ(drives.machinePath(path), place + "/a.mp3");
        }
    }
    EXPECT_EQ(drives.drivePath(place + "/a.mp3").left(3), QStringLiteral("Z:\\"));
    rmdir(place.constData());
}

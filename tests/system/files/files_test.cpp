#include "base/filenametext.h"
#include "tests/support/filestest.h"

#include <QTemporaryDir>

#include <atomic>
#include <fcntl.h>
#include <filesystem>
#include <thread>

namespace fs = std::filesystem;

using FilesList = SystemFilesTest;
using FilesDir = SystemFilesTest;
using FilesReplacement = SystemFilesTest;

TEST_F(FilesList, ordersByNameWithoutCaseAndThenExactly)
{
    for (const char* name : {"b.mp3", "B.mp3", "a", "C", "\xC3\xA6", "\xC3\x86", "_", "Z"})
        m_tree.write("d/" + QByteArray(name));
    m_tree.makeDirectory("d/Bb");
    EXPECT_EQ(names(), (QStringList{QStringLiteral("_"), QStringLiteral("a"), QStringLiteral("B.mp3"),
                                    QStringLiteral("b.mp3"), QStringLiteral("Bb/"), QStringLiteral("C"),
                                    QStringLiteral("Z"), QStringLiteral("Æ"), QStringLiteral("æ")}));
}

TEST_F(FilesList, carriesEveryNameBothWays)
{
    const QByteArray all[] = {"a\nb.mp3", "t\tb", "q'u\"o", "back\\slash",  "Sj\370en",
                              " blank ",  "dot.", "*?:",    "\xEF\x81\x9C", QByteArray(255, 'n')};
    for (const QByteArray& name : all)
        m_tree.write("d/" + name, name);
    const QStringList listed = names();
    ASSERT_EQ(listed.size(), static_cast<qsizetype>(std::size(all)));
    for (const QString& name : listed)
        EXPECT_EQ(m_files.read(QStringLiteral("D:\\") + name), filenametext::toBytes(name));
}

TEST_F(FilesList, followsLinksAndLeavesOutBrokenOnes)
{
    m_tree.write("elsewhere/a.mp3");
    fs::create_symlink(at("elsewhere").toStdString(), at("d/dir").toStdString());
    fs::create_symlink(at("elsewhere/a.mp3").toStdString(), at("d/file").toStdString());
    fs::create_symlink("nowhere", at("d/broken").toStdString());
    fs::create_symlink("self", at("d/self").toStdString());
    EXPECT_EQ(names(), (QStringList{QStringLiteral("dir/"), QStringLiteral("file")}));
    EXPECT_EQ(names(u"D:\\dir"), QStringList(QStringLiteral("a.mp3")));
}

TEST_F(FilesList, leavesOutLinksToAncestors)
{
    m_tree.makeDirectory("d/a/b");
    fs::create_symlink(".", at("d/a/b/self").toStdString());
    fs::create_symlink("..", at("d/a/b/parent").toStdString());
    fs::create_symlink("../../..", at("d/a/b/aboveTheDrive").toStdString());
    fs::create_symlink("/", at("d/a/b/root").toStdString());
    fs::create_symlink("../../c", at("d/a/b/sibling").toStdString());
    m_tree.makeDirectory("d/c");
    EXPECT_EQ(names(u"D:\\a\\b"), QStringList(QStringLiteral("sibling/")));
}

TEST_F(FilesList, leavesOutLinksToAncestorsOfTheWayThatLedThere)
{
    m_tree.makeDirectory("d/a");
    m_tree.makeDirectory("other/deep");
    fs::create_symlink(at("other").toStdString(), at("d/a/in").toStdString());
    fs::create_symlink(at("d/a").toStdString(), at("other/back").toStdString());
    fs::create_symlink(at("other").toStdString(), at("other/deep/up").toStdString());
    EXPECT_EQ(names(u"D:\\a"), QStringList(QStringLiteral("in/")));
    EXPECT_EQ(names(u"D:\\a\\in"), QStringList(QStringLiteral("deep/")));
    EXPECT_EQ(names(u"D:\\a\\in\\deep"), QStringList());
    // It is asked for by another way that does not pass through d/a: where it really is counts as well.
    fs::create_symlink(at("other/deep").toStdString(), at("d/short").toStdString());
    EXPECT_EQ(names(u"D:\\short"), QStringList());
}

TEST_F(FilesList, leavesOutPipesSocketsAndDevices)
{
    m_tree.write("d/a.mp3");
    mkfifo(at("d/pipe.mp3").constData(), 0666);
    makeSocket("d/socket.mp3");
    fs::create_symlink("/dev/null", at("d/device.mp3").toStdString());
    fs::create_symlink("pipe.mp3", at("d/toPipe.mp3").toStdString());
    EXPECT_EQ(names(), QStringList(QStringLiteral("a.mp3")));
}

TEST_F(FilesList, errorsTellWhatIsMissing)
{
    m_tree.write("d/file");
    fs::create_symlink("nowhere", at("d/broken").toStdString());
    EXPECT_EQ(listError(u"D:\\nothing"), numberOf(ErrorNumber::PathNotFound));
    EXPECT_EQ(listError(u"D:\\file"), numberOf(ErrorNumber::PathNotFound));
    EXPECT_EQ(listError(u"D:\\file\\below"), numberOf(ErrorNumber::PathNotFound));
    EXPECT_EQ(listError(u"D:\\broken"), numberOf(ErrorNumber::PathNotFound));
    EXPECT_EQ(listError(u"Q:\\"), numberOf(ErrorNumber::DeviceUnavailable));
    EXPECT_EQ(listError(u""), numberOf(ErrorNumber::DeviceUnavailable));
    fs::remove_all(at("d").toStdString());
    EXPECT_EQ(listError(u"D:\\"), numberOf(ErrorNumber::DeviceUnavailable));
}

TEST_F(FilesList, aDirectoryThatMayNotBeReadIsError75)
{
    m_tree.write("d/closed/a.mp3");
    chmod(at("d/closed").constData(), 0111);
    const Unprivileged ordinary;
    EXPECT_EQ(listError(u"D:\\closed"), numberOf(ErrorNumber::PathFileAccess));
    EXPECT_EQ(dir(u"D:\\closed\\*.mp3"), QStringList());
    EXPECT_EQ(dir(u"D:\\closed\\a.mp3"), QStringList(QStringLiteral("a.mp3"))); // its name is known
}

TEST_F(FilesList, aDirectoryThatVanishesMeanwhileDoesNoHarm)
{
    std::atomic<bool> stop = false;
    std::thread other([&] {
        while (!stop) {
            m_tree.write("d/on and off/a.mp3");
            fs::remove_all(at("d/on and off").toStdString());
        }
    });
    int listed = 0;
    int missing = 0;
    for (int i = 0; i < 3000 || ((listed == 0 || missing == 0) && i < 300'000); ++i) {
        const int error = listError(u"D:\\on and off");
        listed += error == 0;
        missing += error == numberOf(ErrorNumber::PathNotFound);
        EXPECT_TRUE(error == 0 || error == numberOf(ErrorNumber::PathNotFound)) << error;
    }
    stop = true;
    other.join();
    EXPECT_GT(listed, 0);
    EXPECT_GT(missing, 0);
}

TEST_F(FilesList, takesAHundredThousandFiles)
{
    const QTemporaryDir large(QStringLiteral("/dev/shm/songbin-XXXXXX")); // a disk would take many seconds
    const QByteArray place = large.isValid() ? large.path().toUtf8() : at("d");
    DriveSetup setup = m_machine.setup();
    setup.declared = "L=" + place;
    SystemDrives drives(setup);
    SystemFiles files(drives);
    const Descriptor directory(open(place.constData(), O_PATH));
    for (int i = 0; i < 100'000; ++i) // written in an order that is not the listing's
        Descriptor(openat(directory.get(), QByteArray::number((i * 7919) % 100'000 + 100'000).constData(),
                          O_CREAT | O_WRONLY, 0666));
    const std::vector<DirEntry> entries = files.list(QStringLiteral("L:\\"));
    ASSERT_EQ(entries.size(), 100'000U);
    for (std::size_t i = 0; i < entries.size(); ++i)
        ASSERT_EQ(entries[i].name, QString::number(100'000 + i));
    EXPECT_EQ(files.dir(QStringLiteral("L:\\19999?")).size(), 10);
}

TEST_F(FilesDir, matchesThePatternInTheLastPart)
{
    for (const char* name : {"d/m/A.mp3", "d/m/b.MP3", "d/m/c.mp3x", "d/m/sub.mp3/x"})
        m_tree.write(name);
    const QStringList two{QStringLiteral("A.mp3"), QStringLiteral("b.MP3")};
    EXPECT_EQ(dir(u"D:\\m\\*.mp3"), two);
    EXPECT_EQ(dir(u"D:/M/*.MP3"), two);
    EXPECT_EQ(dir(u"D:\\m\\*.mp3", kDirectory), two + QStringList(QStringLiteral("sub.mp3")));
    EXPECT_EQ(dir(u"D:\\m\\?.mp3"), two);
    EXPECT_EQ(dir(u"D:\\m\\").size(), 3);
    EXPECT_EQ(dir(u"D:\\m\\*.*").size(), 3);
}

TEST_F(FilesDir, aNameWithoutPatternIsLookedUpAndToldAsItIsWritten)
{
    m_tree.write("d/m/A.mp3");
    EXPECT_EQ(dir(u"D:\\M\\a.MP3"), QStringList(QStringLiteral("A.mp3")));
    EXPECT_EQ(dir(u"D:\\m\\b.mp3"), QStringList());
    EXPECT_EQ(dir(u"D:\\M"), QStringList());
    EXPECT_EQ(dir(u"D:\\M", kDirectory), QStringList(QStringLiteral("m")));
}

TEST_F(FilesDir, nothingFoundAndErrorsAreAnEmptyList)
{
    for (const char16_t* pattern : {u"", u"*", u"Q:\\*.*", u"D:\\nothing\\*.*", u"D:\\*.mp3", u"D:"})
        EXPECT_EQ(dir(pattern), QStringList()) << QString::fromUtf16(pattern).toStdString();
}

TEST_F(FilesDir, theVolumeLabelComesAlone)
{
    m_tree.write("d/a.mp3");
    EXPECT_EQ(dir(u"D:\\*.*", kVolumeLabel), QStringList(QStringLiteral("ROCK_01")));
    EXPECT_EQ(dir(u"Q:\\*.*", kVolumeLabel), QStringList());
}

TEST_F(FilesReplacement, comesInPiecesAndTakesThePlaceAtTheEnd)
{
    m_tree.write("d/Report.csv", "old");
    const std::unique_ptr<FileReplacement> fresh = m_files.beginReplacement(QStringLiteral("D:\\report.CSV"));
    fresh->write("a,");
    fresh->write("b");
    EXPECT_EQ(m_tree.read("d/Report.csv"), "old");
    fresh->commit();
    EXPECT_EQ(m_tree.read("d/Report.csv"), "a,b");
    EXPECT_EQ(filesIn("d"), 1U);
}

TEST_F(FilesReplacement, givenUpLeavesWhatWasThere)
{
    m_tree.write("d/old.csv", "old");
    m_files.beginReplacement(QStringLiteral("D:\\old.csv"))->write("half");
    m_files.beginReplacement(QStringLiteral("D:\\new.csv"))->write("half");
    EXPECT_EQ(m_tree.read("d/old.csv"), "old");
    EXPECT_EQ(filesIn("d"), 1U);
}

TEST_F(FilesReplacement, isRefusedAtOnce)
{
    const auto error = [&](const char16_t* path) {
        return errorOf([&] { m_files.beginReplacement(QString::fromUtf16(path)); });
    };
    EXPECT_EQ(error(u"Q:\\x.csv"), 76);
    EXPECT_EQ(error(u"D:\\no\\x.csv"), 76);
    m_tree.makeDirectory("d/x.csv");
    EXPECT_EQ(error(u"D:\\x.csv"), 75);
    m_tree.makeDirectory("d/closed");
    chmod(at("").constData(), 0755);
    const Unprivileged ordinary;
    EXPECT_EQ(error(u"D:\\closed\\x.csv"), 70);
}

#include "platform/files_system.h"

#include "base/runtimeerror.h"
#include "platform/nametext.h"
#include "tests/support/machine.h"
#include "tests/support/rights.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <atomic>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <thread>

#include <sys/mman.h>
#include <sys/mount.h>
#include <sys/socket.h>
#include <sys/un.h>

namespace fs = std::filesystem;

namespace {

class SystemFilesTest : public testing::Test {
protected:
    QByteArray at(const QByteArray& relative) const { return m_machine.temporary.at(relative); }

    QStringList names(const char16_t* directory = u"D:\\") {
        QStringList names;
        for (const DirEntry& entry : m_files.list(QString::fromUtf16(directory)))
            names += entry.attributes == kDirectory ? entry.name + u'/' : entry.name;
        return names;
    }

    QStringList dir(const char16_t* pattern, int attributes = kNormal) {
        return m_files.dir(QString::fromUtf16(pattern), attributes);
    }

    template <typename Action>
    static int errorOf(Action&& action) {
        try {
            action();
        } catch (const RunTimeError& error) {
            return error.number();
        }
        return 0;
    }
    int listError(const char16_t* directory) {
        return errorOf([&] { m_files.list(QString::fromUtf16(directory)); });
    }
    int copyError(const char16_t* from, const char16_t* to) {
        return errorOf([&] { m_files.copy(QString::fromUtf16(from), QString::fromUtf16(to)); });
    }
    int readError(const char16_t* path) {
        return errorOf([&] { m_files.read(QString::fromUtf16(path)); });
    }

    void makeSocket(const QByteArray& relative) const {
        const Descriptor listener(socket(AF_UNIX, SOCK_STREAM, 0));
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        qstrncpy(address.sun_path, at(relative), sizeof address.sun_path);
        ASSERT_EQ(bind(listener.get(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    }

    std::size_t filesIn(const QByteArray& relative) const {
        const fs::directory_iterator all(at(relative).toStdString());
        return static_cast<std::size_t>(std::distance(begin(all), end(all)));
    }

    Machine m_machine;
    Temporary& m_tree = m_machine.temporary;
    SystemDrives m_drives{m_machine.setup()};
    SystemFiles m_files{m_drives};
};

using FilesList = SystemFilesTest;
using FilesDir = SystemFilesTest;
using FilesCopy = SystemFilesTest;
using FilesRead = SystemFilesTest;
using ExpectTails = SystemFilesTest;

} // namespace

TEST_F(FilesList, ordersByNameWithoutCaseAndThenExactly) {
    for (const char* name : {"b.mp3", "B.mp3", "a", "C", "\xC3\xA6", "\xC3\x86", "_", "Z"})
        m_tree.write("d/" + QByteArray(name));
    m_tree.makeDirectory("d/Bb");
    EXPECT_EQ(names(), (QStringList{QStringLiteral("_"), QStringLiteral("a"), QStringLiteral("B.mp3"),
                                    QStringLiteral("b.mp3"), QStringLiteral("Bb/"), QStringLiteral("C"),
                                    QStringLiteral("Z"), QStringLiteral("Æ"), QStringLiteral("æ")}));
}

TEST_F(FilesList, carriesEveryNameBothWays) {
    const QByteArray all[] = {"a\nb.mp3",
                              "t\tb",
                              "q'u\"o",
                              "back\\slash",
                              "Sj\xF8"
                              "en",
                              " blank ",
                              "dot.",
                              "*?:",
                              "\xEF\x81\x9C",
                              QByteArray(255, 'n')};
    for (const QByteArray& name : all)
        m_tree.write("d/" + name, name);
    const QStringList listed = names();
    ASSERT_EQ(listed.size(), static_cast<qsizetype>(std::size(all)));
    for (const QString& name : listed)
        EXPECT_EQ(m_files.read(QStringLiteral("D:\\") + name), nametext::toBytes(name));
}

TEST_F(FilesList, followsLinksAndLeavesOutBrokenOnes) {
    m_tree.write("elsewhere/a.mp3");
    fs::create_symlink(at("elsewhere").toStdString(), at("d/dir").toStdString());
    fs::create_symlink(at("elsewhere/a.mp3").toStdString(), at("d/file").toStdString());
    fs::create_symlink("nowhere", at("d/broken").toStdString());
    fs::create_symlink("self", at("d/self").toStdString());
    EXPECT_EQ(names(), (QStringList{QStringLiteral("dir/"), QStringLiteral("file")}));
    EXPECT_EQ(names(u"D:\\dir"), QStringList(QStringLiteral("a.mp3")));
}

TEST_F(FilesList, leavesOutLinksToAncestors) {
    m_tree.makeDirectory("d/a/b");
    fs::create_symlink(".", at("d/a/b/self").toStdString());
    fs::create_symlink("..", at("d/a/b/parent").toStdString());
    fs::create_symlink("../../..", at("d/a/b/aboveTheDrive").toStdString());
    fs::create_symlink("/", at("d/a/b/root").toStdString());
    fs::create_symlink("../../c", at("d/a/b/sibling").toStdString());
    m_tree.makeDirectory("d/c");
    EXPECT_EQ(names(u"D:\\a\\b"), QStringList(QStringLiteral("sibling/")));
}

TEST_F(FilesList, leavesOutLinksToAncestorsOfTheWayThatLedThere) {
    m_tree.makeDirectory("d/a");
    m_tree.makeDirectory("other/deep");
    fs::create_symlink(at("other").toStdString(), at("d/a/in").toStdString());
    fs::create_symlink(at("d/a").toStdString(), at("other/back").toStdString());
    fs::create_symlink(at("other").toStdString(), at("other/deep/up").toStdString());
    EXPECT_EQ(names(u"D:\\a"), QStringList(QStringLiteral("in/")));
    EXPECT_EQ(names(u"D:\\a\\in"), QStringList(QStringLiteral("deep/")));
    EXPECT_EQ(names(u"D:\\a\\in\\deep"), QStringList());
    // Asked for by another way that does not pass through d/a: where it really is counts as well.
    fs::create_symlink(at("other/deep").toStdString(), at("d/short").toStdString());
    EXPECT_EQ(names(u"D:\\short"), QStringList());
}

TEST_F(FilesList, leavesOutPipesSocketsAndDevices) {
    m_tree.write("d/a.mp3");
    mkfifo(at("d/pipe.mp3").constData(), 0666);
    makeSocket("d/socket.mp3");
    fs::create_symlink("/dev/null", at("d/device.mp3").toStdString());
    fs::create_symlink("pipe.mp3", at("d/toPipe.mp3").toStdString());
    EXPECT_EQ(names(), QStringList(QStringLiteral("a.mp3")));
}

TEST_F(FilesList, errorsTellWhatIsMissing) {
    m_tree.write("d/file");
    fs::create_symlink("nowhere", at("d/broken").toStdString());
    EXPECT_EQ(listError(u"D:\\nothing"), 76);
    EXPECT_EQ(listError(u"D:\\file"), 76);
    EXPECT_EQ(listError(u"D:\\file\\below"), 76);
    EXPECT_EQ(listError(u"D:\\broken"), 76);
    EXPECT_EQ(listError(u"Q:\\"), 68);
    EXPECT_EQ(listError(u""), 68);
    fs::remove_all(at("d").toStdString());
    EXPECT_EQ(listError(u"D:\\"), 68);
}

TEST_F(FilesList, aDirectoryThatMayNotBeReadIsError75) {
    m_tree.write("d/closed/a.mp3");
    chmod(at("d/closed").constData(), 0111);
    const Unprivileged ordinary;
    EXPECT_EQ(listError(u"D:\\closed"), 75);
    EXPECT_EQ(dir(u"D:\\closed\\*.mp3"), QStringList());
    EXPECT_EQ(dir(u"D:\\closed\\a.mp3"), QStringList(QStringLiteral("a.mp3"))); // its name is known
}

TEST_F(FilesList, aDirectoryThatVanishesMeanwhileDoesNoHarm) {
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
        missing += error == 76;
        EXPECT_TRUE(error == 0 || error == 76) << error;
    }
    stop = true;
    other.join();
    EXPECT_GT(listed, 0);
    EXPECT_GT(missing, 0);
}

TEST_F(FilesList, takesAHundredThousandFiles) {
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

TEST_F(FilesDir, matchesThePatternInTheLastPart) {
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

TEST_F(FilesDir, aNameWithoutPatternIsLookedUpAndToldAsItIsWritten) {
    m_tree.write("d/m/A.mp3");
    EXPECT_EQ(dir(u"D:\\M\\a.MP3"), QStringList(QStringLiteral("A.mp3")));
    EXPECT_EQ(dir(u"D:\\m\\b.mp3"), QStringList());
    EXPECT_EQ(dir(u"D:\\M"), QStringList());
    EXPECT_EQ(dir(u"D:\\M", kDirectory), QStringList(QStringLiteral("m")));
}

TEST_F(FilesDir, nothingFoundAndErrorsAreAnEmptyList) {
    for (const char16_t* pattern : {u"", u"*", u"Q:\\*.*", u"D:\\nothing\\*.*", u"D:\\*.mp3", u"D:"})
        EXPECT_EQ(dir(pattern), QStringList()) << QString::fromUtf16(pattern).toStdString();
}

TEST_F(FilesDir, theVolumeLabelComesAlone) {
    m_tree.write("d/a.mp3");
    EXPECT_EQ(dir(u"D:\\*.*", kVolumeLabel), QStringList(QStringLiteral("ROCK_01")));
    EXPECT_EQ(dir(u"Q:\\*.*", kVolumeLabel), QStringList());
}

TEST_F(FilesCopy, copiesBytesAndReplacesTheTarget) {
    const QByteArray content = QByteArray("a\0\r\n\xFF", 5).repeated(200'000);
    m_tree.write("d/From.dat", content);
    m_tree.write("d/to.dat", "old and longer" + content);
    chmod(at("d/to.dat").constData(), 0600);
    m_files.copy(QStringLiteral("D:\\from.DAT"), QStringLiteral("D:\\TO.dat"));
    EXPECT_EQ(m_tree.read("d/to.dat"), content);
    m_files.copy(QStringLiteral("D:\\from.DAT"), QStringLiteral("D:\\New.dat"));
    EXPECT_EQ(m_tree.read("d/New.dat"), content);
    EXPECT_EQ(filesIn("d"), 3U);
    struct stat status {};
    stat(at("d/to.dat").constData(), &status);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST_F(FilesCopy, goesThroughALinkAndOntoItself) {
    m_tree.write("d/from", "new");
    m_tree.write("real/to", "old");
    fs::create_symlink(at("real/to").toStdString(), at("d/to").toStdString());
    m_files.copy(QStringLiteral("D:\\from"), QStringLiteral("D:\\to"));
    EXPECT_TRUE(fs::is_symlink(at("d/to").toStdString()));
    EXPECT_EQ(m_tree.read("real/to"), "new");
    m_files.copy(QStringLiteral("D:\\from"), QStringLiteral("D:\\from"));
    EXPECT_EQ(m_tree.read("d/from"), "new");
}

TEST_F(FilesCopy, errorsTellWhatIsWrong) {
    m_tree.write("d/from", "new");
    m_tree.write("d/to", "old");
    m_tree.makeDirectory("d/dir");
    mkfifo(at("d/pipe").constData(), 0666);
    EXPECT_EQ(copyError(u"D:\\nothing", u"D:\\to"), 53);
    EXPECT_EQ(copyError(u"D:\\nothing\\x", u"D:\\to"), 76);
    EXPECT_EQ(copyError(u"D:\\from", u"D:\\nothing\\to"), 76);
    EXPECT_EQ(copyError(u"D:\\from", u"D:\\to\\below"), 76);
    EXPECT_EQ(copyError(u"Q:\\from", u"D:\\to"), 76);
    EXPECT_EQ(copyError(u"D:\\from", u"Q:\\to"), 76);
    EXPECT_EQ(copyError(u"D:\\dir", u"D:\\to"), 75);
    EXPECT_EQ(copyError(u"D:\\from", u"D:\\dir"), 75);
    EXPECT_EQ(copyError(u"D:\\pipe", u"D:\\to"), 75);
    EXPECT_EQ(copyError(u"D:\\from", u"D:\\pipe"), 75);
    EXPECT_EQ(m_tree.read("d/to"), "old");
    EXPECT_EQ(filesIn("d"), 4U);
}

TEST_F(FilesCopy, whatIsNotAllowedIsError70AndChangesNothing) {
    m_tree.write("d/from", "new");
    m_tree.write("d/secret", "new");
    m_tree.write("d/open/to", "old");
    chmod(at("d/secret").constData(), 0600);
    chmod(at("d/open").constData(), 0777);
    const Unprivileged ordinary;
    EXPECT_EQ(copyError(u"D:\\secret", u"D:\\open\\to"), 70);
    EXPECT_EQ(copyError(u"D:\\from", u"D:\\new"), 70);
    EXPECT_EQ(copyError(u"D:\\from", u"D:\\open\\to"), 70); // another's file, though it could be replaced
    EXPECT_EQ(m_tree.read("d/open/to"), "old");
    EXPECT_EQ(filesIn("d/open"), 1U);
}

TEST_F(FilesCopy, aFullDiskIsError61AndLeavesNoTemporaryBehind) {
    m_tree.makeDirectory("d/small");
    if (mount("none", at("d/small").constData(), "tmpfs", 0, "size=64k") != 0)
        GTEST_SKIP() << "mounting is not allowed here";
    m_tree.write("d/small/to", "old");
    m_tree.write("d/from", QByteArray(200'000, 'x'));
    EXPECT_EQ(copyError(u"D:\\from", u"D:\\small\\to"), 61);
    EXPECT_EQ(m_tree.read("d/small/to"), "old");
    EXPECT_EQ(filesIn("d/small"), 1U);
    umount2(at("d/small").constData(), MNT_DETACH);
}

TEST_F(FilesRead, givesTheWholeContent) {
    const QByteArray content = QByteArray("a\0\r\n\xFF", 5).repeated(50'000);
    m_tree.write("d/a", content);
    m_tree.write("d/empty");
    EXPECT_EQ(m_files.read(QStringLiteral("D:\\A")), content);
    EXPECT_EQ(m_files.read(QStringLiteral("D:\\empty")), QByteArray());
    EXPECT_GT(m_files.read(QStringLiteral("Z:\\proc\\self\\status")).size(),
              100); // whose length is told as 0
}

TEST_F(FilesRead, errorsTellWhatIsWrong) {
    m_tree.makeDirectory("d/dir");
    m_tree.write("d/secret");
    mkfifo(at("d/pipe").constData(), 0666);
    makeSocket("d/socket");
    chmod(at("d/secret").constData(), 0600);
    EXPECT_EQ(readError(u"D:\\nothing"), 53);
    EXPECT_EQ(readError(u"D:\\dir"), 75);
    EXPECT_EQ(readError(u"D:\\pipe"), 75);
    EXPECT_EQ(readError(u"D:\\socket"), 75);
    EXPECT_EQ(readError(u"Z:\\dev\\zero"), 75);
    const Unprivileged ordinary;
    EXPECT_EQ(readError(u"D:\\secret"), 70);
}

TEST_F(FilesRead, onlyRegularFilesExist) {
    m_tree.write("d/a.mp3");
    m_tree.makeDirectory("d/dir");
    mkfifo(at("d/pipe").constData(), 0666);
    EXPECT_TRUE(m_files.exists(QStringLiteral("D:\\A.MP3")));
    EXPECT_FALSE(m_files.exists(QStringLiteral("D:\\dir")));
    EXPECT_FALSE(m_files.exists(QStringLiteral("D:\\pipe")));
    EXPECT_FALSE(m_files.exists(QStringLiteral("D:\\nothing")));
    EXPECT_FALSE(m_files.exists(QStringLiteral("Q:\\a.mp3")));
}

namespace {

// Without touching it: reading, even without waiting, has the system fetch it.
bool isInMemory(const QByteArray& path, off_t page) {
    const Descriptor file(open(path.constData(), O_RDONLY));
    const auto size = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    void* const place = mmap(nullptr, size, PROT_READ, MAP_SHARED, file.get(), page);
    unsigned char resident = 0;
    mincore(place, size, &resident);
    munmap(place, size);
    return (resident & 1U) != 0;
}

// Makes the system forget the file's content; false where it does not.
bool forget(const QByteArray& path) {
    const Descriptor file(open(path.constData(), O_RDONLY));
    return fsync(file.get()) == 0 && posix_fadvise(file.get(), 0, 0, POSIX_FADV_DONTNEED) == 0 &&
           !isInMemory(path, 0);
}

bool comesWithin5Seconds(const std::function<bool()>& condition) {
    for (int i = 0; i < 500; ++i) {
        if (condition())
            return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
}

} // namespace

TEST_F(ExpectTails, fetchesTheEndsOfFilesThatAreNotInMemory) {
    constexpr off_t kSize = 4 << 20;
    QStringList names;
    for (int i = 0; i < 20; ++i) {
        names += QString::number(i);
        m_tree.write("d/" + names.last().toLatin1(), QByteArray(kSize, 'x'));
        if (!forget(at("d/" + names.last().toLatin1())))
            GTEST_SKIP() << "this file system does not forget what it read";
    }
    m_files.expectTails(QStringLiteral("D:\\"), names, 257);
    for (const QString& name : names) {
        const QByteArray path = at("d/" + name.toLatin1());
        ASSERT_TRUE(comesWithin5Seconds([&] { return isInMemory(path, kSize - 4096); }));
        EXPECT_FALSE(isInMemory(path, 0));
    }
}

TEST_F(ExpectTails, noticesAColdDirectoryAfterManyWarmOnes) {
    QStringList names;
    for (int i = 0; i < 3; ++i) {
        names += QString::number(i);
        m_tree.write("d/" + names.last().toLatin1(), QByteArray(1 << 20, 'x'));
    }
    for (int i = 0; i < 1000; ++i)
        m_files.expectTails(QStringLiteral("D:\\"), names, 257);
    for (const QString& name : names)
        if (!forget(at("d/" + name.toLatin1())))
            GTEST_SKIP() << "this file system does not forget what it read";
    for (int i = 0; i < 20; ++i)
        m_files.expectTails(QStringLiteral("D:\\"), names, 257);
    ASSERT_TRUE(comesWithin5Seconds([&] { return isInMemory(at("d/0"), (1 << 20) - 4096); }));
}

TEST_F(ExpectTails, neverFailsAndWaitsForNothing) {
    mkfifo(at("d/pipe").constData(), 0666);
    m_tree.write("d/empty");
    m_tree.write("d/short", "x");
    const QStringList names{QStringLiteral("nothing"), QStringLiteral("empty"), QStringLiteral("short"),
                            QStringLiteral("pipe")};
    for (const char16_t* directory : {u"D:\\", u"D:\\nothing", u"D:\\short", u"Q:\\", u""})
        m_files.expectTails(QString::fromUtf16(directory), names, 257);
    m_files.expectTails(QStringLiteral("D:\\"), {}, 257);
    EXPECT_EQ(filesIn("d"), 3U);
}

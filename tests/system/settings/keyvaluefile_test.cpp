#include "system/settings/keyvaluefile.h"

#include "tests/support/childprocess.h"
#include "tests/support/failingcalls.h"
#include "tests/support/temporary.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include <csignal>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

const QString kSection = QStringLiteral("Section");
constexpr uid_t kNobody = 65534;
constexpr qsizetype kMegabyte = 1'048'576;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

class KeyValueFileTest : public testing::Test {
protected:
    QByteArray path(const char* name = "settings.conf") const { return m_temporary.at(name); }
    std::string content() const { return m_temporary.read("settings.conf").toStdString(); }
    void write(const QByteArray& content) const { m_temporary.write("settings.conf", content); }
    static std::string valueOf(KeyValueFile& file, const char* key)
    {
        return file.value(kSection, text(key)).value_or(text("(none)")).toStdString();
    }
    std::string stored(const char* key) const
    {
        KeyValueFile file(path());
        return valueOf(file, key);
    }

    Temporary m_temporary;
};

// A child that would go on for ever ends with its test, however that ends.
class Killing {
public:
    explicit Killing(const ChildProcess& child) : m_child(child) {}
    ~Killing() { kill(m_child.id(), SIGKILL); }
    Killing(const Killing&) = delete;
    Killing& operator=(const Killing&) = delete;

private:
    const ChildProcess& m_child;
};

// Returns what setting a value answers in a process of a user without rights.
QByteArray setAsNobody(const QByteArray& file)
{
    return saidByChild([&]() -> QByteArray {
        if (geteuid() == 0 &&
            (setresgid(kNobody, kNobody, kNobody) != 0 || setresuid(kNobody, kNobody, kNobody) != 0))
            return "cannot give up rights";
        KeyValueFile settings(file);
        return settings.set(kSection, text("Key"), text("new")) ? "done" : "refused";
    });
}

} // namespace

TEST_F(KeyValueFileTest, readsNothingFromAFileThatIsNotThereAndMakesNothing)
{
    KeyValueFile file(path("deep/er/settings.conf"));
    EXPECT_FALSE(file.value(kSection, text("Key")));
    EXPECT_TRUE(file.keys(kSection).isEmpty());
    EXPECT_TRUE(file.remove(kSection, text("Key")));
    EXPECT_FALSE(m_temporary.exists("deep"));
}

TEST_F(KeyValueFileTest, makesItsDirectoriesAndKeepsValuesForTheNextRun)
{
    EXPECT_TRUE(KeyValueFile(path("deep/er/settings.conf")).set(kSection, text("Key"), text("1")));
    KeyValueFile file(path("deep/er/settings.conf"));
    EXPECT_EQ(valueOf(file, "key"), "1");
    struct stat state {};
    ASSERT_EQ(stat(path("deep").constData(), &state), 0);
    EXPECT_EQ(state.st_mode & 0777, 0700u);
}

TEST_F(KeyValueFileTest, keepsTheSpellingFirstWritten)
{
    KeyValueFile file(path());
    file.set(kSection, text("Show Tips"), text("1"));
    file.set(text("SECTION"), text("SHOW TIPS"), text("0"));
    EXPECT_EQ(content(), "[Section]\nShow Tips=0\n");
}

TEST_F(KeyValueFileTest, removesAKey)
{
    write("[Section]\na=1\nb=2\n");
    KeyValueFile file(path());
    EXPECT_TRUE(file.remove(kSection, text("A")));
    EXPECT_EQ(file.keys(kSection), QStringList(text("b")));
    EXPECT_EQ(content(), "[Section]\nb=2\n");
}

// There are two changes within one tick of the file system's clock, of the same length, seen by a reader that
// had read before.
TEST_F(KeyValueFileTest, seesAnothersChangesAtTheNextRead)
{
    KeyValueFile reader(path());
    KeyValueFile writer(path());
    for (int i = 100; i < 400; ++i) {
        ASSERT_TRUE(writer.set(kSection, text("Key"), QString::number(i)));
        ASSERT_EQ(valueOf(reader, "Key"), std::to_string(i));
    }
    write("[Section]\nKey=999\n");
    EXPECT_EQ(valueOf(reader, "Key"), "999");
    unlink(path().constData());
    EXPECT_EQ(valueOf(reader, "Key"), "(none)");
}

// The file stays the same one, of the same length, and often within the same tick of the file system's clock.
TEST_F(KeyValueFileTest, seesChangesThatFollowEachOtherFast)
{
    write("[Section]\nKey=0\n");
    KeyValueFile reader(path());
    const int descriptor = ::open(path().constData(), O_WRONLY | O_CLOEXEC);
    for (int i = 0; i < 1000; ++i) {
        const std::string value = std::to_string(i % 10);
        ASSERT_EQ(pwrite(descriptor, value.data(), 1, 14), 1);
        ASSERT_EQ(valueOf(reader, "Key"), value);
    }
    ::close(descriptor);
}

TEST_F(KeyValueFileTest, seesAChangeOfAFileThatWasLongAtRest)
{
    write("[Section]\nKey=1\n");
    KeyValueFile reader(path());
    EXPECT_FALSE(readSmallFile(path()).value().settled);
    std::this_thread::sleep_for(milliseconds(2100));
    EXPECT_TRUE(readSmallFile(path()).value().settled);
    EXPECT_EQ(valueOf(reader, "Key"), "1");
    write("[Section]\nKey=2\n");
    EXPECT_EQ(valueOf(reader, "Key"), "2");
}

TEST_F(KeyValueFileTest, losesNothingWhenSeveralProcessesWriteAtOnce)
{
    constexpr int kProcesses = 4;
    constexpr int kKeys = 15;
    const auto setInTheEnd = [](KeyValueFile& file, const QString& key, int value) {
        for (int tries = 0; tries < 500 && !file.set(kSection, key, QString::number(value)); ++tries)
            std::this_thread::sleep_for(milliseconds(5));
    };
    {
        std::vector<std::unique_ptr<ChildProcess>> writers(kProcesses);
        for (int process = 0; process < kProcesses; ++process)
            writers[std::size_t(process)] = std::make_unique<ChildProcess>([&](int) {
                KeyValueFile file(path());
                for (int key = 0; key < kKeys; ++key)
                    setInTheEnd(file, text("k%1-%2").arg(process).arg(key), key);
            });
    }
    KeyValueFile file(path());
    ASSERT_EQ(file.keys(kSection).size(), kProcesses * kKeys);
    for (int process = 0; process < kProcesses; ++process)
        for (int key = 0; key < kKeys; ++key)
            EXPECT_EQ(file.value(kSection, text("k%1-%2").arg(process).arg(key)), QString::number(key));
}

TEST_F(KeyValueFileTest, isWholeAtAnyMomentForAReader)
{
    KeyValueFile first(path());
    const QString longValue(50000, u'x');
    ASSERT_TRUE(first.set(kSection, text("Long"), longValue));
    ChildProcess writer([&](int) {
        KeyValueFile file(path());
        while (true)
            for (const char* value : {"1", "2"})
                file.set(kSection, text("Key"), text(value));
    });
    {
        const Killing killing(writer);
        KeyValueFile reader(path());
        for (int i = 0; i < 300; ++i)
            ASSERT_EQ(reader.value(kSection, text("Long")), longValue);
    }
    writer.wait();
    // Whatever the killed one left does not stop the next.
    EXPECT_TRUE(first.set(kSection, text("Key"), text("3")));
    EXPECT_EQ(stored("Key"), "3");
    EXPECT_EQ(first.value(kSection, text("Long")), longValue);
}

TEST_F(KeyValueFileTest, waitsOnceAndNotForEverForALockThatIsHeld)
{
    write("[Section]\nKey=1\n");
    KeyValueFile file(path());
    {
        ChildProcess holder([&](int descriptor) {
            const int lock = ::open((path() + ".lock").constData(), O_RDWR | O_CREAT, 0600);
            say(descriptor, flock(lock, LOCK_EX) == 0 ? "held" : "failed");
            pause();
        });
        const Killing killing(holder);
        ASSERT_EQ(holder.read(), "held");
        const Clock::time_point begin = Clock::now();
        EXPECT_FALSE(file.set(kSection, text("Key"), text("2")));
        EXPECT_GE(Clock::now() - begin, milliseconds(800));
        for (int i = 0; i < 100; ++i)
            EXPECT_FALSE(file.set(kSection, text("Key"), text("2")));
        EXPECT_LT(Clock::now() - begin, milliseconds(30'000)) << "each for a second";
        EXPECT_EQ(valueOf(file, "Key"), "1");
    }
    EXPECT_TRUE(file.set(kSection, text("Key"), text("2")));
    EXPECT_EQ(stored("Key"), "2");
}

TEST_F(KeyValueFileTest, waitsForALockThatIsHeldShortly)
{
    const int lock = ::open((path() + ".lock").constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    ASSERT_EQ(flock(lock, LOCK_EX), 0);
    std::thread opener([lock] {
        std::this_thread::sleep_for(milliseconds(200));
        ::close(lock);
    });
    EXPECT_TRUE(KeyValueFile(path()).set(kSection, text("Key"), text("1")));
    opener.join();
}

TEST_F(KeyValueFileTest, isNotStoppedByWhatAKilledProcessLeft)
{
    m_temporary.write("settings.conf.new", "[Section]\nKey=hal");
    m_temporary.write("settings.conf.lock");
    EXPECT_TRUE(KeyValueFile(path()).set(kSection, text("Key"), text("1")));
    EXPECT_EQ(content(), "[Section]\nKey=1\n");
}

TEST_F(KeyValueFileTest, failsInAReadOnlyPlaceAndKeepsTheOldValue)
{
    write("[Section]\nKey=old\n");
    ASSERT_EQ(chmod(m_temporary.path().constData(), 0555), 0);
    EXPECT_EQ(setAsNobody(path()), "refused");
    ASSERT_EQ(chmod(m_temporary.path().constData(), 0777), 0);
    EXPECT_EQ(stored("Key"), "old");
}

TEST_F(KeyValueFileTest, failsOnAFileThatForbidsWritingAndKeepsTheOldValue)
{
    write("[Section]\nKey=old\n");
    ASSERT_EQ(chmod(m_temporary.path().constData(), 0777), 0);
    ASSERT_EQ(chmod(path().constData(), 0444), 0);
    EXPECT_EQ(setAsNobody(path()), "refused");
    EXPECT_EQ(stored("Key"), "old");
    ASSERT_EQ(chmod(path().constData(), 0666), 0);
    EXPECT_EQ(setAsNobody(path()), "done"); // so it was the file that refused
    EXPECT_EQ(stored("Key"), "new");
}

TEST_F(KeyValueFileTest, neverReplacesAFileThatItCannotRead)
{
    write("[Section]\nOther=1\n");
    ASSERT_EQ(chmod(m_temporary.path().constData(), 0777), 0);
    ASSERT_EQ(chmod(path().constData(), 0222), 0);
    EXPECT_EQ(setAsNobody(path()), "refused");
    EXPECT_EQ(content(), "[Section]\nOther=1\n");
    m_temporary.makeDirectory("directory");
    EXPECT_FALSE(KeyValueFile(path("directory")).set(kSection, text("Key"), text("1")));
    ASSERT_EQ(mkfifo(path("pipe").constData(), 0600), 0);
    EXPECT_FALSE(KeyValueFile(path("pipe")).set(kSection, text("Key"), text("1")));
    EXPECT_FALSE(KeyValueFile(path("pipe")).value(kSection, text("Key")));
}

// What was asked for in vain must not be replaced by what somebody took instead.
TEST_F(KeyValueFileTest, whatWasNotReadIsNotWritten)
{
    m_temporary.makeDirectory("settings.conf"); // in the way
    KeyValueFile file(path());
    EXPECT_FALSE(file.value(kSection, text("Key")));
    EXPECT_FALSE(file.wasRead(kSection, text("Key")));
    EXPECT_TRUE(file.wasRead(kSection, text("Other")));
    ASSERT_EQ(rmdir(path().constData()), 0);
    write("[Section]\nKey=mine\nOther=1\n");
    EXPECT_FALSE(file.set(kSection, text("KEY"), text("default")));
    EXPECT_FALSE(file.remove(kSection, text("key")));
    EXPECT_TRUE(file.set(kSection, text("Other"), text("2"))) << "nobody asked for it in vain";
    EXPECT_EQ(content(), "[Section]\nKey=mine\nOther=2\n");
    EXPECT_EQ(valueOf(file, "key"), "mine");
    EXPECT_TRUE(file.wasRead(kSection, text("Key")));
    EXPECT_TRUE(file.set(kSection, text("Key"), text("new")));
    EXPECT_EQ(stored("Key"), "new");
}

TEST_F(KeyValueFileTest, aSectionWhoseKeysWereNotReadIsNotWritten)
{
    m_temporary.makeDirectory("settings.conf");
    KeyValueFile file(path());
    EXPECT_TRUE(file.keys(kSection).isEmpty());
    ASSERT_EQ(rmdir(path().constData()), 0);
    write("[Section]\nKey=mine\n");
    EXPECT_FALSE(file.set(kSection, text("New"), text("1")));
    EXPECT_EQ(content(), "[Section]\nKey=mine\n");
    EXPECT_EQ(file.keys(kSection), QStringList(text("Key")));
    EXPECT_TRUE(file.set(kSection, text("New"), text("1")));
}

TEST_F(KeyValueFileTest, whatWasReadOnceCanBeWrittenThoughAWriteFailed)
{
    write("[Section]\nKey=1\n");
    KeyValueFile file(path());
    EXPECT_EQ(valueOf(file, "Key"), "1");
    ASSERT_EQ(rename(path().constData(), path("aside").constData()), 0);
    m_temporary.makeDirectory("settings.conf");
    EXPECT_FALSE(file.set(kSection, text("Key"), text("2")));
    ASSERT_EQ(rmdir(path().constData()), 0);
    ASSERT_EQ(rename(path("aside").constData(), path().constData()), 0);
    EXPECT_TRUE(file.set(kSection, text("Key"), text("2")));
    EXPECT_EQ(stored("Key"), "2");
}

TEST_F(KeyValueFileTest, everyFailingReadIsOneThatReadNothing)
{
    const auto isUnread = [this](const char* target) {
        unlink(path().constData());
        EXPECT_EQ(symlink(target, path().constData()), 0);
        KeyValueFile file(path());
        EXPECT_FALSE(file.value(kSection, text("Key")));
        return !file.wasRead(kSection, text("Key")) && !file.set(kSection, text("New"), text("1"));
    };
    EXPECT_TRUE(isUnread("/proc/self/mem")) << "an error of the disk";
    struct stat state {};
    if (stat("/sys/kernel/mm/transparent_hugepage/enabled", &state) == 0) {
        EXPECT_TRUE(isUnread("/sys/kernel/mm/transparent_hugepage/enabled")) << "less than its size";
    }
    EXPECT_TRUE(isUnread("nowhere/at/all")) << "a link to nothing";
    ASSERT_EQ(lstat(path().constData(), &state), 0);
    EXPECT_TRUE(S_ISLNK(state.st_mode));
}

TEST_F(KeyValueFileTest, keepsTheOldValueWhenTheDiskDoesNotSyncOrRename)
{
    write("[Section]\nKey=old\n");
    const auto refuses = [this](bool (*fail)(int)) {
        return saidByChild([&]() -> QByteArray {
            if (!fail(EIO))
                return "skip";
            return KeyValueFile(path()).set(kSection, text("Key"), text("new")) ? "done" : "refused";
        });
    };
    const QByteArray said = refuses(failSyncs);
    if (said == "skip")
        GTEST_SKIP() << "no call can be made to fail here";
    EXPECT_EQ(said, "refused");
    EXPECT_EQ(refuses(failRenames), "refused");
    EXPECT_EQ(stored("Key"), "old");
    EXPECT_FALSE(m_temporary.exists("settings.conf.new"));
}

TEST_F(KeyValueFileTest, failsOnAFullDiskAndKeepsTheOldValue)
{
    m_temporary.makeDirectory("small");
    if (mount("none", path("small").constData(), "tmpfs", 0, "size=64k") != 0)
        GTEST_SKIP() << "no small file system can be mounted here";
    {
        KeyValueFile file(path("small/settings.conf"));
        EXPECT_TRUE(file.set(kSection, text("Key"), text("old")));
        EXPECT_FALSE(file.set(kSection, text("Key"), QString(100000, u'x')));
        EXPECT_EQ(valueOf(file, "Key"), "old");
        EXPECT_FALSE(m_temporary.exists("small/settings.conf.new"));
        EXPECT_TRUE(file.set(kSection, text("Key"), text("new")));
    }
    umount(path("small").constData());
}

// A limit on file sizes fails in the middle of the writing, as a full disk does, and needs no mount.
TEST_F(KeyValueFileTest, failsWhenTheWritingStopsHalfWay)
{
    write("[Section]\nKey=old\n");
    const QByteArray said = saidByChild([&]() -> QByteArray {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{4096, 4096};
        setrlimit(RLIMIT_FSIZE, &limit);
        KeyValueFile file(path());
        return file.set(kSection, text("Key"), QString(100000, u'x')) ? "done" : "refused";
    });
    EXPECT_EQ(said, "refused");
    EXPECT_EQ(content(), "[Section]\nKey=old\n");
    EXPECT_FALSE(m_temporary.exists("settings.conf.new"));
}

TEST_F(KeyValueFileTest, keepsADamagedFilesBytes)
{
    QByteArray damage(8 * kMegabyte, 'x');
    for (qsizetype i = 0; i < damage.size(); i += 97)
        damage[i] = static_cast<char>(i % 251 == '\n' ? 0 : i % 251);
    write(damage);
    KeyValueFile file(path());
    EXPECT_FALSE(file.value(kSection, text("Key")));
    EXPECT_TRUE(file.set(kSection, text("Key"), text("1")));
    EXPECT_EQ(stored("Key"), "1");
    EXPECT_TRUE(m_temporary.read("settings.conf").startsWith(damage));
}

TEST_F(KeyValueFileTest, leavesAFileAloneThatIsTooLarge)
{
    write("[Section]\nKey=1\n" + QByteArray(17 * kMegabyte, '#'));
    KeyValueFile file(path());
    EXPECT_FALSE(file.value(kSection, text("Key")));
    EXPECT_FALSE(file.set(kSection, text("Key"), text("2")));
    EXPECT_TRUE(m_temporary.read("settings.conf").startsWith("[Section]\nKey=1\n#"));
    write("[Section]\nKey=1\n");
    EXPECT_FALSE(file.set(kSection, text("Key"), QString(17 * kMegabyte, u'x')));
    EXPECT_EQ(stored("Key"), "1");
}

TEST_F(KeyValueFileTest, followsALinkAndKeepsRightsAndOwner)
{
    m_temporary.write("elsewhere/real.conf", "[Section]\nKey=1\n");
    ASSERT_EQ(chmod(path("elsewhere/real.conf").constData(), 0640), 0);
    const uid_t owner = geteuid() == 0 ? kNobody : geteuid();
    ASSERT_EQ(chown(path("elsewhere/real.conf").constData(), owner, gid_t(-1)), 0);
    ASSERT_EQ(symlink("elsewhere/real.conf", path().constData()), 0);
    EXPECT_TRUE(KeyValueFile(path()).set(kSection, text("Key"), text("2")));
    EXPECT_EQ(m_temporary.read("elsewhere/real.conf"), "[Section]\nKey=2\n");
    struct stat state {};
    ASSERT_EQ(stat(path().constData(), &state), 0);
    EXPECT_EQ(state.st_mode & 0777, 0640u);
    EXPECT_EQ(state.st_uid, owner);
}

TEST_F(KeyValueFileTest, writesNothingForAValueThatIsThereAlready)
{
    write("[Section]\nKey=1\n");
    struct stat before {};
    ASSERT_EQ(stat(path().constData(), &before), 0);
    EXPECT_TRUE(KeyValueFile(path()).set(kSection, text("Key"), text("1")));
    struct stat after {};
    ASSERT_EQ(stat(path().constData(), &after), 0);
    EXPECT_EQ(before.st_ino, after.st_ino);
    EXPECT_FALSE(m_temporary.exists("settings.conf.lock"));
}

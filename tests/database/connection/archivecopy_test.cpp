// Backs up and restores the archive's file, also beside other programs that read, write or are killed.
#include "database/connection/archivecopy.h"

#include "database/connection/connection.h"
#include "database/connection/opengroups.h"
#include "tests/support/childprocess.h"
#include "tests/support/errorof.h"
#include "tests/support/rights.h"
#include "tests/support/testarchive.h"

#include <gtest/gtest.h>

#include <filesystem>

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace {

class ArchiveCopy : public testing::Test {
protected:
    QByteArray at(const char* name) { return archive.directory().at(name); }
    QByteArray content(const char* name) { return archive.directory().read(name); }

    int backUpError(const QByteArray& target)
    {
        return errorOf([&] { backUpArchive(archive.file(), target, groups); });
    }
    int restoreError(const QByteArray& source)
    {
        return errorOf([&] { restoreArchive(source, archive.file(), groups); });
    }

    void insert(int from, int count)
    {
        Connection connection(archive.drives());
        connection.open(TestArchive::connectionText());
        connection.beginGroup();
        for (int i = from; i < from + count; ++i)
            connection.execute(numberedInsert(i));
        connection.endGroup();
    }
    static int rowsOf(const QByteArray& file)
    {
        return runScript(file, "SELECT count(*) FROM MP3").value(0).toInt();
    }
    static bool isSound(const QByteArray& file)
    {
        return runScript(file, "PRAGMA integrity_check") == QStringList(QStringLiteral("ok"));
    }

    TestArchive archive;
    OpenGroups groups;
};

const QStringList kBoth{QStringLiteral("Songbin.Bck"), QStringLiteral("Songbin.mdb")};

} // namespace

TEST_F(ArchiveCopy, aBackupIsTheSameBytesAndSoIsWhatIsRestoredFromIt)
{
    insert(0, 500);
    const QByteArray before = content("Songbin.mdb");
    EXPECT_EQ(backUpError(at("Songbin.Bck")), 0);
    EXPECT_EQ(content("Songbin.Bck"), before);
    insert(500, 500);
    EXPECT_EQ(restoreError(at("Songbin.Bck")), 0);
    EXPECT_EQ(content("Songbin.mdb"), before);
    EXPECT_EQ(content("Songbin.Bck"), before);
    EXPECT_EQ(archive.filesInDirectory(), kBoth);
}

TEST_F(ArchiveCopy, anOlderBackupIsReplaced)
{
    archive.directory().write("Songbin.Bck", QByteArray(1'000'000, 'x'));
    EXPECT_EQ(backUpError(at("Songbin.Bck")), 0);
    EXPECT_EQ(content("Songbin.Bck"), content("Songbin.mdb"));
}

TEST_F(ArchiveCopy, anOpenConnectionReadsAndWritesWhatWasRestored)
{
    insert(0, 3);
    ASSERT_EQ(backUpError(at("Songbin.Bck")), 0);
    Connection connection(archive.drives(), &groups);
    connection.open(TestArchive::connectionText());
    connection.execute(numberedInsert(3));
    std::filesystem::create_hard_link(archive.file().toStdString(), at("replaced").toStdString());
    const QByteArray replaced = content("replaced");
    ASSERT_EQ(restoreError(at("Songbin.Bck")), 0);
    connection.execute(numberedInsert(9));
    EXPECT_EQ(
        archive.run("SELECT fldSong FROM MP3"),
        (QStringList{QStringLiteral("0"), QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("9")}));
    EXPECT_EQ(content("replaced"), replaced);
}

TEST_F(ArchiveCopy, aBackupInTheMiddleOfAnImportHoldsWhatIsInserted)
{
    Connection connection(archive.drives(), &groups);
    connection.open(TestArchive::connectionText());
    connection.beginGroup();
    for (int i = 0; i < 10; ++i)
        connection.execute(numberedInsert(i));
    EXPECT_EQ(backUpError(at("Songbin.Bck")), 0);
    EXPECT_EQ(rowsOf(at("Songbin.Bck")), 10);
    connection.execute(numberedInsert(10));
    connection.endGroup();
    EXPECT_EQ(archive.rowCount(), 11);
}

TEST_F(ArchiveCopy, nothingIsRestoredInTheMiddleOfAnImport)
{
    ASSERT_EQ(backUpError(at("Songbin.Bck")), 0);
    Connection connection(archive.drives(), &groups);
    connection.open(TestArchive::connectionText());
    connection.beginGroup();
    connection.execute(numberedInsert(0));
    EXPECT_EQ(restoreError(at("Songbin.Bck")), numberOf(ErrorNumber::PermissionDenied));
    connection.execute(numberedInsert(1));
    connection.endGroup();
    EXPECT_EQ(archive.rowCount(), 2);
    EXPECT_EQ(restoreError(at("Songbin.Bck")), 0);
    EXPECT_EQ(archive.rowCount(), 0);
}

TEST_F(ArchiveCopy, whileAnotherProgramWritesNothingIsRestoredButABackupHoldsWhatWasBefore)
{
    insert(0, 5);
    archive.directory().write("other", content("Songbin.mdb"));
    ChildProcess writer([&](int descriptor) {
        sqlite3* database = nullptr;
        sqlite3_open(archive.file().constData(), &database);
        sqlite3_exec(database, "BEGIN IMMEDIATE; DELETE FROM MP3", nullptr, nullptr, nullptr);
        say(descriptor, "y");
        pause();
    });
    ASSERT_EQ(writer.read(), "y");
    EXPECT_EQ(restoreError(at("other")), numberOf(ErrorNumber::PermissionDenied));
    EXPECT_EQ(backUpError(at("Songbin.Bck")), 0);
    kill(writer.id(), SIGKILL);
    writer.wait();
    EXPECT_EQ(rowsOf(at("Songbin.Bck")), 5);
    EXPECT_TRUE(isSound(at("Songbin.Bck")));
    EXPECT_EQ(archive.rowCount(), 5);
}

TEST_F(ArchiveCopy, anArchiveThatIsLockedWholeCannotBeBackedUp)
{
    archive.directory().write("Songbin.Bck", "old");
    ChildProcess writer([&](int descriptor) {
        sqlite3* database = nullptr;
        sqlite3_open(archive.file().constData(), &database);
        sqlite3_exec(database, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr);
        say(descriptor, "y");
        pause();
    });
    ASSERT_EQ(writer.read(), "y");
    EXPECT_EQ(backUpError(at("Songbin.Bck")), numberOf(ErrorNumber::PermissionDenied));
    EXPECT_EQ(restoreError(at("Songbin.Bck")), numberOf(ErrorNumber::PermissionDenied));
    kill(writer.id(), SIGKILL);
    EXPECT_EQ(content("Songbin.Bck"), "old");
    EXPECT_EQ(archive.filesInDirectory(), kBoth);
}

// Each change of the other program touches every page, one after the other in the file itself because its
// cache is so small: a copy of some pages before and some after it would show.
TEST_F(ArchiveCopy, everyBackupBesideAWritingProgramIsOfOneMoment)
{
    insert(0, 6'000); // on a busy machine, too, a change of all is over before a backup gives up waiting
    ChildProcess writer([&](int descriptor) {
        sqlite3* database = nullptr;
        sqlite3_open(archive.file().constData(), &database);
        sqlite3_busy_timeout(database, 1000);
        sqlite3_exec(database, "PRAGMA cache_size=5", nullptr, nullptr, nullptr);
        for (int i = 0;; ++i) {
            const QByteArray number = QByteArray::number(i);
            sqlite3_exec(database, "UPDATE MP3 SET fldSong='" + number + '\'', nullptr, nullptr, nullptr);
            say(descriptor, "y");
            usleep(150'000); // long enough for who waits for the lock by looking ten times a second
        }
    });
    for (int i = 0; i < 12; ++i) {
        EXPECT_FALSE(writer.read().isEmpty());
        usleep(static_cast<useconds_t>(i * 20'000));
        EXPECT_EQ(backUpError(at("Songbin.Bck")), 0);
        EXPECT_TRUE(isSound(at("Songbin.Bck")));
        EXPECT_EQ(runScript(at("Songbin.Bck"), "SELECT count(DISTINCT fldSong), count(*) FROM MP3"),
                  QStringList(QStringLiteral("1|6000")));
    }
    kill(writer.id(), SIGKILL);
}

// The journal that it leaves is the only sign that half of the pages are not what they should be.
TEST_F(ArchiveCopy, whatAKilledProgramLeftIsUndoneBeforeTheCopy)
{
    insert(0, 20'000);
    const QByteArray before = content("Songbin.mdb");
    ChildProcess writer([&](int descriptor) {
        sqlite3* database = nullptr;
        sqlite3_open(archive.file().constData(), &database);
        sqlite3_exec(database, "PRAGMA cache_size=5; BEGIN; UPDATE MP3 SET fldSong='lost'", nullptr, nullptr,
                     nullptr); // so small a cache writes pages before the commit
        say(descriptor, "y");
        pause();
    });
    ASSERT_EQ(writer.read(), "y");
    kill(writer.id(), SIGKILL);
    writer.wait();
    ASSERT_NE(content("Songbin.mdb"), before);
    EXPECT_EQ(backUpError(at("Songbin.Bck")), 0);
    EXPECT_TRUE(isSound(at("Songbin.Bck")));
    EXPECT_EQ(runScript(at("Songbin.Bck"), "SELECT count(*) FROM MP3 WHERE fldSong='lost'"),
              QStringList(QStringLiteral("0")));
}

TEST_F(ArchiveCopy, whatBelongedToTheReplacedFileIsNotTakenForThisOnes)
{
    insert(0, 100);
    ASSERT_EQ(backUpError(at("Songbin.Bck")), 0);
    archive.directory().write("Songbin.mdb", "damaged");
    archive.directory().write("Songbin.mdb-journal", content("Songbin.Bck"));
    archive.directory().write("Songbin.mdb-wal", content("Songbin.Bck"));
    EXPECT_EQ(restoreError(at("Songbin.Bck")), 0);
    EXPECT_EQ(archive.filesInDirectory(), kBoth);
    EXPECT_EQ(archive.rowCount(), 100);
    EXPECT_TRUE(archive.isSound());
}

TEST_F(ArchiveCopy, rowsThatStillLieInALogAreCopiedToo)
{
    archive.run("PRAGMA journal_mode=WAL");
    ChildProcess writer([&](int) {
        sqlite3* database = nullptr;
        sqlite3_open(archive.file().constData(), &database);
        sqlite3_exec(database, "INSERT INTO MP3 (fldSong) VALUES ('in the log')", nullptr, nullptr, nullptr);
        _exit(0);
    });
    writer.readAll();
    writer.wait();
    EXPECT_EQ(backUpError(at("Songbin.Bck")), 0);
    EXPECT_EQ(rowsOf(at("Songbin.Bck")), 1);
}

TEST_F(ArchiveCopy, aFileThatIsNoDatabaseIsCopiedAsItIs)
{
    for (const QByteArray& strange : {QByteArray("not at all"), QByteArray(), QByteArray(70'000, '\0')}) {
        archive.directory().write("strange", strange);
        EXPECT_EQ(restoreError(at("strange")), 0);
        EXPECT_EQ(content("Songbin.mdb"), strange);
        EXPECT_EQ(backUpError(at("Songbin.Bck")), 0);
        EXPECT_EQ(content("Songbin.Bck"), strange);
    }
}

TEST_F(ArchiveCopy, anArchiveThatWasDeletedIsRestoredButCannotBeBackedUp)
{
    insert(0, 7);
    ASSERT_EQ(backUpError(at("Songbin.Bck")), 0);
    std::filesystem::remove(archive.file().toStdString());
    EXPECT_EQ(backUpError(at("again")), numberOf(ErrorNumber::FileNotFound));
    EXPECT_FALSE(archive.directory().exists("again"));
    EXPECT_EQ(restoreError(at("Songbin.Bck")), 0);
    EXPECT_EQ(archive.rowCount(), 7);
}

TEST_F(ArchiveCopy, theArchiveItselfIsNoTargetAndNothingToRestoreFrom)
{
    insert(0, 7);
    const QByteArray before = content("Songbin.mdb");
    archive.directory().makeDirectory("sub");
    std::filesystem::create_symlink(archive.file().toStdString(), at("link").toStdString());
    std::filesystem::create_hard_link(archive.file().toStdString(), at("hard").toStdString());
    for (const char* name : {"Songbin.mdb", "link", "hard", "sub/../Songbin.mdb"}) {
        EXPECT_EQ(backUpError(at(name)), numberOf(ErrorNumber::PermissionDenied)) << name;
        EXPECT_EQ(restoreError(at(name)), 0) << name;
        EXPECT_EQ(content(name), before) << name;
    }
    EXPECT_TRUE(std::filesystem::is_symlink(at("link").toStdString()));
}

TEST_F(ArchiveCopy, anArchiveBehindALinkIsReplacedWhereItLies)
{
    archive.directory().makeDirectory("real");
    std::filesystem::rename(archive.file().toStdString(), at("real/Songbin.mdb").toStdString());
    std::filesystem::create_symlink("real/Songbin.mdb", archive.file().toStdString());
    ASSERT_EQ(backUpError(at("Songbin.Bck")), 0);
    insert(0, 3);
    EXPECT_EQ(restoreError(at("Songbin.Bck")), 0);
    EXPECT_TRUE(std::filesystem::is_symlink(archive.file().toStdString()));
    EXPECT_EQ(content("real/Songbin.mdb"), content("Songbin.Bck"));
}

TEST_F(ArchiveCopy, aSourceThatCannotBeReadChangesNothing)
{
    insert(0, 7);
    const QByteArray before = content("Songbin.mdb");
    archive.directory().makeDirectory("directory");
    mkfifo(at("pipe").constData(), 0666);
    EXPECT_EQ(restoreError(at("missing")), numberOf(ErrorNumber::FileNotFound));
    EXPECT_EQ(restoreError(at("missing/file")), numberOf(ErrorNumber::FileNotFound));
    EXPECT_EQ(restoreError(at("directory")), numberOf(ErrorNumber::PathFileAccess));
    EXPECT_EQ(restoreError(at("pipe")), numberOf(ErrorNumber::PathFileAccess));
    archive.directory().write("secret", "x");
    chmod(at("secret").constData(), 0);
    {
        const Unprivileged user;
        EXPECT_EQ(restoreError(at("secret")), numberOf(ErrorNumber::PermissionDenied));
    }
    EXPECT_EQ(content("Songbin.mdb"), before);
}

TEST_F(ArchiveCopy, aPlaceThatCannotBeWrittenChangesNothing)
{
    insert(0, 7);
    const QByteArray before = content("Songbin.mdb");
    ASSERT_EQ(backUpError(at("Songbin.Bck")), 0);
    insert(7, 7);
    const QByteArray after = content("Songbin.mdb");
    EXPECT_EQ(backUpError(at("nowhere/Songbin.Bck")), numberOf(ErrorNumber::PathNotFound));
    chmod(archive.directory().path().constData(), 0555);
    {
        const Unprivileged user;
        EXPECT_NE(backUpError(at("Songbin.Bck")), 0);
        EXPECT_NE(restoreError(at("Songbin.Bck")), 0);
    }
    chmod(archive.directory().path().constData(), 0755);
    EXPECT_EQ(content("Songbin.mdb"), after);
    EXPECT_EQ(content("Songbin.Bck"), before);
}

TEST_F(ArchiveCopy, aCopyThatFailsHalfWayLeavesTheOldFileAndNothingElse)
{
    insert(0, 20'000);
    ASSERT_EQ(backUpError(at("Songbin.Bck")), 0);
    insert(20'000, 10);
    const QByteArray before = content("Songbin.mdb");
    const QByteArray said = saidByChild([&] {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{400'000, 400'000};
        setrlimit(RLIMIT_FSIZE, &limit);
        return QByteArray::number(restoreError(at("Songbin.Bck"))) + ' ' +
               QByteArray::number(backUpError(at("Songbin.Bck")));
    });
    EXPECT_EQ(said, told(ErrorNumber::DiskFull) + ' ' + told(ErrorNumber::DiskFull));
    EXPECT_EQ(content("Songbin.mdb"), before);
    EXPECT_EQ(rowsOf(at("Songbin.Bck")), 20'000);
    EXPECT_EQ(archive.filesInDirectory(), kBoth);
}

TEST_F(ArchiveCopy, aFullDiskLeavesTheOldBackup)
{
    insert(0, 20'000);
    const QByteArray said = saidByChild([&]() -> QByteArray {
        archive.directory().makeDirectory("small");
        if (unshare(CLONE_NEWNS) != 0 || mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            mount("none", at("small").constData(), "tmpfs", 0, "size=200k") != 0)
            return "not permitted";
        archive.directory().write("small/Songbin.Bck", "old");
        const int error = backUpError(at("small/Songbin.Bck"));
        const auto files = QDir(QString::fromUtf8(at("small"))).entryList(QDir::Files | QDir::Hidden);
        return QByteArray::number(error) + ' ' + content("small/Songbin.Bck") + ' ' +
               QByteArray::number(files.size());
    });
    if (said == "not permitted")
        GTEST_SKIP() << "no right to mount a small disk";
    EXPECT_EQ(said, told(ErrorNumber::DiskFull) + " old 1");
}

TEST_F(ArchiveCopy, killedAtAnyMomentTheArchiveIsTheOldOrTheNewOneWhole)
{
    insert(0, 20'000);
    const QByteArray first = content("Songbin.mdb");
    archive.directory().write("first", first);
    insert(20'000, 5'000);
    const QByteArray second = content("Songbin.mdb");
    archive.directory().write("second", second);
    for (int round = 0; round < 40; ++round) {
        ChildProcess child([&](int) {
            for (;;)
                for (const char* name : {"first", "second"})
                    restoreError(at(name));
        });
        usleep(static_cast<useconds_t>(2000 + 1700 * round % 30'000));
        kill(child.id(), SIGKILL);
        child.wait();
        const QByteArray now = content("Songbin.mdb");
        EXPECT_TRUE(now == first || now == second) << round;
        EXPECT_FALSE(archive.directory().exists("Songbin.mdb-journal"));
    }
    EXPECT_TRUE(archive.isSound());
}

namespace {

// A program was killed in the middle of a change: some of the pages are changed, a journal lies beside.
void leaveUnfinished(const QByteArray& file)
{
    ChildProcess writer([&](int descriptor) {
        sqlite3* database = nullptr;
        sqlite3_open(file.constData(), &database);
        sqlite3_exec(database, "PRAGMA cache_size=5; BEGIN; UPDATE MP3 SET fldSong='lost'", nullptr, nullptr,
                     nullptr);
        say(descriptor, "y");
        pause();
    });
    EXPECT_EQ(writer.read(), "y");
    kill(writer.id(), SIGKILL);
    writer.wait();
}

} // namespace

TEST_F(ArchiveCopy, aSourceThatAKilledProgramLeftIsSettledFirst)
{
    insert(0, 20'000);
    ASSERT_EQ(backUpError(at("Songbin.Bck")), 0);
    leaveUnfinished(at("Songbin.Bck"));
    ASSERT_TRUE(archive.directory().exists("Songbin.Bck-journal"));
    EXPECT_EQ(restoreError(at("Songbin.Bck")), 0);
    EXPECT_TRUE(archive.isSound());
    EXPECT_EQ(archive.run("SELECT count(*) FROM MP3 WHERE fldSong='lost'"), QStringList(QStringLiteral("0")));
}

TEST_F(ArchiveCopy, aSourceThatIsBeingWrittenIsNotRestored)
{
    insert(0, 5);
    ASSERT_EQ(backUpError(at("Songbin.Bck")), 0);
    insert(5, 5);
    ChildProcess writer([&](int descriptor) {
        sqlite3* database = nullptr;
        sqlite3_open(at("Songbin.Bck").constData(), &database);
        sqlite3_exec(database, "BEGIN EXCLUSIVE; DELETE FROM MP3", nullptr, nullptr, nullptr);
        say(descriptor, "y");
        pause();
    });
    ASSERT_EQ(writer.read(), "y");
    EXPECT_EQ(restoreError(at("Songbin.Bck")), numberOf(ErrorNumber::PermissionDenied));
    kill(writer.id(), SIGKILL);
    EXPECT_EQ(archive.rowCount(), 10);
}

TEST_F(ArchiveCopy, aFormatOfTheFutureCanBeReplacedAndCopied)
{
    insert(0, 5);
    ASSERT_EQ(backUpError(at("Songbin.Bck")), 0);
    QByteArray future = content("Songbin.mdb");
    future[47] = 9;
    archive.directory().write("Songbin.mdb", future);
    EXPECT_EQ(backUpError(at("future")), 0);
    EXPECT_EQ(content("future"), future);
    EXPECT_EQ(restoreError(at("Songbin.Bck")), 0);
    EXPECT_EQ(archive.rowCount(), 5);
}

TEST_F(ArchiveCopy, linksThatLeadNowhereAndTheEnginesOwnNamesAreNoTargets)
{
    insert(0, 5);
    std::filesystem::create_symlink(at("not/there").toStdString(), at("link").toStdString());
    EXPECT_EQ(backUpError(at("link")), numberOf(ErrorNumber::PathNotFound));
    EXPECT_TRUE(std::filesystem::is_symlink(at("link").toStdString()));
    for (const char* name : {"Songbin.mdb-journal", "Songbin.mdb-wal", "Songbin.mdb-shm"})
        EXPECT_EQ(backUpError(at(name)), numberOf(ErrorNumber::PermissionDenied)) << name;
    EXPECT_EQ(archive.rowCount(), 5);
}

TEST_F(ArchiveCopy, afterABackupARunningImportHasTheArchiveAgainAtOnce)
{
    archive.directory().write("other", content("Songbin.mdb"));
    ChildProcess restorer([&](int descriptor) {
        while (!archive.directory().exists("go"))
            usleep(1000);
        OpenGroups none;
        say(descriptor,
            QByteArray::number(errorOf([&] { restoreArchive(at("other"), archive.file(), none); })));
    });
    Connection import(archive.drives(), &groups);
    import.open(TestArchive::connectionText());
    import.beginGroup();
    import.execute(numberedInsert(0));
    ASSERT_EQ(backUpError(at("Songbin.Bck")), 0);
    archive.directory().write("go", "");
    EXPECT_EQ(restorer.read(), told(ErrorNumber::PermissionDenied));
    import.execute(numberedInsert(1));
    import.endGroup();
    EXPECT_EQ(archive.rowCount(), 2);
}

TEST_F(ArchiveCopy, anImportWhoseArchiveIsReplacedBetweenTwoGroupsIsToldSo)
{
    archive.directory().write("other", content("Songbin.mdb"));
    Connection import(archive.drives(), &groups);
    import.open(TestArchive::connectionText());
    import.beginGroup();
    import.execute(numberedInsert(0));
    import.suspendGroup();
    std::filesystem::rename(at("other").toStdString(), archive.file().toStdString());
    EXPECT_EQ(errorOf([&] { import.execute(numberedInsert(1)); }), kConnectionError);
    import.resumeGroup();
    EXPECT_EQ(errorOf([&] { import.execute(numberedInsert(2)); }), kConnectionError);
    import.close();
    EXPECT_EQ(archive.rowCount(), 0);
}

TEST_F(ArchiveCopy, theReplacedFilesOwnerAndRightsStay)
{
    ASSERT_EQ(backUpError(at("Songbin.Bck")), 0);
    chmod(archive.file().constData(), 0640);
    const bool given = chown(archive.file().constData(), 65534, 65534) == 0;
    ASSERT_EQ(restoreError(at("Songbin.Bck")), 0);
    struct stat facts {};
    stat(archive.file().constData(), &facts);
    EXPECT_EQ(facts.st_mode & 0777U, 0640U);
    EXPECT_EQ(facts.st_uid, given ? 65534U : geteuid());
}

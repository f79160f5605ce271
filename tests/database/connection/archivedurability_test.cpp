// What the archive holds after a process was killed or its disk ran full in the middle of groups.
#include "base/runtimeerror.h"
#include "database/connection/connection.h"
#include "tests/support/childprocess.h"
#include "tests/support/testarchive.h"

#include <gtest/gtest.h>

#include <sqlite3.h>

#include <csignal>
#include <random>

#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>

namespace {

constexpr int kGroup = 400;

void insertGroup(Connection& connection, int& next)
{
    for (int i = 0; i < kGroup; ++i)
        connection.execute(numberedInsert(next++));
}

// Inserts for ever and reports each group as soon as it is committed.
[[noreturn]] void insertAndReport(TestArchive& archive, int descriptor)
{
    Connection connection(archive.drives());
    connection.open(TestArchive::connectionText());
    connection.beginGroup();
    for (int next = 0;;) {
        insertGroup(connection, next);
        connection.commitGroup();
        say(descriptor, "c");
    }
}

// Inserts groups until the disk is full; "ok", or what is wrong with the archive then.
QByteArray fillDisk(Drives& drives, const QByteArray& file)
{
    int next = 0;
    int committed = 0;
    bool lost = false;
    QByteArray said;
    Connection connection(drives);
    connection.open(TestArchive::connectionText());
    try {
        for (connection.beginGroup(); next < 1000 * kGroup; committed = next) {
            insertGroup(connection, next);
            connection.commitGroup();
        }
    } catch (const RunTimeError& error) {
        said = error.what();
        lost = sqlite3_get_autocommit(connection.handle()) != 0;
        if (error.number() != kConnectionError || lost != said.contains("undone"))
            return "wrong error: " + said;
    }
    if (said.isEmpty() || committed == 0)
        return "not filled, or nothing committed before: " + said;
    resumeNext([&] { connection.close(); });
    const int rows = runScript(file, "SELECT count(*) FROM MP3").value(0).toInt();
    if (rows < committed || (lost && rows != committed) ||
        runScript(file, "PRAGMA integrity_check") != QStringList(QStringLiteral("ok")))
        return QByteArray::number(rows) + " rows of " + QByteArray::number(committed);
    return "ok: " + said;
}

} // namespace

TEST(ArchiveDurability, aKilledProcessLosesNoFinishedGroup)
{
    std::mt19937 random(std::random_device{}());
    for (int round = 0; round < 25; ++round) {
        TestArchive archive;
        ChildProcess child([&](int descriptor) { insertAndReport(archive, descriptor); });
        const qsizetype reports = 1 + static_cast<qsizetype>(random() % 4);
        QByteArray seen;
        while (seen.size() < reports)
            seen += child.read();
        usleep(static_cast<useconds_t>(random() % 6000));
        kill(child.id(), SIGKILL);
        child.wait();
        seen += child.readAll();
        EXPECT_TRUE(archive.isSound());
        const int rows = archive.rowCount();
        EXPECT_GE(rows, kGroup * seen.size());
        EXPECT_EQ(rows % kGroup, 0);
        // A journal that was not yet of use may lie there until the next write.
        Connection next(archive.drives());
        next.open(TestArchive::connectionText());
        next.execute(numberedInsert(0));
        EXPECT_EQ(archive.rowCount(), rows + 1);
        EXPECT_EQ(archive.filesInDirectory(), QStringList(QStringLiteral("Songbin.mdb")));
    }
}

TEST(ArchiveDurability, aFullDiskIsAnErrorAndKeepsTheEarlierGroups)
{
    Temporary directory;
    const QByteArray said = saidByChild([&]() -> QByteArray {
        if (unshare(CLONE_NEWNS) != 0 || mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            mount("none", directory.path().constData(), "tmpfs", 0, "size=1m") != 0)
            return "not permitted";
        const QByteArray file = directory.at("Songbin.mdb");
        createArchive(file);
        OneDrive drives(directory.path());
        return fillDisk(drives, file);
    });
    if (said == "not permitted")
        GTEST_SKIP() << "no right to mount a small disk";
    EXPECT_TRUE(said.startsWith("ok: The disk with the archive is full")) << said.toStdString();
}

TEST(ArchiveDurability, aFileThatMayNotGrowIsAnErrorAndKeepsTheEarlierGroups)
{
    TestArchive archive;
    const QByteArray said = saidByChild([&] {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{400'000, 400'000};
        setrlimit(RLIMIT_FSIZE, &limit);
        return fillDisk(archive.drives(), archive.file());
    });
    EXPECT_TRUE(said.startsWith("ok: ")) << said.toStdString();
    EXPECT_TRUE(archive.isSound());
}

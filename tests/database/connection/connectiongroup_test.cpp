// Holds what groups of statements make durable, what an error in them undoes, and what others see meanwhile.
#include "database/connection/connection.h"

#include "tests/support/childprocess.h"
#include "tests/support/errorof.h"
#include "tests/support/hung.h"
#include "tests/support/testarchive.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

#include <array>

namespace {

// Is another process that runs a script, such as one that takes a lock, and keeps its connection until it is
// let go. It starts while this process has no connection: the engine's own notes of locks must not go over
// into it.
class LockHolder {
public:
    explicit LockHolder(const QByteArray& file)
        : m_orders(makePipe()), m_process([this, file](int descriptor) { serve(file, descriptor); })
    {
        close(m_orders[0]);
    }
    ~LockHolder() { letGo(); }
    LockHolder(const LockHolder&) = delete;
    LockHolder& operator=(const LockHolder&) = delete;

    bool run(const char* script)
    {
        say(m_orders[1], script);
        return m_process.read() == "y";
    }

    void letGo()
    {
        if (m_orders[1] >= 0)
            close(m_orders[1]);
        m_orders[1] = -1;
        m_process.wait();
    }

private:
    static std::array<int, 2> makePipe()
    {
        std::array<int, 2> ends{-1, -1};
        EXPECT_EQ(pipe(ends.data()), 0);
        return ends;
    }

    void serve(const QByteArray& file, int descriptor)
    {
        close(m_orders[1]);
        std::array<char, 100> script{};
        if (::read(m_orders[0], script.data(), script.size() - 1) <= 0)
            return;
        sqlite3* database = nullptr;
        sqlite3_open(file.constData(), &database);
        say(descriptor,
            sqlite3_exec(database, script.data(), nullptr, nullptr, nullptr) == SQLITE_OK ? "y" : "n");
        if (::read(m_orders[0], script.data(), 1) != 0)
            _exit(1);
    }

    std::array<int, 2> m_orders;
    ChildProcess m_process;
};

class ConnectionGroup : public testing::Test {
protected:
    ConnectionGroup() { connection.open(TestArchive::connectionText()); }

    void insert(int from, int count)
    {
        for (int i = from; i < from + count; ++i)
            connection.execute(numberedInsert(i));
    }

    TestArchive archive;
    LockHolder other{archive.file()};
    Connection connection{archive.drives()};
};

const QStringList kFileAlone(QStringLiteral("Songbin.mdb"));

} // namespace

TEST_F(ConnectionGroup, rowsAreThereForOthersAfterEachCommit)
{
    connection.beginGroup();
    insert(0, 10);
    EXPECT_EQ(archive.rowCount(), 0);
    connection.commitGroup();
    EXPECT_EQ(archive.rowCount(), 10);
    insert(10, 5);
    EXPECT_EQ(archive.rowCount(), 10);
    connection.endGroup();
    EXPECT_EQ(archive.rowCount(), 15);
    EXPECT_EQ(archive.filesInDirectory(), kFileAlone);
    insert(15, 1);
    EXPECT_EQ(archive.rowCount(), 16);
}

TEST_F(ConnectionGroup, aReaderOnlyPutsACommitOff)
{
    connection.beginGroup();
    insert(0, 10);
    ASSERT_TRUE(other.run("BEGIN; SELECT count(*) FROM MP3"));
    EXPECT_THROW(connection.suspendGroup(), ArchiveLocked);
    insert(10, 10);
    other.letGo();
    connection.suspendGroup();
    EXPECT_EQ(archive.rowCount(), 20);
    insert(20, 1);
    connection.endGroup();
    EXPECT_EQ(archive.rowCount(), 21);
}

TEST_F(ConnectionGroup, closingMakesAnOpenGroupDurable)
{
    connection.beginGroup();
    insert(0, 3);
    connection.close();
    EXPECT_EQ(archive.rowCount(), 3);
    EXPECT_EQ(archive.filesInDirectory(), kFileAlone);
}

TEST_F(ConnectionGroup, theDestructorMakesAnOpenGroupDurable)
{
    {
        Connection shortLived(archive.drives());
        shortLived.open(TestArchive::connectionText());
        shortLived.beginGroup();
        shortLived.execute(numberedInsert(0));
    }
    EXPECT_EQ(archive.rowCount(), 1);
    EXPECT_EQ(archive.filesInDirectory(), kFileAlone);
}

TEST_F(ConnectionGroup, aFailingStatementUndoesOnlyItself)
{
    archive.run("CREATE TABLE Once (a TEXT UNIQUE)");
    connection.beginGroup();
    insert(0, 2);
    connection.execute(QStringLiteral("INSERT INTO Once (a) VALUES ('x');"));
    const auto run = [&](const char16_t* text) { connection.execute(QString::fromUtf16(text)); };
    EXPECT_EQ(errorOf([&] { run(u"INSERT INTO Once (a) VALUES ('x');"); }), kConnectionError);
    EXPECT_EQ(errorOf([&] { run(u"INSERT INTO Once (a) VALUES ('y'), ('z'), ('x')"); }), kConnectionError);
    EXPECT_EQ(errorOf([&] { run(u"INSERT INTO MP3 (fldSong) VALUES ('it's');"); }), kStatementError);
    insert(2, 1);
    connection.endGroup();
    EXPECT_EQ(archive.rowCount(), 3);
    EXPECT_EQ(archive.run("SELECT a FROM Once"), QStringList(QStringLiteral("x")));
}

TEST_F(ConnectionGroup, literalsAloneAreRunAndNothingElseIs)
{
    connection.beginGroup();
    connection.executeLiterals(numberedInsert(0));
    for (const char16_t* text :
         {u"INSERT INTO MP3 (fldSong) VALUES ('x' || 'y');", u"INSERT INTO MP3 (fldSong) VALUES ('x'),('1');",
          u"INSERT INTO MP3 (fldSong) VALUES (1);", u"INSERT INTO MP3 (fldSong) VALUES ('it''s');",
          u"INSERT INTO MP3 (fldSong) VALUES ('x', 'y');",
          u"INSERT INTO MP3 (fldSong) VALUES ('x'); DELETE FROM MP3", u"DELETE FROM MP3",
          u"INSERT INTO MP3 (fldSong) VALUES ((SELECT 'x'));", u""})
        EXPECT_EQ(errorOf([&] { connection.executeLiterals(QString::fromUtf16(text)); }), kStatementError)
            << QString::fromUtf16(text).toStdString();
    connection.executeLiterals(numberedInsert(1));
    connection.endGroup();
    EXPECT_EQ(archive.rowCount(), 2);
}

// Between two groups nobody has the archive.
TEST_F(ConnectionGroup, aSuspendedGroupLetsAnotherProgramWrite)
{
    connection.beginGroup();
    insert(0, 1);
    connection.suspendGroup();
    ASSERT_TRUE(other.run("BEGIN IMMEDIATE; INSERT INTO MP3 (fldSong) VALUES ('theirs')"));
    EXPECT_THROW(insert(1, 1), ArchiveLocked);
    other.letGo();
    insert(1, 1);
    connection.endGroup();
    EXPECT_EQ(archive.rowCount(), 2);
}

TEST_F(ConnectionGroup, aLockIsWaitedForAsLongAsItIsSet)
{
    constexpr int kUsual = 700; // milliseconds: what is waited for unless it is set
    Connection hasty(archive.drives());
    hasty.setPatience(std::chrono::milliseconds(20));
    hasty.open(TestArchive::connectionText());
    ASSERT_TRUE(other.run("BEGIN IMMEDIATE"));
    QElapsedTimer timer;
    timer.start();
    EXPECT_THROW(hasty.beginGroup(), ArchiveLocked);
    EXPECT_LT(timer.elapsed(), kUsual);
}

TEST_F(ConnectionGroup, groupsDoNotNestAndNoneEndsThatWasNotBegun)
{
    EXPECT_EQ(errorOf([&] { connection.endGroup(); }), kStatementError);
    EXPECT_EQ(errorOf([&] { connection.commitGroup(); }), kStatementError);
    connection.beginGroup();
    insert(0, 1);
    EXPECT_EQ(errorOf([&] { connection.beginGroup(); }), kStatementError);
    connection.endGroup();
    EXPECT_EQ(archive.rowCount(), 1);
}

TEST_F(ConnectionGroup, anOpenGroupKeepsOtherConnectionsFromWriting)
{
    connection.beginGroup();
    Connection second(archive.drives());
    second.open(TestArchive::connectionText());
    EXPECT_EQ(errorOf([&] { second.execute(numberedInsert(1)); }), kConnectionError);
    connection.endGroup();
    second.execute(numberedInsert(1));
    EXPECT_EQ(archive.rowCount(), 1);
}

TEST_F(ConnectionGroup, anotherProcessThatWritesIsWaitedForShortly)
{
    ASSERT_TRUE(other.run("BEGIN IMMEDIATE"));
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(errorOf([&] { connection.beginGroup(); }), kConnectionError);
    EXPECT_GE(timer.elapsed(), 700);
    EXPECT_LT(timer.elapsed(), kHung);
    other.letGo();
    connection.beginGroup();
    insert(0, 1);
    connection.endGroup();
    EXPECT_EQ(archive.rowCount(), 1);
}

TEST_F(ConnectionGroup, anArchiveLockedByAnotherProcessCannotBeOpened)
{
    connection.close();
    ASSERT_TRUE(other.run("BEGIN EXCLUSIVE"));
    EXPECT_EQ(errorOf([&] { connection.open(TestArchive::connectionText()); }), kConnectionError);
    EXPECT_FALSE(connection.isOpen());
    other.letGo();
    connection.open(TestArchive::connectionText());
}

TEST_F(ConnectionGroup, aCommitThatFindsAReaderCanBeRepeated)
{
    connection.beginGroup();
    insert(0, 4);
    ASSERT_TRUE(other.run("BEGIN; SELECT count(*) FROM MP3"));
    EXPECT_EQ(errorOf([&] { connection.commitGroup(); }), kConnectionError);
    other.letGo();
    insert(4, 1);
    connection.endGroup();
    EXPECT_EQ(archive.rowCount(), 5);
}

TEST_F(ConnectionGroup, closingTellsAGroupThatCouldNotBeMadeDurableAndIsClosedAllTheSame)
{
    connection.beginGroup();
    insert(0, 4);
    ASSERT_TRUE(other.run("BEGIN; SELECT count(*) FROM MP3"));
    EXPECT_EQ(errorOf([&] { connection.close(); }), kConnectionError);
    EXPECT_FALSE(connection.isOpen());
    other.letGo();
    EXPECT_EQ(archive.rowCount(), 0);
    EXPECT_TRUE(archive.isSound());
    EXPECT_EQ(archive.filesInDirectory(), kFileAlone);
}

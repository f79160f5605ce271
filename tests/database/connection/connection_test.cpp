#include "database/connection/connection.h"

#include "base/runtimeerror.h"
#include "database/connection/stoppable.h"
#include "database/cursor/recordset.h"
#include "tests/support/childprocess.h"
#include "tests/support/testarchive.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <cstdio>

namespace {

template <typename Work>
RunTimeError failureOf(Work&& work)
{
    try {
        work();
    } catch (const RunTimeError& error) {
        return error;
    }
    ADD_FAILURE() << "no error";
    return RunTimeError(0, {});
}

class ConnectionTest : public testing::Test {
protected:
    void open(const QString& name = QStringLiteral("Songbin.mdb"))
    {
        connection.open(TestArchive::connectionText(name));
    }

    RunTimeError failureToOpen(const QString& name)
    {
        RunTimeError error = failureOf([&] { open(name); });
        EXPECT_EQ(error.number(), kConnectionError);
        EXPECT_FALSE(connection.isOpen());
        EXPECT_TRUE(error.text().contains(name)) << error.what();
        return error;
    }

    static void isToBeRestored(const RunTimeError& error)
    {
        EXPECT_TRUE(error.advice().contains(QStringLiteral("(Tools, Backup, Restore)"))) << error.what();
    }

    int errorOf(const QString& statement)
    {
        const RunTimeError error = failureOf([&] { connection.execute(statement); });
        EXPECT_FALSE(error.text().isEmpty());
        return error.number();
    }

    // Returns the error that the work ends with for a user without special rights, the file having the mode.
    template <typename Work>
    QByteArray saidWithoutRights(mode_t mode, Work&& work)
    {
        constexpr uid_t nobody = 65534;
        EXPECT_EQ(chmod(archive.directory().path().constData(), 0755), 0);
        EXPECT_EQ(chmod(archive.file().constData(), mode), 0);
        return saidByChild([&]() -> QByteArray {
            if (geteuid() == 0 && setuid(nobody) != 0)
                return "the rights are still there";
            const RunTimeError error = failureOf(work);
            return error.number() == kConnectionError ? error.what() : "wrong number";
        });
    }

    TestArchive archive;
    Connection connection{archive.drives()};
};

} // namespace

TEST_F(ConnectionTest, insertsRowsAndLeavesNothingBesideTheFile)
{
    connection.setCursorLocation(CursorLocation::Client);
    connection.open(TestArchive::connectionText(), QString(), QString());
    connection.execute(numberedInsert(1));
    EXPECT_EQ(archive.filesInDirectory(), QStringList(QStringLiteral("Songbin.mdb")));
    EXPECT_EQ(archive.run("SELECT * FROM MP3"), QStringList(QStringLiteral("DISK|D:\\1.mp3|a|1| | | ")));
    connection.close();
    EXPECT_FALSE(connection.isOpen());
    EXPECT_EQ(archive.filesInDirectory(), QStringList(QStringLiteral("Songbin.mdb")));
}

TEST_F(ConnectionTest, aMissingFileIsAnErrorAndIsNotCreated)
{
    isToBeRestored(failureToOpen(QStringLiteral("none.mdb")));
    EXPECT_FALSE(archive.directory().exists("none.mdb"));
}

TEST_F(ConnectionTest, aDriveThatIsNotThereIsAnError)
{
    const auto error = failureOf(
        [&] { connection.open(QStringLiteral("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=Q:\\a.mdb")); });
    EXPECT_EQ(error.number(), kConnectionError);
    EXPECT_TRUE(error.text().contains(QLatin1String("Q:\\a.mdb")));
}

TEST_F(ConnectionTest, whatIsNoArchiveIsToldAtOpening)
{
    archive.directory().makeDirectory("folder");
    archive.directory().write("empty.mdb");
    archive.directory().write("foreign.mdb", QByteArray("This is some text, not an archive. ").repeated(200));
    const QByteArray whole = archive.directory().read("Songbin.mdb");
    archive.directory().write("truncated.mdb", whole.first(whole.size() - 4096));
    QByteArray spoilt = whole;
    spoilt.replace(100, 20, QByteArray(20, '\x7f'));
    archive.directory().write("spoilt.mdb", spoilt);
    ASSERT_EQ(mkfifo(archive.directory().at("pipe.mdb").constData(), 0600), 0);
    for (const char* name : {"folder", "empty.mdb", "foreign.mdb", "truncated.mdb", "spoilt.mdb"})
        isToBeRestored(failureToOpen(QString::fromUtf8(name)));
    const RunTimeError pipe = failureToOpen(QStringLiteral("pipe.mdb"));
    EXPECT_TRUE(pipe.text().contains(QLatin1String("regular file")));
    EXPECT_EQ(archive.directory().read("empty.mdb"), QByteArray());
}

TEST_F(ConnectionTest, damageThatIsFoundLaterIsToldWithTheBackup)
{
    QByteArray bytes = archive.directory().read("Songbin.mdb");
    bytes.replace(4096, bytes.size() - 4096, QByteArray(bytes.size() - 4096, '\x7f'));
    archive.directory().write("damaged.mdb", bytes);
    open(QStringLiteral("damaged.mdb"));
    const RunTimeError error = failureOf([&] { connection.execute(numberedInsert(1)); });
    EXPECT_TRUE(error.text().startsWith(QStringLiteral("The archive is damaged"))) << error.what();
    isToBeRestored(error);
}

TEST_F(ConnectionTest, aLockIsNoReasonToRestoreAnything)
{
    open();
    Connection other(archive.drives());
    other.open(TestArchive::connectionText(QStringLiteral("Songbin.mdb")));
    other.beginGroup();
    connection.setPatience(std::chrono::milliseconds(0));
    connection.close();
    open();
    const RunTimeError error = failureOf([&] { connection.execute(numberedInsert(1)); });
    EXPECT_EQ(error.number(), kConnectionError);
    EXPECT_EQ(error.advice(), QString()) << "the usual one";
}

TEST_F(ConnectionTest, aFileThatKeepsALogBesideItGetsAPlainJournal)
{
    archive.run("PRAGMA journal_mode=WAL; INSERT INTO MP3 (fldSong) VALUES ('a')");
    open();
    EXPECT_EQ(archive.run("PRAGMA journal_mode"), QStringList(QStringLiteral("delete")));
    connection.execute(numberedInsert(2));
    EXPECT_EQ(archive.filesInDirectory(), QStringList(QStringLiteral("Songbin.mdb")));
    EXPECT_EQ(archive.rowCount(), 2);
}

TEST_F(ConnectionTest, eachCommitReachesTheDiskAndSoDoesTheEndOfItsJournal)
{
    open();
    const auto setting = [&](const char16_t* statement) {
        Recordset records;
        records.open(QString::fromUtf16(statement), connection);
        return records.value(0).value_or(QString());
    };
    EXPECT_EQ(setting(u"PRAGMA synchronous"), QStringLiteral("3"));
    EXPECT_EQ(setting(u"PRAGMA journal_mode"), QStringLiteral("delete"));
}

TEST_F(ConnectionTest, symbolicLinksAreResolvedSoThatTheJournalLiesBesideTheFileItself)
{
    archive.directory().makeDirectory("links");
    ASSERT_EQ(symlink(archive.file().constData(), archive.directory().at("links/other.mdb").constData()), 0);
    open(QStringLiteral("links\\other.mdb"));
    connection.beginGroup();
    connection.execute(numberedInsert(1));
    EXPECT_TRUE(archive.directory().exists("Songbin.mdb-journal"));
    EXPECT_FALSE(archive.directory().exists("links/other.mdb-journal"));
    connection.endGroup();
    EXPECT_FALSE(archive.directory().exists("Songbin.mdb-journal"));
}

TEST_F(ConnectionTest, aClosedConnectionRefusesAndASecondOpeningToo)
{
    EXPECT_EQ(errorOf(numberedInsert(1)), kObjectClosed);
    EXPECT_EQ(failureOf([&] { connection.beginGroup(); }).number(), kObjectClosed);
    EXPECT_EQ(failureOf([&] { connection.handle(); }).number(), kObjectClosed);
    connection.close();
    open();
    EXPECT_EQ(failureOf([&] { open(); }).number(), kObjectOpen);
    connection.execute(numberedInsert(1));
    connection.close();
    open();
    connection.execute(numberedInsert(2));
    EXPECT_EQ(archive.rowCount(), 2);
}

TEST_F(ConnectionTest, textThatIsNoValidStatementIsAStatementError)
{
    open();
    for (const char16_t* text :
         {u"", u" ;; -- nothing", u"INSERT", u"INSERT INTO None (a) VALUES ('x');",
          u"INSERT INTO MP3 (fldNone) VALUES ('x');", u"INSERT INTO MP3 (fldSong) VALUES ('a', 'b');",
          u"SELECT fldNone FROM MP3", u"INSERT INTO MP3 (fldSong) VALUES ('it's');",
          u"INSERT INTO MP3 (fldSong) VALUES ('open);", u"/*"})
        EXPECT_EQ(errorOf(QString::fromUtf16(text)), kStatementError)
            << QString::fromUtf16(text).toStdString();
    EXPECT_EQ(archive.rowCount(), 0);
}

TEST_F(ConnectionTest, aSecondStatementIsRefusedBeforeTheFirstRuns)
{
    open();
    const QString first = QStringLiteral("INSERT INTO MP3 (fldSong) VALUES ('a')");
    for (const char16_t* second : {u"; DELETE FROM MP3;", u"; nonsense", u";;/* a */ -- b\nSELECT 1", u"; /*",
                                   u"; PRAGMA synchronous=OFF", u"; '", u";)"})
        EXPECT_EQ(errorOf(first + QString::fromUtf16(second)), kStatementError);
    EXPECT_EQ(archive.rowCount(), 0);
    for (const char16_t* idle :
         {u"", u";", u" ; ; \n\t", u"; -- end", u"; /* a ; b */ -- c\n ;", u"; /* open", u";\uFEFF "})
        connection.execute(first + QString::fromUtf16(idle));
    EXPECT_EQ(archive.rowCount(), 7);
}

TEST_F(ConnectionTest, aNullCharacterIsRefused)
{
    open();
    EXPECT_EQ(errorOf(numberedInsert(1) + QChar(0)), kStatementError);
    EXPECT_EQ(errorOf(insertStatement({QStringLiteral("a") + QChar(0)})), kStatementError);
    EXPECT_EQ(errorOf(QStringLiteral("DELETE FROM MP3") + QChar(0) + QStringLiteral(" WHERE 0")),
              kStatementError);
    EXPECT_EQ(archive.rowCount(), 0);
}

TEST_F(ConnectionTest, surrogatesWithoutAPartnerBecomeReplacementCharacters)
{
    open();
    QStringList values(7, QStringLiteral("\U0001F3B5"));
    values[0] = QStringLiteral("a") + QChar(0xD83D) + QStringLiteral("b") + QChar(0xDE00);
    connection.execute(insertStatement(values));
    EXPECT_EQ(archive.run("SELECT fldVolum, fldPath FROM MP3"),
              QStringList(QStringLiteral("a\uFFFDb\uFFFD|\U0001F3B5")));
}

TEST_F(ConnectionTest, aStatementThatReturnsRowsRunsToItsEnd)
{
    open();
    for (int i = 0; i < 3; ++i)
        connection.execute(numberedInsert(i));
    connection.execute(QStringLiteral("UPDATE MP3 SET fldSong='x' RETURNING fldSong"));
    connection.execute(QStringLiteral("SELECT * FROM MP3"));
    EXPECT_EQ(archive.run("SELECT count(*) FROM MP3 WHERE fldSong='x'"), QStringList(QStringLiteral("3")));
}

TEST_F(ConnectionTest, textsAreEqualWithoutRegardToCaseForEveryLetter)
{
    open();
    connection.execute(QStringLiteral("INSERT INTO MP3 (fldArtist) VALUES ('BJØRN Яков')"));
    connection.execute(QStringLiteral("DELETE FROM MP3 WHERE fldArtist = 'bjørn яКОВ'"));
    EXPECT_EQ(archive.rowCount(), 0);
}

TEST_F(ConnectionTest, aValueThatTheTableDoesNotAcceptIsAConnectionError)
{
    archive.run("CREATE TABLE Short (a TEXT CHECK (length(a) < 3))");
    open();
    EXPECT_EQ(errorOf(QStringLiteral("INSERT INTO Short (a) VALUES ('abc');")), kConnectionError);
    connection.execute(QStringLiteral("INSERT INTO Short (a) VALUES ('ab');"));
    EXPECT_EQ(archive.run("SELECT a FROM Short"), QStringList(QStringLiteral("ab")));
}

TEST_F(ConnectionTest, aTableChangedByAnotherIsSeen)
{
    open();
    connection.execute(numberedInsert(1));
    archive.run("DROP TABLE MP3");
    EXPECT_EQ(errorOf(numberedInsert(2)), kStatementError);
    createArchive(archive.file());
    connection.execute(numberedInsert(3));
    EXPECT_EQ(archive.rowCount(), 1);
}

TEST_F(ConnectionTest, aFileWithoutWritePermissionFailsAtTheFirstWrite)
{
    const QByteArray said = saidWithoutRights(0444, [&] {
        open();
        connection.execute(QStringLiteral("SELECT * FROM MP3"));
        connection.execute(numberedInsert(1));
    });
    EXPECT_TRUE(said.contains("cannot be written")) << said.toStdString();
}

TEST_F(ConnectionTest, aFileThatMayNotBeReadIsToldWithTheReason)
{
    const QByteArray said = saidWithoutRights(0, [&] { open(); });
    EXPECT_TRUE(said.contains("Permission denied")) << said.toStdString();
}

TEST_F(ConnectionTest, aStatementIsEndedInTheFileThatTookTheArchivesPlaceToo)
{
    const QString lasting = QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n "
                                           "WHERE i < 1000000) SELECT count(*) FROM n");
    createArchive(archive.directory().at("other.mdb"));
    open();
    Recordset rows;
    {
        const Stoppable stoppable(connection, [] { return false; });
        failureOf([&] { rows.open(lasting, connection); });
        ASSERT_EQ(rename(archive.directory().at("other.mdb").constData(), archive.file().constData()), 0);
        failureOf([&] { rows.open(lasting, connection); });
        EXPECT_EQ(connection.fileNumber(), 2);
    }
    rows.open(lasting, connection);
    EXPECT_EQ(rows.value(QStringLiteral("count(*)")), QStringLiteral("1000000"));
}

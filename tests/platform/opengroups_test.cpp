// Several connections of one process to the same archive, one of which has a group open.
#include "platform/opengroups.h"

#include "base/runtimeerror.h"
#include "platform/connection.h"
#include "tests/platform/testarchive.h"

#include <gtest/gtest.h>

namespace {

class OpenGroupsTest : public testing::Test {
protected:
    OpenGroupsTest()
    {
        importer.open(TestArchive::connectionText());
        window.open(TestArchive::connectionText());
    }

    TestArchive archive;
    OpenGroups groups;
    Connection importer{archive.drives(), &groups};
    Connection window{archive.drives(), &groups};
};

} // namespace

TEST_F(OpenGroupsTest, aWriterLetsTheOpenGroupBecomeDurableFirst)
{
    importer.beginGroup();
    importer.execute(numberedInsert(1));
    window.execute(numberedInsert(2));
    EXPECT_EQ(archive.rowCount(), 2);
    importer.execute(numberedInsert(3));
    EXPECT_EQ(archive.rowCount(), 2);
    importer.endGroup();
    EXPECT_EQ(archive.rowCount(), 3);
}

TEST_F(OpenGroupsTest, aSuspendedGroupIsStillRunning)
{
    EXPECT_FALSE(groups.any());
    importer.beginGroup();
    groups.suspendAll();
    EXPECT_TRUE(groups.any());
    importer.commitGroup();
    importer.execute(numberedInsert(1));
    groups.suspendAll();
    EXPECT_EQ(archive.rowCount(), 1);
    importer.endGroup();
    EXPECT_FALSE(groups.any());
}

TEST_F(OpenGroupsTest, aClosedOrDestroyedConnectionHasNoGroup)
{
    importer.beginGroup();
    importer.close();
    EXPECT_FALSE(groups.any());
    {
        Connection third(archive.drives(), &groups);
        third.open(TestArchive::connectionText());
        third.beginGroup();
        EXPECT_TRUE(groups.any());
    }
    EXPECT_FALSE(groups.any());
    groups.suspendAll();
}

TEST_F(OpenGroupsTest, aTransactionHappensWholeOrNotAtAll)
{
    importer.beginGroup();
    importer.execute(numberedInsert(1));
    const auto insertAndFail = [&](sqlite3* database) {
        sqlite3_exec(database, "INSERT INTO MP3 (fldSong) VALUES ('x')", nullptr, nullptr, nullptr);
        throw RunTimeError(kStatementError, QStringLiteral("no"));
    };
    EXPECT_THROW(window.runTransaction(insertAndFail), RunTimeError);
    EXPECT_EQ(archive.rowCount(), 1);
    window.runTransaction([&](sqlite3* database) {
        sqlite3_exec(database, "INSERT INTO MP3 (fldSong) VALUES ('x')", nullptr, nullptr, nullptr);
    });
    EXPECT_EQ(archive.rowCount(), 2);
}

TEST_F(OpenGroupsTest, anArchiveThatWasReplacedIsTheOneThatIsReadAndWritten)
{
    window.execute(numberedInsert(1));
    createArchive(archive.directory().at("other"));
    ASSERT_EQ(std::rename(archive.directory().at("other").constData(), archive.file().constData()), 0);
    window.execute(numberedInsert(2));
    EXPECT_EQ(archive.run("SELECT fldSong FROM MP3"), QStringList(QStringLiteral("2")));
    window.execute(numberedInsert(3));
    EXPECT_EQ(archive.rowCount(), 2);
}

TEST_F(OpenGroupsTest, anArchiveThatWasDeletedIsToldAndNotWritten)
{
    ASSERT_EQ(std::remove(archive.file().constData()), 0);
    EXPECT_THROW(window.execute(numberedInsert(1)), RunTimeError);
    EXPECT_FALSE(archive.directory().exists("Songbin.mdb"));
}

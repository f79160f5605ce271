// Has several connections of one process to the same archive, one of which has a group open.
#include "database/connection/opengroups.h"

#include "base/runtimeerror.h"
#include "database/connection/archivecopy.h"
#include "database/connection/connection.h"
#include "tests/support/childprocess.h"
#include "tests/support/testarchive.h"

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

// The owner of the group tries again and again by itself, and others but once.
TEST_F(OpenGroupsTest, aReaderIsWaitedForBeforeAnImpatientGroupIsLeftAlone)
{
    // Parted from this process before a group is open, or it would take that one's locks for its own.
    const auto reader = [this](const char* sign, useconds_t time) {
        return std::make_unique<ChildProcess>([this, sign, time](int descriptor) {
            for (int tries = 0; tries < 5000 && !archive.directory().exists(sign); ++tries)
                usleep(1000);
            sqlite3* database = nullptr;
            sqlite3_open(archive.file().constData(), &database);
            sqlite3_exec(database, "BEGIN; SELECT count(*) FROM MP3", nullptr, nullptr, nullptr);
            say(descriptor, "reading");
            usleep(time);
        });
    };
    const auto brief = reader("brief", 400'000);
    const auto slow = reader("slow", 2'000'000);
    Connection impatient(archive.drives(), &groups);
    impatient.setPatience(std::chrono::milliseconds(50));
    impatient.open(TestArchive::connectionText());
    impatient.beginGroup();
    impatient.execute(numberedInsert(1));
    archive.directory().write("brief");
    ASSERT_EQ(brief->read(), "reading");
    window.execute(numberedInsert(2));
    brief->wait();
    EXPECT_EQ(archive.rowCount(), 2);
    impatient.execute(numberedInsert(3));
    archive.directory().write("slow");
    ASSERT_EQ(slow->read(), "reading");
    try {
        backUpArchive(archive.file(), archive.directory().at("Songbin.Bck"), groups);
        ADD_FAILURE() << "backed up without the group";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), numberOf(ErrorNumber::PermissionDenied));
    }
    EXPECT_THROW(impatient.suspendGroup(), ArchiveLocked); // at once again
    slow->wait();
    impatient.endGroup();
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

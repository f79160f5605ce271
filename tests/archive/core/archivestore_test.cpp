#include "archive/core/archivestore.h"

#include "base/runtimeerror.h"
#include "database/connection/connection.h"
#include "tests/support/errorof.h"
#include "tests/support/world.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

TEST(ArchiveStore, firstRunTellsTheUserOnceAndCopiesTheTemplate)
{
    World world;
    world.directory.write("program/Songbin.dat", "template");
    world.store.createOnFirstRun(world.dialogs);
    EXPECT_EQ(world.dialogs.said(0),
              u"For your information|This is the first time you run Songbin, database bill be generated."_qs);
    EXPECT_EQ(world.dialogs.messages.at(0).icon, MessageIcon::Information);
    EXPECT_EQ(world.directory.read("program/Songbin.mdb"), "template");
    EXPECT_EQ(world.directory.read("program/Songbin.dat"), "template");

    world.store.createOnFirstRun(world.dialogs);
    EXPECT_EQ(world.dialogs.messages.size(), 1U);
}

TEST(ArchiveStore, anEmptyOrDamagedArchiveIsNotReplaced)
{
    World world;
    world.directory.write("program/Songbin.dat", "template");
    world.directory.write("program/Songbin.mdb");
    world.store.createOnFirstRun(world.dialogs);
    EXPECT_TRUE(world.dialogs.messages.empty());
    EXPECT_EQ(world.directory.read("program/Songbin.mdb"), "");
}

// It may be a link to a disk that is not there, which no first run is.
TEST(ArchiveStore, whatHasItsNameAndIsNoFileIsToldAndLeftAlone)
{
    for (const bool isLink : {true, false}) {
        World world;
        world.directory.write("program/Songbin.dat", "template");
        const QByteArray place = world.directory.at("program/Songbin.mdb");
        ASSERT_EQ(isLink ? symlink("/mnt/none/Songbin.mdb", place.constData())
                         : mkfifo(place.constData(), 0600),
                  0);
        try {
            world.store.createOnFirstRun(world.dialogs);
            ADD_FAILURE();
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.number(), numberOf(ErrorNumber::PathFileAccess));
            EXPECT_TRUE(error.text().contains(u"P:\\Songbin.mdb"_qs)) << error.text().toStdString();
            EXPECT_TRUE(error.advice().contains(u"connect the disk"_qs));
        }
        EXPECT_TRUE(world.dialogs.messages.empty());
        struct stat status {};
        EXPECT_EQ(lstat(place.constData(), &status), 0);
        EXPECT_FALSE(S_ISREG(status.st_mode));
    }
}

TEST(ArchiveStore, anArchiveThatASecondProgramMadeMeanwhileIsNotReplaced)
{
    World world;
    world.directory.write("program/Songbin.dat", "template");
    world.dialogs.onMessage = [&](const Message&) { world.directory.write("program/Songbin.mdb", "theirs"); };
    world.store.createOnFirstRun(world.dialogs);
    EXPECT_EQ(world.directory.read("program/Songbin.mdb"), "theirs");
}

TEST(ArchiveStore, aJournalThatUndoesNothingIsRemovedAtTheNextStart)
{
    World world;
    world.makeArchive();
    world.execute(u"INSERT INTO MP3 (fldSong) VALUES ('a')"_qs);
    world.directory.write("program/Songbin.mdb-journal", QByteArray(25136, '\0'));
    world.store.recover(world.drives);
    EXPECT_FALSE(world.directory.exists("program/Songbin.mdb-journal"));
    EXPECT_EQ(world.archiveRows().size(), 1);
}

TEST(ArchiveStore, theJournalOfAProgramThatIsWritingStays)
{
    World world;
    world.makeArchive();
    Connection writer(world.drives);
    writer.open(world.store.ownConnectionText());
    writer.beginGroup();
    writer.execute(u"INSERT INTO MP3 (fldSong) VALUES ('a')"_qs);
    ASSERT_TRUE(world.directory.exists("program/Songbin.mdb-journal"));
    world.store.recover(world.drives);
    EXPECT_TRUE(world.directory.exists("program/Songbin.mdb-journal"));
    writer.endGroup();
    writer.close();
    EXPECT_EQ(world.archiveRows().size(), 1);
}

TEST(ArchiveStore, anArchiveIsFoundWithoutRegardToCase)
{
    World world;
    world.directory.write("program/Songbin.dat", "template");
    world.directory.write("program/SONGBIN.MDB", "mine");
    world.store.createOnFirstRun(world.dialogs);
    EXPECT_TRUE(world.dialogs.messages.empty());
    EXPECT_FALSE(world.directory.exists("program/Songbin.mdb"));
}

TEST(ArchiveStore, aMissingTemplateIsFileNotFoundAfterTheMessage)
{
    World world;
    EXPECT_EQ(errorOf([&] { world.store.createOnFirstRun(world.dialogs); }),
              numberOf(ErrorNumber::FileNotFound));
    EXPECT_EQ(world.dialogs.messages.size(), 1U);
    EXPECT_FALSE(world.directory.exists("program/Songbin.mdb"));
}

TEST(ArchiveStore, connectionTextsNameTheFileInTheProgramDirectory)
{
    World world;
    EXPECT_EQ(world.store.sharedConnectionText(),
              u"Provider=Microsoft.Jet.OLEDB.4.0;Persist Security Info=False;Data Source=P:\\Songbin.mdb"_qs);
    EXPECT_EQ(world.store.ownConnectionText(),
              u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=P:\\Songbin.mdb;"_qs);
}

TEST(ArchiveStore, aDirectoryNameWithASemicolonStaysOneValue)
{
    World world;
    world.directory.makeDirectory("program/odd;dir\"s");
    FakeProgram program(u"P:\\odd;dir\"s"_qs);
    ArchiveStore store(world.files, program, world.user.state);
    world.makeArchive();
    std::rename(world.directory.at("program/Songbin.mdb").constData(),
                world.directory.at("program/odd;dir\"s/Songbin.mdb").constData());
    Connection connection(world.drives);
    connection.open(store.ownConnectionText());
    EXPECT_TRUE(connection.isOpen());
    EXPECT_EQ(store.ownConnectionText(),
              u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=\"P:\\odd;dir\"\"s\\Songbin.mdb\";"_qs);
}

TEST(ArchiveStore, anUnfinishedGroupOfAKilledImportIsUndoneAtTheNextStart)
{
    World world;
    world.makeArchive();
    // A kill in the middle of a group leaves the archive's pages and the journal that undoes them.
    const QByteArray archive = world.directory.at("program/Songbin.mdb");
    const QByteArray command =
        "sqlite3 '" + archive +
        "' \"PRAGMA cache_size=1; BEGIN; INSERT INTO MP3 (fldSong) "
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<3000) SELECT "
        "hex(randomblob(200)) FROM n; UPDATE MP3 SET fldAlbum='x';\" \".shell cp '" +
        archive + "' '" + archive + ".half'; cp '" + archive + "-journal' '" + archive + ".half-journal'\"";
    ASSERT_EQ(std::system(command.constData()), 0);
    std::rename((archive + ".half").constData(), archive.constData());
    std::rename((archive + ".half-journal").constData(), (archive + "-journal").constData());
    ASSERT_GT(world.directory.read("program/Songbin.mdb-journal").size(), 0);

    world.store.recover(world.drives);
    EXPECT_FALSE(world.directory.exists("program/Songbin.mdb-journal"));
    EXPECT_TRUE(world.archiveRows().isEmpty());
}

TEST(ArchiveStore, theEnvironmentsAreNamedAsDesigned)
{
    World world;
    EXPECT_EQ(world.store.SelectData.connectionName, u"Songbin_Hovedtabell"_qs);
    EXPECT_EQ(world.store.DataEnvironment1.connectionName, u"Songbin_Report"_qs);
    EXPECT_TRUE(world.store.DataEnvironment1.connectionText.startsWith(u"PROVIDER=MSDataShape;"));
}

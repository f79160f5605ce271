// Takes the two entries of the main window's backup menu.
#include "archive/mainwindow/frmmain.h"

#include "archive/mainwindow/frmoptions.h"
#include "database/connection/connection.h"
#include "tests/support/find.h"
#include "tests/support/world.h"

#include <QDir>

#include <gtest/gtest.h>

namespace {

const QString kDestination =
    u"save|Select the destination for the backup copy|Songbin.Bck|C:\\|CommonDialog1"_qs;
const QString kSource = u"open|Select your backupfile|*.Bck|C:\\|CommonDialog1"_qs;

struct BackupTest : testing::Test {
    World world;
    frmOptions options{world.context};
    std::unique_ptr<frmMain> form;
    QString oldDirectory = QDir::currentPath();

    BackupTest()
    {
        world.windows.optionsWindow = &options;
        world.makeArchive();
        world.execute(u"INSERT INTO MP3 (fldSong) VALUES ('first')"_qs);
        world.directory.makeDirectory("here");
        world.directory.makeDirectory("disk");
        QDir::setCurrent(QString::fromUtf8(world.directory.at("here")));
        form = std::make_unique<frmMain>(world.context);
        form->load();
    }
    ~BackupTest() override { QDir::setCurrent(oldDirectory); }

    QByteArray archive() { return world.directory.read("program/Songbin.mdb"); }
    void backUpTo(const std::optional<QString>& answer)
    {
        world.dialogs.fileAnswer = answer;
        trigger(*form, "mnuBackup");
    }
    void restoreFrom(const std::optional<QString>& answer)
    {
        world.dialogs.fileAnswer = answer;
        trigger(*form, "mnuRestore");
    }
};

} // namespace

TEST_F(BackupTest, aBackupGoesWhereTheUserWantsIt)
{
    backUpTo(u"D:\\My Copy.Bck"_qs);
    EXPECT_EQ(world.dialogs.asked, QStringList(kDestination));
    EXPECT_EQ(world.directory.read("disk/My Copy.Bck"), archive());
    ASSERT_EQ(world.dialogs.messages.size(), 1U);
    EXPECT_EQ(world.dialogs.said(0),
              u"Backup finnished|A copy of your database is placed under: D:\\My Copy.Bck"_qs);
    EXPECT_EQ(world.dialogs.messages[0].icon, MessageIcon::Information);
}

TEST_F(BackupTest, cancellingTheDialogCopiesToTheCurrentDirectory)
{
    backUpTo({});
    EXPECT_EQ(world.directory.read("here/Songbin.Bck"), archive());
    EXPECT_EQ(world.dialogs.said(0),
              u"Backup finnished|A copy of your database is placed under: Songbin.Bck"_qs);
}

TEST_F(BackupTest, aFileWhoseNameDiffersInCaseIsNotOverwritten)
{
    world.directory.write("disk/Songbin.Bck", "precious");
    backUpTo(u"D:\\songbin.bck"_qs);
    EXPECT_EQ(world.directory.read("disk/Songbin.Bck"), "precious");
    EXPECT_EQ(world.directory.read("disk/songbin.bck"), archive());
}

TEST_F(BackupTest, aDialogThatGoesWithTheProgramCopiesNothing)
{
    world.dialogs.onAskFile = [this] { world.program.end(0); };
    backUpTo({});
    EXPECT_FALSE(world.directory.exists("here/Songbin.Bck"));
    EXPECT_TRUE(world.dialogs.messages.empty());
}

TEST_F(BackupTest, theEntriesHaveTheirCaptions)
{
    EXPECT_EQ(find<QAction>(*form, "mnuBackup")->text(), u"&Make a backup of your database"_qs);
    EXPECT_EQ(find<QAction>(*form, "mnuRestore")->text(), u"&Restore your database from a backupfile"_qs);
}

TEST_F(BackupTest, aBackupThatFailsStopsTheProgram)
{
    backUpTo(u"D:\\nowhere\\Songbin.Bck"_qs);
    EXPECT_EQ(world.dialogs.errors, std::vector<int>{numberOf(ErrorNumber::PathNotFound)});
    EXPECT_TRUE(world.dialogs.messages.empty());
    EXPECT_EQ(world.program.status, 1);
}

TEST_F(BackupTest, aDriveThatIsNotThereStopsTheProgramToo)
{
    backUpTo(u"Q:\\Songbin.Bck"_qs);
    EXPECT_EQ(world.dialogs.errors, std::vector<int>{numberOf(ErrorNumber::PathNotFound)});
    EXPECT_EQ(world.program.status, 1);
}

TEST_F(BackupTest, aRestoreBringsTheBackupBackAndSaysSo)
{
    backUpTo(u"D:\\Songbin.Bck"_qs);
    const QByteArray saved = archive();
    world.execute(u"DELETE FROM MP3"_qs);
    world.dialogs.messages.clear();
    world.dialogs.asked.clear();
    world.dialogs.answer = Answer::Yes;
    const int yields = world.program.yields;
    restoreFrom(u"D:\\Songbin.Bck"_qs);
    EXPECT_EQ(archive(), saved);
    EXPECT_EQ(world.dialogs.asked, QStringList(kSource));
    ASSERT_EQ(world.dialogs.messages.size(), 2U);
    EXPECT_EQ(world.dialogs.said(0),
              u"IMPORTANT|Restoring from backup will overwrite the content in your database with the data "
              "from the backup. CONTINUE?"_qs);
    EXPECT_EQ(world.dialogs.messages[0].buttons, MessageButtons::YesNo);
    EXPECT_EQ(world.dialogs.said(1), u"Backup finnished|Your database is restored from: D:\\Songbin.Bck"_qs);
    EXPECT_EQ(world.dialogs.messages[1].icon, MessageIcon::Information);
    EXPECT_EQ(world.program.yields, yields + 1);
}

TEST_F(BackupTest, noShowsNoDialogAndChangesNothing)
{
    const QByteArray before = archive();
    world.directory.write("disk/other.Bck", "other");
    world.dialogs.answer = Answer::No;
    restoreFrom(u"D:\\other.Bck"_qs);
    EXPECT_TRUE(world.dialogs.asked.empty());
    EXPECT_EQ(world.dialogs.messages.size(), 1U);
    EXPECT_EQ(archive(), before);
}

// Kept: only No stops it.
TEST_F(BackupTest, anyOtherAnswerGoesOn)
{
    world.directory.write("disk/other.Bck", "other");
    world.dialogs.answer = Answer::Ok;
    restoreFrom(u"D:\\other.Bck"_qs);
    EXPECT_EQ(archive(), "other");
}

TEST_F(BackupTest, cancellingTheRestoreDialogShowsNothingFurther)
{
    const QByteArray before = archive();
    world.dialogs.answer = Answer::Yes;
    restoreFrom({});
    EXPECT_EQ(world.dialogs.messages.size(), 1U);
    EXPECT_TRUE(world.dialogs.errors.empty());
    EXPECT_EQ(archive(), before);
}

TEST_F(BackupTest, aFileThatCannotBeReadOrAnArchiveInUseEndsWithoutAWord)
{
    const QByteArray before = archive();
    world.dialogs.answer = Answer::Yes;
    for (const char16_t* name : {u"D:\\missing.Bck", u"Q:\\missing.Bck", u"D:\\", u"D:\\no\\file.Bck"})
        restoreFrom(QString::fromUtf16(name));
    world.directory.write("disk/other.Bck", "other");
    {
        Connection import(world.drives, &world.store.groups);
        import.open(world.store.ownConnectionText());
        import.beginGroup();
        restoreFrom(u"D:\\other.Bck"_qs);
        import.endGroup();
    }
    EXPECT_EQ(world.dialogs.messages.size(), 5U); // the questions
    EXPECT_TRUE(world.dialogs.errors.empty());
    EXPECT_EQ(archive(), before);
    EXPECT_EQ(world.program.status, -1);
}

TEST_F(BackupTest, aBackupWhileAnImportGoesOnHoldsItsRows)
{
    Connection import(world.drives, &world.store.groups);
    import.open(world.store.ownConnectionText());
    import.beginGroup();
    import.execute(u"INSERT INTO MP3 (fldSong) VALUES ('second')"_qs);
    backUpTo(u"D:\\Songbin.Bck"_qs);
    import.endGroup();
    world.execute(u"DELETE FROM MP3"_qs);
    world.dialogs.answer = Answer::Yes;
    restoreFrom(u"D:\\Songbin.Bck"_qs);
    EXPECT_EQ(world.archiveRows().size(), 2);
}

// Takes a disk that cannot put the archive's directory into safety: what was committed is stored all the
// same.
#include "base/runtimeerror.h"
#include "database/connection/connection.h"
#include "database/cursor/recordset.h"
#include "tests/support/directorysyncs.h"
#include "tests/support/testarchive.h"

#include <gtest/gtest.h>

namespace {

class DirectorySync : public testing::Test {
protected:
    DirectorySync()
    {
        archive.run(
            "INSERT INTO MP3 VALUES ('V','P1','A','one','L','Y','C'), ('V','P2','B','two','L','Y','C')");
        connection.open(TestArchive::connectionText());
        records.open(u"select fldSong, fldArtist from MP3"_qs, connection);
    }
    ~DirectorySync() override { directorysyncs::failures = 0; }

    // Returns what the work says when so many syncs fail from its beginning.
    template <typename Work>
    QString said(int count, int number, Work&& work)
    {
        directorysyncs::failures = count;
        directorysyncs::failure = number;
        QString text;
        try {
            work();
        } catch (const RunTimeError& error) {
            text = error.text();
        }
        EXPECT_LT(directorysyncs::failures, count) << "the directory was not synced";
        directorysyncs::failures = 0;
        return text;
    }
    void changeSong(const QString& text)
    {
        records.setValue(u"fldSong"_qs, text);
        records.update();
    }
    QStringList songs() const { return archive.run("SELECT fldSong FROM MP3"); }

    TestArchive archive;
    Connection connection{archive.drives()};
    Recordset records;
};

} // namespace

TEST_F(DirectorySync, oneBadMomentIsNoError)
{
    EXPECT_EQ(said(2, EIO, [&] { changeSong(u"new"_qs); }), QString()); // the journal is made, and deleted
    EXPECT_EQ(songs(), QStringList({u"new"_qs, u"two"_qs}));
    EXPECT_EQ(archive.filesInDirectory(), QStringList(u"Songbin.mdb"_qs));
}

TEST_F(DirectorySync, aFileSystemThatCannotDoItIsNoError)
{
    EXPECT_EQ(said(directorysyncs::kAll, EINVAL, [&] { changeSong(u"new"_qs); }), QString());
    EXPECT_EQ(songs(), QStringList({u"new"_qs, u"two"_qs}));
}

TEST_F(DirectorySync, aChangedRowIsToldAsStoredAndIsNotPendingAnyMore)
{
    const QString text = said(directorysyncs::kAll, EIO, [&] { changeSong(u"new"_qs); });
    EXPECT_TRUE(text.contains(u"is stored")) << text.toStdString();
    EXPECT_FALSE(text.contains(u"undone")) << text.toStdString();
    EXPECT_EQ(songs(), QStringList({u"new"_qs, u"two"_qs}));
    EXPECT_EQ(records.editMode(), Recordset::EditMode::None);
    changeSong(u"newer"_qs);
    EXPECT_EQ(songs(), QStringList({u"newer"_qs, u"two"_qs}));
}

TEST_F(DirectorySync, anAddedRowIsStoredOnceAndADeletedOneGone)
{
    records.addNew();
    records.setValue(u"fldSong"_qs, u"added"_qs);
    EXPECT_TRUE(said(directorysyncs::kAll, EIO, [&] { records.update(); }).contains(u"is stored"));
    records.update();
    EXPECT_EQ(records.recordCount(), 3);
    EXPECT_EQ(songs(), QStringList({u"one"_qs, u"two"_qs, u"added"_qs}));
    EXPECT_TRUE(said(directorysyncs::kAll, EIO, [&] { records.deleteRecord(); }).contains(u"is stored"));
    EXPECT_EQ(records.recordCount(), 2);
    EXPECT_EQ(songs(), QStringList({u"one"_qs, u"two"_qs}));
}

TEST_F(DirectorySync, aGroupIsToldAsStoredAndTheNextOneGoesOn)
{
    connection.beginGroup();
    connection.execute(numberedInsert(1));
    const QString text = said(directorysyncs::kAll, EIO, [&] { connection.commitGroup(); });
    EXPECT_TRUE(text.contains(u"is stored")) << text.toStdString();
    EXPECT_FALSE(text.contains(u"undone")) << text.toStdString();
    EXPECT_EQ(archive.rowCount(), 3);
    connection.execute(numberedInsert(2));
    EXPECT_TRUE(said(directorysyncs::kAll, EIO, [&] { connection.endGroup(); }).contains(u"is stored"));
    EXPECT_EQ(archive.rowCount(), 4);
    connection.beginGroup();
    connection.execute(numberedInsert(3));
    EXPECT_TRUE(said(directorysyncs::kAll, EIO, [&] { connection.close(); }).contains(u"is stored"));
    EXPECT_EQ(archive.rowCount(), 5);
    EXPECT_TRUE(archive.isSound());
}

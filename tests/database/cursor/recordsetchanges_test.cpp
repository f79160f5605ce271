// Moves, uses bookmarks, and changes rows, which goes straight to the archive.
#include "database/cursor/recordset.h"

#include "database/connection/connection.h"
#include "database/cursor/rowwriter.h"
#include "tests/support/errorof.h"
#include "tests/support/testarchive.h"

#include <gtest/gtest.h>

namespace {

constexpr const char* kSongs = "SELECT fldSong FROM MP3 ORDER BY rowid";

class Changes : public testing::Test {
protected:
    Changes()
    {
        archive.run(
            "INSERT INTO MP3 VALUES ('V','P1','A','one','L','Y','C'), ('V','P2','A','two','L','Y','C'),"
            " ('V','P3','A','three','L','Y','C')");
        connection.open(TestArchive::connectionText());
        open(u"select fldSong, fldArtist, fldPath from MP3");
    }

    void open(const char16_t* statement) { records.open(QString::fromUtf16(statement), connection); }
    QString song() const { return records.value(u"fldSong"_qs).value_or(u"null"_qs); }
    void setSong(const QString& text) { records.setValue(u"fldSong"_qs, text); }
    QString songs() const { return archive.run(kSongs).join(u' '); }
    QString rowsSeen() const
    {
        QStringList seen;
        for (int row = 0; row < records.recordCount(); ++row)
            seen += records.valueAt(row, 0).value_or(u"null"_qs);
        return seen.join(u' ');
    }

    TestArchive archive;
    Connection connection{archive.drives()};
    Recordset records;
};

} // namespace

TEST_F(Changes, movesInBothDirectionsPastBothEnds)
{
    records.moveLast();
    EXPECT_EQ(records.absolutePosition(), 3);
    records.moveNext();
    EXPECT_TRUE(records.eof());
    EXPECT_EQ(records.absolutePosition(), 0);
    EXPECT_EQ(errorOf([&] { records.moveNext(); }), kNoCurrentRecord);
    records.movePrevious();
    EXPECT_EQ(song(), u"three");
    records.moveFirst();
    records.movePrevious();
    EXPECT_TRUE(records.bof());
    EXPECT_FALSE(records.eof());
    EXPECT_EQ(records.absolutePosition(), 0);
    EXPECT_EQ(errorOf([&] { records.movePrevious(); }), kNoCurrentRecord);
    EXPECT_EQ(errorOf([&] { song(); }), kNoCurrentRecord);
    records.moveNext();
    EXPECT_EQ(song(), u"one");
    records.setAbsolutePosition(2);
    EXPECT_EQ(song(), u"two");
    for (const int outside : {0, 4, -1})
        EXPECT_EQ(errorOf([&] { records.setAbsolutePosition(outside); }), kBadCriterion);
    EXPECT_EQ(song(), u"two");
}

TEST_F(Changes, everyMoveIsTold)
{
    QStringList positions;
    QObject::connect(&records, &Recordset::moveComplete,
                     [&] { positions += QString::number(records.absolutePosition()); });
    open(u"select fldSong from MP3");
    records.moveNext();
    records.moveLast();
    records.moveNext();
    records.movePrevious();
    records.moveFirst();
    records.movePrevious();
    records.requery();
    EXPECT_EQ(positions.join(u' '), u"1 2 3 0 3 1 0 1");
}

TEST_F(Changes, bookmarksComeBackToTheirRowUntilTheRowsAreReadAgain)
{
    records.moveNext();
    const Recordset::Bookmark two = records.bookmark();
    EXPECT_GT(two, 0);
    records.moveFirst();
    const Recordset::Bookmark one = records.bookmark();
    records.deleteRecord();
    records.setBookmark(two);
    EXPECT_EQ(song(), u"two");
    EXPECT_EQ(records.absolutePosition(), 1);
    EXPECT_EQ(errorOf([&] { records.setBookmark(one); }), kInvalidBookmark);
    EXPECT_EQ(errorOf([&] { records.setBookmark(0); }), kInvalidBookmark);
    records.moveLast();
    records.moveNext();
    EXPECT_EQ(errorOf([&] { records.bookmark(); }), kNoCurrentRecord);
    records.requery();
    EXPECT_EQ(errorOf([&] { records.setBookmark(two); }), kInvalidBookmark);
}

TEST_F(Changes, deletingTakesTheRowAndTheNextMoveStartsFromItsPlace)
{
    int removed = -1;
    QObject::connect(&records, &Recordset::rowRemoved, [&](int position) { removed = position; });
    records.moveNext();
    records.deleteRecord();
    EXPECT_EQ(removed, 1);
    EXPECT_EQ(songs(), u"one three");
    EXPECT_EQ(records.recordCount(), 2);
    EXPECT_EQ(errorOf([&] { song(); }), kNoCurrentRecord);
    EXPECT_EQ(errorOf([&] { records.deleteRecord(); }), kNoCurrentRecord);
    EXPECT_FALSE(records.eof());
    records.moveNext();
    EXPECT_EQ(song(), u"three");
    records.deleteRecord();
    records.movePrevious();
    EXPECT_EQ(song(), u"one");
    records.deleteRecord();
    records.moveNext();
    EXPECT_TRUE(records.eof());
    EXPECT_TRUE(records.bof());
    EXPECT_EQ(songs(), u"");
    EXPECT_EQ(errorOf([&] { records.moveLast(); }), kNoCurrentRecord);
    EXPECT_EQ(errorOf([&] { records.deleteRecord(); }), kNoCurrentRecord);
}

TEST_F(Changes, amongEqualRowsExactlyTheCurrentOneIsDeleted)
{
    archive.run("DELETE FROM MP3; INSERT INTO MP3 (fldSong) VALUES ('same'), ('same'), ('same')");
    open(u"select fldSong from MP3");
    records.moveNext();
    records.deleteRecord();
    EXPECT_EQ(archive.run("SELECT rowid FROM MP3").join(u' '), u"1 3");
}

TEST_F(Changes, aChangeIsSavedByUpdateAndByMovingAway)
{
    setSong(u"due"_qs);
    EXPECT_EQ(song(), u"due");
    EXPECT_EQ(records.editMode(), Recordset::EditMode::InProgress);
    EXPECT_EQ(songs(), u"one two three");
    records.updateBatch();
    EXPECT_EQ(records.editMode(), Recordset::EditMode::None);
    EXPECT_EQ(songs(), u"due two three");
    records.update();
    records.moveNext();
    setSong(u"tre"_qs);
    records.moveNext();
    EXPECT_EQ(songs(), u"due tre three");
    EXPECT_EQ(rowsSeen(), u"due tre three");
    records.movePrevious();
    setSong(u"vier"_qs);
    records.find(u"fldSong like '*due*'"_qs);
    EXPECT_EQ(songs(), u"due vier three");
}

TEST_F(Changes, aRowThatWasChangedCanBeChangedAndDeletedAgain)
{
    setSong(u"x"_qs);
    records.update();
    setSong(u"y"_qs);
    records.update();
    EXPECT_EQ(songs(), u"y two three");
    records.deleteRecord();
    EXPECT_EQ(songs(), u"two three");
}

TEST_F(Changes, cancellingDropsTheChange)
{
    int told = 0;
    QObject::connect(&records, &Recordset::fieldsChanged, [&] { ++told; });
    records.cancelUpdate();
    EXPECT_EQ(told, 0);
    setSong(u"x"_qs);
    records.cancelUpdate();
    EXPECT_EQ(told, 1);
    EXPECT_EQ(song(), u"one");
    records.moveNext();
    EXPECT_EQ(songs(), u"one two three");
}

TEST_F(Changes, anEmptyTextIsAValueOtherThanNone)
{
    archive.run("UPDATE MP3 SET fldArtist = NULL");
    records.requery();
    setSong(QString());
    records.update();
    EXPECT_EQ(archive.run("SELECT quote(fldSong), quote(fldArtist) FROM MP3 LIMIT 1").join(u' '), u"''|NULL");
    records.setValue(u"fldArtist"_qs, QString());
    records.update();
    EXPECT_EQ(archive.run("SELECT quote(fldArtist) FROM MP3 LIMIT 1").join(u' '), u"''");
}

TEST_F(Changes, valuesMayHoldAnything)
{
    const QString hostile =
        u"it's \"x\"; DROP TABLE MP3; -- \r\n Я %_* \U0001F3B5"_qs + QString(100'000, u'å');
    setSong(hostile);
    records.update();
    records.requery();
    EXPECT_EQ(song(), hostile);
    records.addNew();
    setSong(hostile);
    records.update();
    records.deleteRecord();
    EXPECT_EQ(archive.rowCount(), 3);
}

TEST_F(Changes, aNewRowStandsBehindAllOthersAndIsBlankOtherwise)
{
    records.moveNext();
    records.addNew();
    EXPECT_EQ(records.editMode(), Recordset::EditMode::Add);
    EXPECT_EQ(song(), u"null");
    EXPECT_EQ(records.absolutePosition(), 4);
    EXPECT_FALSE(records.eof());
    EXPECT_FALSE(records.bof());
    setSong(u"four"_qs);
    EXPECT_EQ(records.recordCount(), 3);
    records.updateBatch();
    EXPECT_EQ(records.recordCount(), 4);
    EXPECT_EQ(records.absolutePosition(), 4);
    EXPECT_EQ(archive.run("SELECT * FROM MP3 WHERE fldSong = 'four'").join(u' '), u" | | |four| | | ");
    records.moveFirst();
    records.moveLast();
    EXPECT_EQ(song(), u"four");
    records.deleteRecord();
    EXPECT_EQ(songs(), u"one two three");
}

TEST_F(Changes, aNewRowThatIsCancelledGivesTheRowBeforeBack)
{
    records.moveNext();
    records.addNew();
    setSong(u"four"_qs);
    records.cancelUpdate();
    EXPECT_EQ(song(), u"two");
    EXPECT_EQ(songs(), u"one two three");
}

TEST_F(Changes, aNewRowWithoutAnyValueIsRefusedAndByMovingAwayDropped)
{
    records.addNew();
    EXPECT_EQ(errorOf([&] { records.update(); }), kEmptyRow);
    EXPECT_EQ(records.editMode(), Recordset::EditMode::Add);
    EXPECT_EQ(errorOf([&] { records.deleteRecord(); }), kNoCurrentRecord);
    records.moveLast();
    EXPECT_EQ(song(), u"three");
    EXPECT_EQ(archive.rowCount(), 3);
    records.addNew();
    setSong(u"four"_qs);
    records.moveFirst();
    EXPECT_EQ(songs(), u"one two three four");
}

TEST_F(Changes, anEmptyArchiveTakesANewRow)
{
    archive.run("DELETE FROM MP3");
    records.requery();
    EXPECT_EQ(errorOf([&] { setSong(u"x"_qs); }), kNoCurrentRecord);
    records.addNew();
    EXPECT_EQ(records.absolutePosition(), 1);
    records.cancelUpdate();
    EXPECT_TRUE(records.eof());
    records.addNew();
    setSong(u"first"_qs);
    records.update();
    records.moveLast();
    EXPECT_EQ(song(), u"first");
    EXPECT_EQ(songs(), u"first");
}

TEST_F(Changes, aRowThatSomebodyElseChangedIsNeitherChangedNorDeleted)
{
    archive.run("UPDATE MP3 SET fldSong = 'theirs' WHERE fldSong = 'one'");
    EXPECT_EQ(errorOf([&] { records.deleteRecord(); }), kRowNotFound);
    setSong(u"ours"_qs);
    EXPECT_EQ(errorOf([&] { records.moveNext(); }), kRowNotFound);
    EXPECT_EQ(records.absolutePosition(), 1);
    EXPECT_EQ(song(), u"ours");
    records.cancelUpdate();
    EXPECT_EQ(songs(), u"theirs two three");
    records.requery();
    EXPECT_EQ(song(), u"theirs");
}

TEST_F(Changes, aRowThatSomebodyElseDeletedIsToldAlsoWhenAnEqualOneIsThere)
{
    archive.run("INSERT INTO MP3 SELECT * FROM MP3 WHERE fldSong = 'one'; DELETE FROM MP3 WHERE rowid = 1;"
                "INSERT INTO MP3 (rowid, fldSong) VALUES (1, 'another')");
    EXPECT_EQ(errorOf([&] { records.deleteRecord(); }), kRowNotFound);
    EXPECT_EQ(archive.rowCount(), 4);
}

TEST_F(Changes, caseAndKindOfAnOldValueCount)
{
    archive.run("UPDATE MP3 SET fldSong = 'ONE' WHERE rowid = 1");
    EXPECT_EQ(errorOf([&] { records.deleteRecord(); }), kRowNotFound);
    archive.run("UPDATE MP3 SET fldSong = NULL WHERE rowid = 1");
    EXPECT_EQ(errorOf([&] { records.deleteRecord(); }), kRowNotFound);
    records.requery();
    archive.run("UPDATE MP3 SET fldSong = '' WHERE rowid = 1");
    EXPECT_EQ(errorOf([&] { records.deleteRecord(); }), kRowNotFound);
    EXPECT_EQ(archive.rowCount(), 3);
}

TEST_F(Changes, valuesOfOtherToolsAreFoundAgain)
{
    archive.run("UPDATE MP3 SET fldSong = x'4120ff00', fldArtist = 17 WHERE rowid = 1;"
                "UPDATE MP3 SET fldSong = CAST(x'ff41' AS TEXT) WHERE rowid = 2");
    records.requery();
    setSong(u"named"_qs);
    records.moveNext();
    records.deleteRecord();
    EXPECT_EQ(songs(), u"named three");
}

class Replaced : public Changes {
protected:
    // Another archive takes the place of the one that is open.
    void replaceBy(const char* script)
    {
        const QByteArray other = archive.directory().at("other");
        createArchive(other);
        runScript(other, script);
        ASSERT_EQ(std::rename(other.constData(), archive.file().constData()), 0);
    }
};

TEST_F(Replaced, theRowIsFoundByItsValuesInTheNewFile)
{
    replaceBy("INSERT INTO MP3 VALUES ('V','P3','A','three','L','Y','C'), ('V','P1','A','one','L','Y','C')");
    records.deleteRecord();
    EXPECT_EQ(songs(), u"three");
    records.moveLast();
    setSong(u"tre"_qs);
    records.update();
    EXPECT_EQ(songs(), u"tre");
    setSong(u"trois"_qs);
    records.update();
    EXPECT_EQ(songs(), u"trois");
}

TEST_F(Replaced, aRowThatIsNotThereIsTold)
{
    replaceBy("INSERT INTO MP3 VALUES ('V','P9','A','nine','L','Y','C')");
    EXPECT_EQ(errorOf([&] { records.deleteRecord(); }), kRowNotFound);
    setSong(u"x"_qs);
    EXPECT_EQ(errorOf([&] { records.update(); }), kRowNotFound);
    EXPECT_EQ(songs(), u"nine");
}

TEST_F(Replaced, ofEqualRowsOneIsDeletedOfLookalikesNone)
{
    replaceBy("INSERT INTO MP3 VALUES ('V','P1','A','one','L','Y','C'), ('V','P1','A','one','L','Y','C'),"
              " ('V','P2','A','two','L','Y','C'), ('V','P2','A','two','L','Y','other')");
    records.deleteRecord();
    EXPECT_EQ(songs(), u"one two two");
    records.moveNext();
    EXPECT_EQ(errorOf([&] { records.deleteRecord(); }), kRowNotFound);
    EXPECT_EQ(songs(), u"one two two");
}

TEST_F(Replaced, theNextQueryShowsTheNewRows)
{
    replaceBy("INSERT INTO MP3 (fldSong) VALUES ('new')");
    EXPECT_EQ(rowsSeen(), u"one two three");
    records.requery();
    EXPECT_EQ(rowsSeen(), u"new");
    records.deleteRecord();
    EXPECT_EQ(songs(), u"");
}

TEST_F(Changes, rowsThatAreNotTheTablesOwnCannotBeChanged)
{
    for (const char16_t* statement :
         {u"select count(*) as fldSong from MP3", u"select distinct fldSong from MP3",
          u"select max(fldSong) as fldSong from MP3", u"select fldSong from MP3 group by fldSong",
          u"select fldArtist as fldSong from MP3", u"select fldSong from MP3 union all select 'x'",
          u"select fldSong || '' as fldSong from MP3"}) {
        open(statement);
        EXPECT_EQ(errorOf([&] { records.deleteRecord(); }), kNotChangeable)
            << QString::fromUtf16(statement).toStdString();
        EXPECT_EQ(errorOf([&] { setSong(u"x"_qs); }), kNotChangeable);
        EXPECT_EQ(errorOf([&] { records.addNew(); }), kNotChangeable);
    }
    EXPECT_EQ(songs(), u"one two three");
}

TEST_F(Changes, aViewInTheTablesPlaceCanBeRead)
{
    archive.run("ALTER TABLE MP3 RENAME TO Other; CREATE VIEW MP3 AS SELECT * FROM Other");
    open(u"select fldSong from MP3");
    EXPECT_EQ(rowsSeen(), u"one two three");
}

TEST_F(Changes, aChangeCanBeRefused)
{
    int asked = 0;
    records.willChangeRecord = [&] {
        ++asked;
        return false;
    };
    EXPECT_EQ(errorOf([&] { records.deleteRecord(); }), kOperationCancelled);
    setSong(u"x"_qs);
    EXPECT_EQ(errorOf([&] { records.update(); }), kOperationCancelled);
    records.cancelUpdate();
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(songs(), u"one two three");
}

TEST_F(Changes, aFailingQueryLeavesTheRowsAsTheyWere)
{
    EXPECT_EQ(errorOf([&] { open(u"select nothing from MP3"); }), kStatementError);
    archive.run("ALTER TABLE MP3 RENAME TO Other");
    EXPECT_EQ(errorOf([&] { records.requery(); }), kStatementError);
    EXPECT_EQ(rowsSeen(), u"one two three");
    EXPECT_EQ(errorOf([&] { records.deleteRecord(); }), kStatementError);
    EXPECT_EQ(records.recordCount(), 3);
    Recordset closed;
    EXPECT_EQ(errorOf([&] { closed.requery(); }), kObjectClosed);
}

TEST_F(Changes, findGoesForwardFromTheCurrentRowAndIgnoresCase)
{
    archive.run(
        "DELETE FROM MP3; INSERT INTO MP3 (fldSong) VALUES ('Beat it'), (NULL), ('the BEAT'), ('Sjøen'), "
        "('heart'), ('a%b'), ('a*b')");
    records.requery();
    const auto found = [&](const char16_t* criterion) {
        records.find(QString::fromUtf16(criterion));
        return records.absolutePosition();
    };
    EXPECT_EQ(found(u"fldSong like '*beat*'"), 1);
    EXPECT_EQ(found(u"fldSong like '*beat*'"), 1);
    records.moveNext();
    EXPECT_EQ(found(u"FLDSONG LIKE '*Beat*'"), 3);
    records.moveFirst();
    EXPECT_EQ(found(u"fldSong like '*SJØEN*'"), 4);
    EXPECT_EQ(found(u"fldSong like '*%*'"), 6);
    records.moveFirst();
    EXPECT_EQ(found(u"fldSong like 'heart'"), 5);
    records.moveFirst();
    EXPECT_EQ(found(u"fldSong = 'HEART'"), 5);
    records.moveFirst();
    EXPECT_EQ(found(u"fldSong like '*b'"), 6);
    records.moveFirst();
    EXPECT_EQ(found(u"fldSong like '*'"), 1);
    EXPECT_EQ(found(u"fldSong like '*nothing*'"), 0);
    EXPECT_TRUE(records.eof());
    EXPECT_EQ(errorOf([&] { found(u"fldSong like '*beat*'"); }), kNoCurrentRecord);
}

TEST_F(Changes, aCriterionThatIsNoneIsAnErrorAndMovesNothing)
{
    records.moveNext();
    for (const char16_t* criterion : {u"", u"fldSong", u"fldSong like '*o'brien*'", u"fldSong like *x*",
                                      u"fldSong > 'a'", u"fldSong like 'a' or 1=1"})
        EXPECT_EQ(errorOf([&] { records.find(QString::fromUtf16(criterion)); }), kBadCriterion)
            << QString::fromUtf16(criterion).toStdString();
    EXPECT_EQ(errorOf([&] { records.find(u"fldNone like '*x*'"_qs); }), kItemNotFound);
    EXPECT_EQ(song(), u"two");
}

// A search asks for every field, and no text is like a null.
TEST_F(Changes, whatANewRowDoesNotTellIsABlankOrTheColumnsDefault)
{
    archive.run(
        "DROP TABLE MP3; CREATE TABLE MP3 (fldVolum TEXT DEFAULT 'none', fldPath TEXT, fldArtist TEXT,"
        " fldSong TEXT, fldAlbum TEXT, fldYear TEXT, fldComment TEXT DEFAULT 'said', mine INTEGER)");
    open(u"select fldSong, fldArtist, fldVolum from MP3");
    records.addNew();
    setSong(u"new"_qs);
    records.update();
    EXPECT_EQ(archive.run("SELECT * FROM MP3"), QStringList(u"none| | |new| | |said|NULL"_qs));
    EXPECT_EQ(records.value(u"fldArtist"_qs), u" "_qs);
    EXPECT_EQ(records.value(u"fldVolum"_qs), u"none"_qs);
    setSong(u"changed"_qs);
    records.update();
    EXPECT_EQ(archive.run("SELECT * FROM MP3"), QStringList(u"none| | |changed| | |said|NULL"_qs));
    records.deleteRecord();
    EXPECT_EQ(archive.rowCount(), 0);
}

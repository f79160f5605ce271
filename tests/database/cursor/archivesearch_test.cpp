// Sends the searches of the program as it sends them, on a real archive.
#include "database/connection/connection.h"
#include "database/cursor/recordset.h"
#include "tests/support/errorof.h"
#include "tests/support/testarchive.h"

#include <gtest/gtest.h>

namespace {

struct Typed {
    QString artist = {};
    QString path = {};
    QString song = {};
    QString volum = {};
    QString album = {};
    QString year = {};
    QString comment = {};
    QString extension = u"MP3"_qs;
};

const QString kSelect =
    u"select fldArtist,fldPath,fldSong,fldVolum, fldAlbum, fldYear, fldComment from MP3 where "_qs;

QString allOf(const Typed& typed)
{
    return kSelect + u"fldArtist like '%"_qs + typed.artist + u"%' And fldpath Like '%"_qs + typed.path +
           u"%' And fldSong Like '%"_qs + typed.song + u"%' And fldVolum Like '%"_qs + typed.volum +
           u"%' And fldAlbum Like '%"_qs + typed.album + u"%' And fldYear Like '%"_qs + typed.year +
           u"%' And fldComment Like '%"_qs + typed.comment + u"%' And fldpath Like '%."_qs + typed.extension +
           u"%'"_qs;
}

QString anyOf(Typed typed)
{
    for (QString* box :
         {&typed.artist, &typed.path, &typed.song, &typed.volum, &typed.album, &typed.year, &typed.comment})
        if (box->isEmpty())
            *box = u"¤"_qs;
    return kSelect + u"(fldArtist like '%"_qs + typed.artist + u"%' Or fldpath Like '%"_qs + typed.path +
           u"%' Or fldSong Like '%"_qs + typed.song + u"%' Or fldVolum Like '%"_qs + typed.volum +
           u"%' Or fldAlbum Like '%"_qs + typed.album + u"%' Or fldYear Like '%"_qs + typed.year +
           u"%' Or fldComment Like '%"_qs + typed.comment + u"%') And (fldpath Like '%."_qs +
           typed.extension + u"%')"_qs;
}

class ArchiveSearch : public testing::Test {
protected:
    ArchiveSearch()
    {
        archive.run(
            "INSERT INTO MP3 (fldVolum, fldPath, fldArtist, fldSong, fldAlbum, fldYear, fldComment) VALUES"
            " ('Disk 1', 'D:\\Åge\\en.mp3', 'ÅGE', 'En', ' ', '1981', 'blå'),"
            " ('Disk 1', 'D:\\Русские\\два.MP3', 'Яна', 'Два', ' ', '1999', ' '),"
            " ('Disk 2', 'E:\\ost\\tre.mp3s', 'Bjørn', 'Tre øl', '100%', '2001', ' '),"
            " ('Disk 2', 'E:\\ost\\fire.wav', 'Bjørn', 'Fire', '100', '2001', ' '),"
            " ('Disk 2', 'E:\\ost\\fem.mp3', 'Åse', 'Fem', NULL, '2002', ' ')");
        connection.open(TestArchive::connectionText());
    }

    // Returns the songs, in the rows' order.
    QString found(const QString& statement)
    {
        records.open(statement, connection);
        QStringList songs;
        for (; !records.eof(); records.moveNext())
            songs.append(records.value(u"fldSong"_qs).value_or(u"null"_qs));
        return songs.join(u',');
    }

    TestArchive archive;
    Connection connection{archive.drives()};
    Recordset records;
};

} // namespace

TEST_F(ArchiveSearch, emptyBoxesFindEveryRowWithoutANullAndOfTheFileType)
{
    EXPECT_EQ(found(allOf({})), u"En,Два,Tre øl"_qs);
    EXPECT_EQ(records.fieldNames().join(u' '),
              u"fldArtist fldPath fldSong fldVolum fldAlbum fldYear fldComment"_qs);
    EXPECT_EQ(found(allOf({.extension = u"wav"_qs})), u"Fire"_qs);
    EXPECT_EQ(found(anyOf({})), QString());
}

TEST_F(ArchiveSearch, theCaseOfNoLetterCountsInAnyBox)
{
    for (const QString& typed : {u"åge"_qs, u"Åge"_qs, u"ÅGE"_qs, u"\u212Bge"_qs})
        for (const QString& statement :
             {allOf({.artist = typed}), anyOf({.artist = typed}), allOf({.path = typed})})
            EXPECT_EQ(found(statement), u"En"_qs) << statement.toStdString();
    for (const QString& typed : {u"яна"_qs, u"ЯНА"_qs, u"Я"_qs, u"я"_qs})
        for (const QString& statement : {allOf({.artist = typed}), anyOf({.artist = typed})})
            EXPECT_EQ(found(statement), u"Два"_qs) << statement.toStdString();
    for (const QString& typed : {u"BJØRN"_qs, u"bjørn"_qs, u"Ø"_qs, u"ø"_qs})
        for (const QString& statement : {allOf({.artist = typed}), anyOf({.artist = typed})})
            EXPECT_EQ(found(statement), u"Tre øl"_qs) << statement.toStdString();
    EXPECT_EQ(found(allOf({.song = u"ØL"_qs})), u"Tre øl"_qs);
    EXPECT_EQ(found(allOf({.song = u"ДВА"_qs, .comment = u" "_qs})), u"Два"_qs);
    EXPECT_EQ(found(anyOf({.comment = u"BLÅ"_qs})), u"En"_qs);
    EXPECT_EQ(found(allOf({.artist = u"bjorn"_qs})), QString());
    EXPECT_EQ(found(anyOf({.song = u"øl"_qs, .year = u"1981"_qs})), u"En,Tre øl"_qs);
}

TEST_F(ArchiveSearch, aNullNeverFitsButItsRowIsFoundThroughAnotherField)
{
    EXPECT_EQ(found(allOf({.artist = u"åse"_qs})), QString());
    EXPECT_EQ(found(anyOf({.artist = u"åse"_qs})), u"Fem"_qs);
    EXPECT_EQ(found(anyOf({.album = u"%"_qs})), u"En,Два,Tre øl"_qs);
    archive.run("UPDATE MP3 SET fldPath = NULL WHERE fldSong = 'Tre øl'");
    EXPECT_EQ(found(anyOf({.artist = u"bjørn"_qs})), QString());
    archive.run("UPDATE MP3 SET fldPath = '.mp3', fldArtist = NULL, fldVolum = NULL, fldSong = NULL,"
                " fldAlbum = NULL, fldComment = NULL");
    EXPECT_EQ(found(anyOf({.year = u"2001"_qs})), u"null,null"_qs);
    EXPECT_EQ(found(allOf({.year = u"2001"_qs})), QString());
}

// Kept: what is typed goes into the statement as it stands.
TEST_F(ArchiveSearch, wildcardsThatAreTypedAreWildcards)
{
    EXPECT_EQ(found(allOf({.artist = u"b%N"_qs})), u"Tre øl"_qs);
    EXPECT_EQ(found(allOf({.artist = u"BJ_RN"_qs})), u"Tre øl"_qs);
    EXPECT_EQ(found(allOf({.artist = u"_____"_qs})), u"Tre øl"_qs);
    EXPECT_EQ(found(allOf({.artist = u"___"_qs})), u"En,Два,Tre øl"_qs);
    EXPECT_EQ(found(allOf({.album = u"100%"_qs, .extension = u"_"_qs})), u"Tre øl,Fire"_qs);
    EXPECT_EQ(found(allOf({.artist = u"b*n"_qs})), QString());
    EXPECT_EQ(found(allOf({.artist = u"%%%"_qs})), u"En,Два,Tre øl"_qs);
}

TEST_F(ArchiveSearch, anApostropheBreaksTheStatementAndNothingIsOpened)
{
    for (const QString& statement : {allOf({.artist = u"o'brien"_qs}), anyOf({.artist = u"o'brien"_qs})}) {
        EXPECT_EQ(errorOf([&] { records.open(statement, connection); }), kStatementError);
    }
    EXPECT_EQ(found(allOf({.song = u"en"_qs})), u"En"_qs);
}

TEST_F(ArchiveSearch, changesIgnoreTheCaseToo)
{
    connection.execute(u"DELETE FROM MP3 WHERE fldArtist LIKE 'bJØRN'"_qs);
    EXPECT_EQ(archive.rowCount(), 3);
    connection.execute(u"UPDATE MP3 SET fldYear = '1' WHERE fldArtist LIKE '%яНА%'"_qs);
    EXPECT_EQ(found(allOf({.artist = u"Я"_qs, .year = u"1"_qs})), u"Два"_qs);
}

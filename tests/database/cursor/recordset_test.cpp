#include "database/cursor/recordset.h"

#include "database/connection/connection.h"
#include "tests/support/errorof.h"
#include "tests/support/testarchive.h"

#include <gtest/gtest.h>

namespace {

class RecordsetTest : public testing::Test {
protected:
    RecordsetTest() { connection.open(TestArchive::connectionText()); }

    void open(const char16_t* statement) { records.open(QString::fromUtf16(statement), connection); }
    QString song() const { return records.value(QStringLiteral("fldSong")).value_or(QStringLiteral("null")); }

    TestArchive archive;
    Connection connection{archive.drives()};
    Recordset records;
};

} // namespace

TEST_F(RecordsetTest, movesOverTheRowsInTheirOrder)
{
    archive.run("INSERT INTO MP3 (fldSong) VALUES ('b'), ('c'), ('a')");
    open(u"select fldSong, fldPath from MP3 order by fldSong;");
    EXPECT_EQ(records.recordCount(), 3);
    QStringList seen;
    for (int position = 1; !records.eof(); records.moveNext(), ++position) {
        EXPECT_EQ(records.absolutePosition(), position);
        EXPECT_FALSE(records.bof());
        seen.append(song());
    }
    EXPECT_EQ(seen.join(u' '), QStringLiteral("a b c"));
    EXPECT_EQ(records.absolutePosition(), 0);
    EXPECT_EQ(errorOf([&] { records.moveNext(); }), kNoCurrentRecord);
    EXPECT_EQ(errorOf([&] { song(); }), kNoCurrentRecord);
    records.moveFirst();
    EXPECT_EQ(song(), QStringLiteral("a"));
}

TEST_F(RecordsetTest, withoutRowsBothEndsAreReached)
{
    open(u"SELECT * FROM MP3");
    EXPECT_EQ(records.recordCount(), 0);
    EXPECT_TRUE(records.bof());
    EXPECT_TRUE(records.eof());
    EXPECT_EQ(records.absolutePosition(), 0);
    EXPECT_EQ(records.fieldNames().join(u' '),
              QStringLiteral("fldVolum fldPath fldArtist fldSong fldAlbum fldYear fldComment"));
    EXPECT_EQ(errorOf([&] { records.moveFirst(); }), kNoCurrentRecord);
    EXPECT_EQ(errorOf([&] { records.moveNext(); }), kNoCurrentRecord);
    EXPECT_EQ(errorOf([&] { song(); }), kNoCurrentRecord);
}

TEST_F(RecordsetTest, nullsAreNotEmptyTexts)
{
    archive.run("INSERT INTO MP3 VALUES (NULL, '', 'x', NULL, NULL, 'y', NULL)");
    open(u"SELECT * FROM MP3");
    const std::vector<std::optional<QString>> expected{
        std::nullopt, QString(QLatin1String("")), QStringLiteral("x"), std::nullopt,
        std::nullopt, QStringLiteral("y"),        std::nullopt};
    for (int column = 0; column < 7; ++column)
        EXPECT_EQ(records.value(column), expected[static_cast<std::size_t>(column)]) << column;
}

TEST_F(RecordsetTest, fieldNamesIgnoreCaseAndUnknownOnesAreErrors)
{
    archive.run("INSERT INTO MP3 (fldPath) VALUES ('p')");
    open(u"SELECT fldpath, count(*) AS Number FROM MP3");
    EXPECT_EQ(records.value(QStringLiteral("FLDPATH")), QStringLiteral("p"));
    EXPECT_EQ(records.value(QStringLiteral("number")), QStringLiteral("1"));
    EXPECT_EQ(errorOf([&] { records.value(QStringLiteral("fldSong")); }), kItemNotFound);
    EXPECT_EQ(errorOf([&] { records.value(2); }), kItemNotFound);
    EXPECT_EQ(errorOf([&] { records.value(-1); }), kItemNotFound);
}

TEST_F(RecordsetTest, textsComeBackAsTheyWereSent)
{
    const QStringList values{QStringLiteral("\uFEFFmark"),
                             QStringLiteral("Мумий Тролль"),
                             QStringLiteral("\U0001F3B5 note"),
                             QStringLiteral("line\r\nend"),
                             QStringLiteral(" "),
                             QStringLiteral("e\u0301"),
                             QStringLiteral("\x01\x7f")};
    connection.execute(insertStatement(values));
    open(u"SELECT * FROM MP3");
    for (int column = 0; column < 7; ++column)
        EXPECT_EQ(records.value(column), values[column]) << column;
}

TEST_F(RecordsetTest, bytesThatAreNoTextAndNullCharactersDoNoHarm)
{
    archive.run(
        "INSERT INTO MP3 (fldSong, fldPath) VALUES (CAST(X'61FF62' AS TEXT), CAST(X'610062' AS TEXT))");
    open(u"SELECT fldSong, fldPath FROM MP3");
    EXPECT_EQ(song(), QStringLiteral("a\uFFFDb"));
    EXPECT_EQ(records.value(1), QStringLiteral("a") + QChar(0) + QStringLiteral("b"));
}

TEST_F(RecordsetTest, theRowsStayAsTheyWereAtOpening)
{
    connection.execute(numberedInsert(1));
    open(u"SELECT * FROM MP3");
    connection.execute(QStringLiteral("DELETE FROM MP3"));
    connection.close();
    EXPECT_EQ(records.recordCount(), 1);
    EXPECT_EQ(song(), QStringLiteral("1"));
}

TEST_F(RecordsetTest, anOpenRecordsetDoesNotKeepOthersFromWriting)
{
    connection.execute(numberedInsert(1));
    open(u"SELECT * FROM MP3");
    archive.run("INSERT INTO MP3 (fldSong) VALUES ('other')");
    open(u"SELECT * FROM MP3");
    EXPECT_EQ(records.recordCount(), 2);
}

TEST_F(RecordsetTest, aFailedOpeningLeavesTheRowsThatWereThere)
{
    connection.execute(numberedInsert(1));
    open(u"SELECT fldSong FROM MP3");
    EXPECT_EQ(errorOf([&] { open(u"SELECT fldNone FROM MP3"); }), kStatementError);
    EXPECT_EQ(errorOf([&] { open(u"SELECT 1; SELECT 2"); }), kStatementError);
    EXPECT_EQ(errorOf([&] { open(u""); }), kStatementError);
    EXPECT_EQ(song(), QStringLiteral("1"));
}

TEST_F(RecordsetTest, aStatementWithoutColumnsIsRefusedBeforeItRuns)
{
    connection.execute(numberedInsert(1));
    EXPECT_EQ(errorOf([&] { open(u"DELETE FROM MP3"); }), kStatementError);
    EXPECT_EQ(archive.rowCount(), 1);
}

TEST_F(RecordsetTest, aClosedConnectionIsAnError)
{
    connection.close();
    EXPECT_EQ(errorOf([&] { open(u"SELECT * FROM MP3"); }), kObjectClosed);
}

TEST_F(RecordsetTest, aHundredThousandRowsAreThere)
{
    archive.run("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 100000)"
                " INSERT INTO MP3 (fldSong, fldAlbum, fldComment)"
                " SELECT 'song ' || i, CASE WHEN i % 3 THEN 'album' || i END, i FROM n");
    open(u"SELECT fldSong, fldAlbum, fldComment FROM MP3");
    ASSERT_EQ(records.recordCount(), 100000);
    for (int i = 1; i <= 100000; ++i, records.moveNext()) {
        const QString number = QString::number(i);
        ASSERT_EQ(records.value(0), QStringLiteral("song ") + number);
        ASSERT_EQ(records.value(1).has_value(), i % 3 != 0);
        ASSERT_EQ(records.value(2), number);
    }
    EXPECT_TRUE(records.eof());
}

// Which statements are searches, and that a recordset finds the same by either way.
#include "database/sql/rowsearch.h"

#include "database/connection/connection.h"
#include "database/cursor/recordset.h"
#include "tests/support/testarchive.h"

#include <gtest/gtest.h>

#include <random>

namespace {

const std::vector<QByteArray> kColumns{"a", "B", "c"};

using Cells = std::vector<RowSearch::Cell>;

bool fits(const char* condition, const Cells& cells)
{
    std::optional<RowSearch> search = RowSearch::read(QByteArray("select a from MP3 where ") + condition);
    EXPECT_TRUE(search) << condition;
    EXPECT_TRUE(search && search->resolve(kColumns)) << condition;
    return search && search->fits(cells);
}

bool isSearch(const char* statement)
{
    std::optional<RowSearch> search = RowSearch::read(statement);
    return search && search->resolve(kColumns);
}

} // namespace

TEST(RowSearch, readsColumnsAndConditions)
{
    std::optional<RowSearch> search = RowSearch::read("SELECT b,A , c from mp3 ;");
    ASSERT_TRUE(search && search->resolve(kColumns));
    EXPECT_EQ(search->shown(), (std::vector<std::size_t>{1, 0, 2}));
    EXPECT_TRUE(search->fits({std::nullopt, std::nullopt, std::nullopt}));
    EXPECT_TRUE(fits("a like '%X%'", {"axe", "", ""}));
    EXPECT_FALSE(fits("a like '%X%'", {"ale", "x", "x"}));
    EXPECT_TRUE(fits("b LIKE 'it''s'", {"", "It's", ""}));
    EXPECT_FALSE(fits("a like '%'", {std::nullopt, "", ""}));
    EXPECT_TRUE(fits("a like '%' /* any */ -- text\n", {"", "", ""}));
}

TEST(RowSearch, andBindsCloserThanOr)
{
    const Cells cells{"1", "2", "3"};
    EXPECT_TRUE(fits("a like '1' or b like 'x' and c like 'x'", cells));
    EXPECT_FALSE(fits("(a like '1' or b like 'x') and c like 'x'", cells));
    EXPECT_TRUE(fits("b like 'x' and c like 'x' or a like '1'", cells));
    EXPECT_TRUE(fits("((a like '1') And ((b like '2' Or (c like 'x'))))", cells));
}

TEST(RowSearch, everythingElseIsLeftToTheEngine)
{
    EXPECT_TRUE(isSearch("select a from MP3 where a like 'x'"));
    for (const char* statement : {"select * from MP3",
                                  "select a as x from MP3",
                                  "select 'a' from MP3",
                                  "select a from MP3 limit 1",
                                  "select a from MP4",
                                  "select a from MP3 x",
                                  "select a from MP3, MP3",
                                  "select \"a\" from MP3",
                                  "select a from MP3 where a not like 'x'",
                                  "select a from MP3 where not a like 'x'",
                                  "select a from MP3 where a like 'x' escape '!'",
                                  "select a from MP3 where a like b",
                                  "select a from MP3 where a like \"x\"",
                                  "select a from MP3 where a = 'x'",
                                  "select a from MP3 where d like 'x'",
                                  "select rowid from MP3",
                                  "select a from MP3 where",
                                  "select a from MP3 where (a like 'x'",
                                  "select a from MP3 where a like 'x')",
                                  "select a from MP3 where a like 'x'; drop table MP3",
                                  "select a from MP3 where a like 'x",
                                  "select",
                                  "select a, from MP3",
                                  "select distinct a from MP3",
                                  "update MP3 set a='x'",
                                  ""})
        EXPECT_FALSE(isSearch(statement)) << statement;
}

TEST(RowSearch, parenthesesWithoutEndAreGivenUp)
{
    const QByteArray open(200'000, '(');
    EXPECT_FALSE(RowSearch::read("select a from MP3 where " + open + "a like 'x'"));
    const QByteArray longPattern = "select a from MP3 where a like '" + QByteArray(60'000, 'x') + '\'';
    EXPECT_FALSE(RowSearch::read(longPattern));
}

// It asks the same condition once as this program's search and once in a form that only the engine reads.
TEST(RowSearch, findsWhatTheEngineFinds)
{
    TestArchive archive;
    std::mt19937 engine(3);
    const auto random = [&] { return static_cast<unsigned>(engine()); };
    const QStringList pieces{u"a"_qs, u"\u00C5"_qs, u"\u00E5"_qs, u"\u042F"_qs, u"\u044F"_qs, u" "_qs,
                             u"%"_qs, u"_"_qs,      u"''"_qs,     u"s"_qs,      u"\u017F"_qs};
    const auto text = [&](unsigned longest) {
        QString out;
        for (unsigned i = random() % (longest + 1); i > 0; --i)
            out += pieces[static_cast<qsizetype>(random() % static_cast<unsigned>(pieces.size()))];
        return out;
    };
    Connection connection(archive.drives());
    connection.open(TestArchive::connectionText());
    connection.beginGroup();
    for (int i = 0; i < 400; ++i)
        connection.execute(
            QStringLiteral("INSERT INTO MP3 (fldArtist,fldSong,fldAlbum) VALUES ('%1',%2,'%3')")
                .arg(text(4), random() % 4 ? u'\'' + text(6) + u'\'' : u"NULL"_qs, text(200)));
    connection.endGroup();
    const QStringList columns{u"fldArtist"_qs, u"fldSong"_qs, u"fldAlbum"_qs};
    qsizetype found = 0;
    for (int round = 0; round < 300; ++round) {
        QString condition;
        for (const QString& column : columns)
            condition += (condition.isEmpty() ? u"("_qs
                          : random() % 2      ? u" Or "_qs
                                              : u" And "_qs) +
                         column + u" like '%"_qs + text(2) + u"%'"_qs;
        condition += u')';
        QStringList rows[2];
        for (const bool byEngine : {false, true}) {
            Recordset set;
            set.open(u"select fldArtist, fldSong, fldAlbum from MP3 where "_qs + condition +
                         (byEngine ? u" limit 1000000"_qs : QString()),
                     connection);
            for (int row = 0; row < set.recordCount(); ++row)
                for (int column = 0; column < 3; ++column)
                    rows[byEngine] += set.valueAt(row, column).value_or(u"null"_qs);
        }
        EXPECT_EQ(rows[0], rows[1]) << condition.toStdString();
        found += rows[0].size();
    }
    EXPECT_GT(found, 1000);
}

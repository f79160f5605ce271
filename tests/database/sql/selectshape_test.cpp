#include "database/sql/selectshape.h"

#include <gtest/gtest.h>

namespace {

bool isPlain(const char* statement)
{
    return shapeOfSelect(statement).has_value();
}

} // namespace

TEST(SelectShape, plainStatementsOverTheTable)
{
    for (const char* statement :
         {"select fldArtist from MP3", "SELECT * FROM mp3;",
          "select fldSong\nfrom MP3 where fldPath like '%x%'", "select fldSong from `MP3` order by fldSong",
          "select fldSong from [mp3] limit 3 -- few", "/* all */ select \"from\" from \"MP3\"",
          "select fldSong from MP3 where fldSong in (select fldSong from MP3 group by fldSong)",
          "select fldSong from MP3 where fldSong like '% group by it''s union %'"})
        EXPECT_TRUE(isPlain(statement)) << statement;
}

TEST(SelectShape, anythingElseIsNot)
{
    for (const char* statement :
         {"", "delete from MP3", "select 1", "select distinct fldSong from MP3",
          "select all fldSong from MP3", "select fldSong from MP3, Other", "select fldSong from MP3 a",
          "select fldSong from MP3 join Other", "select fldSong from Other",
          "select fldSong from (select fldSong from MP3)", "select fldSong from MP3 group by fldSong",
          "select fldSong from MP3 where 1 union select fldSong from MP3",
          "select fldSong from MP3 where 1 except select 2", "with x as (select 1) select fldSong from MP3",
          "select fldSong from 'MP3", "select (select 1 from MP3", "select \"", "select fldSong from"})
        EXPECT_FALSE(isPlain(statement)) << statement;
}

TEST(SelectShape, tellsWhereTheColumnsBegin)
{
    const QByteArray statement = "  select/* x */fldSong from MP3";
    EXPECT_EQ(shapeOfSelect(statement)->columnsAt, 8);
}

TEST(SelectShape, theWholeTable)
{
    for (const char* whole : {"select * from MP3", "SELECT * FROM `MP3` ;", "select/**/*from[mp3]"})
        EXPECT_TRUE(shapeOfSelect(whole)->isWhole) << whole;
    for (const char* part :
         {"select fldSong from MP3", "select *, fldSong from MP3", "select rowid, * from MP3",
          "select * from MP3 limit 1", "select * from MP3 order by fldSong", "select * from MP3 where 1"})
        EXPECT_FALSE(shapeOfSelect(part)->isWhole) << part;
}

TEST(SelectShape, anOrderByOneColumnAtTheEnd)
{
    const auto order = [](const QByteArray& statement) {
        const std::optional<SelectShape> shape = shapeOfSelect(statement);
        return shape->orderAt < 0
                   ? QByteArray("none")
                   : statement.first(shape->orderAt).trimmed().right(3) + '|' + shape->orderColumn;
    };
    EXPECT_EQ(order("select fldSong from MP3 Order by fldArtist"), "MP3|fldArtist");
    EXPECT_EQ(order("select fldSong from MP3 where 1=1 order  by fldArtist ASC ;"), "1=1|fldArtist");
    for (const char* other :
         {"select fldSong from MP3", "select fldSong from MP3 order by fldArtist desc",
          "select fldSong from MP3 order by fldArtist, fldSong",
          "select fldSong from MP3 order by fldArtist limit 2",
          "select fldSong from MP3 order by fldArtist collate binary", "select fldSong from MP3 order by 1",
          "select fldSong from MP3 order by 'fldArtist'", "select fldSong from MP3 order by",
          "select fldSong from MP3 order fldSong", "select fldSong from MP3 order by lower(fldSong)",
          "select fldSong from MP3 where fldSong like 'order by fldSong'"})
        EXPECT_EQ(order(other), "none") << other;
}

#include "archive/browse/navigation.h"

#include "database/connection/connection.h"
#include "database/cursor/recordset.h"
#include "tests/support/world.h"

#include <gtest/gtest.h>

using navigation::Step;
using navigation::stepOfKey;

namespace {

struct Navigation : testing::Test {
    World world;
    Connection connection{world.drives};
    Recordset records;

    void open(int rows)
    {
        world.makeArchive();
        for (int row = 1; row <= rows; ++row)
            world.execute(u"INSERT INTO MP3 (fldSong) VALUES ('%1')"_qs.arg(row));
        connection.open(world.store.ownConnectionText());
        records.open(u"select fldSong from MP3"_qs, connection);
    }
};

} // namespace

TEST(NavigationKeys, eachKeyHasItsStep)
{
    for (const int shift : {0, 1, 2, 3, 4, 6, 7}) {
        EXPECT_EQ(stepOfKey(27, shift), Step::Close);
        EXPECT_EQ(stepOfKey(35, shift), Step::Last);
        EXPECT_EQ(stepOfKey(36, shift), Step::First);
        for (const int up : {38, 33})
            EXPECT_EQ(stepOfKey(up, shift), shift == 2 ? Step::First : Step::Previous) << shift;
        for (const int down : {40, 34})
            EXPECT_EQ(stepOfKey(down, shift), shift == 2 ? Step::Last : Step::Next) << shift;
        for (const int other : {0, 13, 37, 39, 65})
            EXPECT_EQ(stepOfKey(other, shift), Step::None);
    }
}

TEST_F(Navigation, nextOnTheLastRowBeepsOnceAndStays)
{
    open(2);
    navigation::goNext(records, world.program);
    EXPECT_EQ(records.absolutePosition(), 2);
    EXPECT_EQ(world.program.beeps, 0);
    navigation::goNext(records, world.program);
    EXPECT_EQ(records.absolutePosition(), 2);
    EXPECT_EQ(world.program.beeps, 1);
}

TEST_F(Navigation, previousOnTheFirstRowBeepsOnceAndStays)
{
    open(2);
    navigation::goPrevious(records, world.program);
    EXPECT_EQ(records.absolutePosition(), 1);
    EXPECT_EQ(world.program.beeps, 1);
    navigation::goLast(records);
    navigation::goPrevious(records, world.program);
    EXPECT_EQ(records.absolutePosition(), 1);
    EXPECT_EQ(world.program.beeps, 1);
}

TEST_F(Navigation, withoutRowsNothingMovesAndNothingBeeps)
{
    open(0);
    navigation::goNext(records, world.program);
    navigation::goPrevious(records, world.program);
    EXPECT_EQ(records.absolutePosition(), 0);
    EXPECT_EQ(world.program.beeps, 0);
    EXPECT_THROW(navigation::goFirst(records), RunTimeError);
    EXPECT_THROW(navigation::goLast(records), RunTimeError);
    EXPECT_THROW(navigation::deleteCurrent(records), RunTimeError);
}

// It stands there after a find without a match.
TEST_F(Navigation, nextBehindTheEndComesBackToTheLastRow)
{
    open(3);
    records.find(u"fldSong like '*none*'"_qs);
    navigation::goNext(records, world.program);
    EXPECT_EQ(records.absolutePosition(), 3);
    EXPECT_EQ(world.program.beeps, 1);
}

TEST_F(Navigation, deletingGoesToTheNextRowTheNewLastOneOrNone)
{
    open(3);
    navigation::deleteCurrent(records);
    EXPECT_EQ(records.value(0), u"2");
    navigation::goLast(records);
    navigation::deleteCurrent(records);
    EXPECT_EQ(records.value(0), u"2");
    EXPECT_EQ(records.absolutePosition(), 1);
    navigation::deleteCurrent(records);
    EXPECT_EQ(records.recordCount(), 0);
    EXPECT_EQ(records.absolutePosition(), 0);
    EXPECT_TRUE(world.archiveRows().isEmpty());
    EXPECT_EQ(world.program.beeps, 0);
}

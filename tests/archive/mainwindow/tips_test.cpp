#include "archive/mainwindow/tips.h"

#include "tests/support/world.h"

#include <gtest/gtest.h>

TEST(readTips, everyLineIsATipEmptyOnesToo)
{
    World world;
    world.directory.write("program/TIPOFDAY.TXT", "one\r\n\r\nthree\r\n");
    EXPECT_EQ(readTips(world.files, u"P:\\TIPOFDAY.TXT"_qs, world.codePage),
              QStringList({u"one"_qs, QString(), u"three"_qs}));
}

TEST(readTips, failsForNoNameAndNoFile)
{
    World world;
    world.directory.makeDirectory("program/dir.txt");
    EXPECT_FALSE(readTips(world.files, QString(), world.codePage));
    EXPECT_FALSE(readTips(world.files, u"P:\\TIPOFDAY.TXT"_qs, world.codePage));
    EXPECT_FALSE(readTips(world.files, u"P:\\dir.txt"_qs, world.codePage));
}

TEST(readTips, readsOldTextsInTheCodePage)
{
    World world;
    world.directory.write("program/TIPOFDAY.TXT", "Bl\xE5");
    EXPECT_EQ(readTips(world.files, u"P:\\TIPOFDAY.TXT"_qs, world.codePage), QStringList({u"Blå"_qs}));
}

TEST(tipIndex, coversEveryTipAndNothingElse)
{
    EXPECT_EQ(tipIndex(0, 3), 1);
    EXPECT_EQ(tipIndex(0.34, 3), 2);
    EXPECT_EQ(tipIndex(0.999999, 3), 3);
    EXPECT_EQ(tipIndex(0.5, 1), 1);
}

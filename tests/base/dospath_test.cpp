#include "base/dospath.h"

#include <gtest/gtest.h>

using namespace dospath;

TEST(dospath, splitsAtTheLastBackslash)
{
    const Split split = splitAtLastBackslash(u"D:\\Music\\*.MP3"_qs);
    EXPECT_EQ(split.directory, u"D:\\Music\\"_qs);
    EXPECT_EQ(split.rest, u"*.MP3"_qs);
}

TEST(dospath, hasNoDirectoryWithoutABackslash)
{
    EXPECT_EQ(splitAtLastBackslash(u"a.mp3"_qs).directory, QString());
    EXPECT_EQ(splitAtLastBackslash(u"a.mp3"_qs).rest, u"a.mp3"_qs);
    EXPECT_EQ(splitAtLastBackslash(QString()).rest, QString());
}

TEST(dospath, namesFileDriveAndRoot)
{
    EXPECT_EQ(fileName(u"D:\\a\\b.mp3"_qs), u"b.mp3"_qs);
    EXPECT_EQ(fileName(u"b.mp3"_qs), u"b.mp3"_qs);
    EXPECT_EQ(drive(u"D:\\a"_qs), u"D:"_qs);
    EXPECT_EQ(root(u"D: [ROCK]"_qs), u"D:\\"_qs);
    EXPECT_EQ(root(QString()), u"\\"_qs);
}

TEST(dospath, addsATrailingBackslashOnce)
{
    EXPECT_EQ(withTrailingBackslash(u"D:\\a"_qs), u"D:\\a\\"_qs);
    EXPECT_EQ(withTrailingBackslash(u"D:\\a\\"_qs), u"D:\\a\\"_qs);
    EXPECT_EQ(withTrailingBackslash(QString()), u"\\"_qs);
}

TEST(dospath, dropsTheSecondBackslashBehindADriveOnly)
{
    EXPECT_EQ(withoutDoubledRoot(u"C:\\\\*.MP3"_qs), u"C:\\*.MP3"_qs);
    EXPECT_EQ(withoutDoubledRoot(u"C:\\*.MP3"_qs), u"C:\\*.MP3"_qs);
    EXPECT_EQ(withoutDoubledRoot(u"C:\\a\\\\*.MP3"_qs), u"C:\\a\\\\*.MP3"_qs);
    EXPECT_EQ(withoutDoubledRoot(u"C:\\"_qs), u"C:\\"_qs);
}

TEST(dospath, matchesPatternsWithoutRegardToCase)
{
    EXPECT_TRUE(matches(u"Song.mp3", u"*.MP3"));
    EXPECT_TRUE(matches(u"ÅSE.MP3", u"åse.*"));
    EXPECT_FALSE(matches(u"Song.mp3x", u"*.MP3"));
    EXPECT_FALSE(matches(u"Songmp3", u"*.MP3"));
    EXPECT_TRUE(matches(u"a.mp3", u"?.mp3"));
    EXPECT_FALSE(matches(u".mp3", u"?.mp3"));
    EXPECT_TRUE(matches(u"no extension", u"*.*"));
    EXPECT_TRUE(matches(u"aXbXc", u"a*b*c"));
    EXPECT_FALSE(matches(u"aXbX", u"a*b*c"));
    EXPECT_TRUE(matches(u"", u"*"));
    EXPECT_FALSE(matches(u"a", u""));
}

TEST(dospath, matchesAHostilePatternWithoutHanging)
{
    const QString name(5000, u'a');
    const QString pattern = QString(u"*a"_qs).repeated(200) + u'b';
    EXPECT_FALSE(matches(name, pattern));
}

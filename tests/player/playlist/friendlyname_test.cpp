#include "player/playlist/modcommon.h"

#include <gtest/gtest.h>

namespace {

QString friendly(const QString& path)
{
    return FriendlyName(path, true);
}

} // namespace

TEST(FriendlyName, isTheNameWithoutDirectoryAndExtension)
{
    EXPECT_EQ(friendly(u"C:\\Music\\Song.mp3"_qs), u"Song"_qs);
    EXPECT_EQ(friendly(u"Song.mp3"_qs), u"Song"_qs);
    EXPECT_EQ(friendly(u"C:\\Music\\"_qs), QString());
    EXPECT_EQ(friendly(QString()), QString());
}

TEST(FriendlyName, isTheFilesNameWhenSwitchedOff)
{
    EXPECT_EQ(FriendlyName(u"C:\\Music\\01-My_Song.v2.mp3"_qs, false), u"01-My_Song.v2.mp3"_qs);
    EXPECT_EQ(FriendlyName(u"C:\\Music\\ Song.mp3 "_qs, false), u"Song.mp3"_qs);
}

TEST(FriendlyName, hasBlanksForUnderscoresAndDots)
{
    EXPECT_EQ(friendly(u"D:\\Mr.Big - To_be_with_you.mp3"_qs), u"Mr Big - To be with you"_qs);
}

TEST(FriendlyName, endsBeforeTheLastDotAmongTheLastFiveCharacters)
{
    EXPECT_EQ(friendly(u"D:\\Song.mpeg"_qs), u"Song"_qs);
    EXPECT_EQ(friendly(u"D:\\Song.a.b"_qs), u"Song.a"_qs);
    EXPECT_EQ(friendly(u"D:\\Song.a.mp3"_qs), u"Song a"_qs);
}

TEST(FriendlyName, keepsAnExtensionOfFiveLettersBehindABlank)
{
    EXPECT_EQ(friendly(u"D:\\Song.tiffx"_qs), u"Song tiffx"_qs);
}

TEST(FriendlyName, takesADotOfTheDirectoryForNoExtension)
{
    EXPECT_EQ(friendly(u"D:\\a.b\\c"_qs), u"c"_qs);
    EXPECT_EQ(friendly(u"D:\\Mr.Big\\Song"_qs), u"Song"_qs);
}

TEST(FriendlyName, dropsALeadingTrackNumber)
{
    EXPECT_EQ(friendly(u"D:\\01-Song.mp3"_qs), u"Song"_qs);
    EXPECT_EQ(friendly(u"D:\\01 - Song.mp3"_qs), u"Song"_qs);
    EXPECT_EQ(friendly(u"D:\\12 -Song.mp3"_qs), u"Song"_qs);
}

TEST(FriendlyName, makesBothTestsForANumberOneAfterTheOther)
{
    EXPECT_EQ(friendly(u"D:\\01-02 - Song.mp3"_qs), u"Song"_qs);
    EXPECT_EQ(friendly(u"D:\\01-ab - Song.mp3"_qs), u"Song"_qs);
}

TEST(FriendlyName, keepsOtherNumbers)
{
    EXPECT_EQ(friendly(u"D:\\99 Luftballons.mp3"_qs), u"99 Luftballons"_qs);
    EXPECT_EQ(friendly(u"D:\\1-Song.mp3"_qs), u"1-Song"_qs);
    EXPECT_EQ(friendly(u"D:\\001-Song.mp3"_qs), u"001-Song"_qs);
    EXPECT_EQ(friendly(u"D:\\00-Song.mp3"_qs), u"00-Song"_qs);
    EXPECT_EQ(friendly(u"D:\\AB-Song.mp3"_qs), u"AB-Song"_qs);
}

TEST(FriendlyName, takesBlanksAndNothingElseOffTheEnds)
{
    EXPECT_EQ(friendly(u"D:\\ \u00A0Song\u00A0 .mp3"_qs), u"\u00A0Song\u00A0"_qs);
    EXPECT_EQ(friendly(u"D:\\_Song_.mp3"_qs), u"Song"_qs);
}

TEST(FriendlyName, takesAnyLeadingNumberThatIsGreaterThanZero)
{
    EXPECT_EQ(friendly(u"D:\\1 - Song.mp3"_qs), u"Song"_qs);
    EXPECT_EQ(friendly(u"D:\\1.-Song.mp3"_qs), u"Song"_qs);
    EXPECT_EQ(friendly(u"D:\\_1-Song.mp3"_qs), u"Song"_qs);
    EXPECT_EQ(friendly(u"D:\\-1-Song.mp3"_qs), u"-1-Song"_qs);
    EXPECT_EQ(friendly(u"D:\\00 - Song.mp3"_qs), u"00 - Song"_qs);
    EXPECT_EQ(friendly(u"D:\\10 - Song.mp3"_qs), u"Song"_qs);
    EXPECT_EQ(friendly(u"D:\\01-.mp3"_qs), QString());
}

#include "archive/scan/nameparts.h"

#include <gtest/gtest.h>

TEST(partsOfName, splitsAtTheFirstDashAndKeepsTheBlanksRoundIt)
{
    const NameParts parts = partsOfName(u"Artist_Name - Song_Title.mp3"_qs);
    EXPECT_EQ(parts.artist, u"Artist Name "_qs);
    EXPECT_EQ(parts.song, u" Song Title.mp3"_qs);
}

TEST(partsOfName, withoutADashBothAreTheWholeName)
{
    const NameParts parts = partsOfName(u"My_Song.mp3"_qs);
    EXPECT_EQ(parts.artist, u"My_Song.mp3"_qs); // underscores stay here
    EXPECT_EQ(parts.song, u"My_Song.mp3"_qs);
}

TEST(partsOfName, furtherDashesStayInTheSong)
{
    const NameParts parts = partsOfName(u"A-B-C.mp3"_qs);
    EXPECT_EQ(parts.artist, u"A"_qs);
    EXPECT_EQ(parts.song, u"B-C.mp3"_qs);
}

TEST(partsOfName, aDashAtTheStartLeavesNoArtist)
{
    EXPECT_EQ(partsOfName(u"-x.mp3"_qs).artist, QString());
    EXPECT_EQ(partsOfName(u"x-"_qs).song, QString());
}

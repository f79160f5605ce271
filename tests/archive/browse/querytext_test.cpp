#include "archive/browse/querytext.h"

#include <gtest/gtest.h>

namespace {

Criteria criteria()
{
    return {.artist = u"A"_qs,
            .path = u"B"_qs,
            .song = u"C"_qs,
            .diskName = u"D"_qs,
            .album = u"E"_qs,
            .year = u"F"_qs,
            .comment = u"G"_qs,
            .extension = u"MP3"_qs};
}

} // namespace

TEST(QueryText, allCriteriaJoinedByAnd)
{
    EXPECT_EQ(querytext::allOf(criteria()),
              u"select fldArtist,fldPath,fldSong,fldVolum, fldAlbum, fldYear, fldComment from MP3 where "
              u"fldArtist like "
              "'%A%' And fldpath Like '%B%' And fldSong Like '%C%' And fldVolum Like '%D%' And fldAlbum Like "
              "'%E%' And "
              "fldYear Like '%F%' And fldComment Like '%G%' And fldpath Like '%.MP3%'"_qs);
}

TEST(QueryText, anyCriterionJoinedByOrButTheFileTypeByAnd)
{
    EXPECT_EQ(
        querytext::anyOf(criteria()),
        u"select fldArtist,fldPath,fldSong,fldVolum, fldAlbum, fldYear, fldComment from MP3 where (fldArtist "
        u"like "
        "'%A%' Or fldpath Like '%B%' Or fldSong Like '%C%' Or fldVolum Like '%D%' Or fldAlbum Like '%E%' Or "
        "fldYear Like '%F%' Or fldComment Like '%G%') And (fldpath Like '%.MP3%')"_qs);
}

// One after the other the way an argument replacement does it would see "%1" in what the user typed.
TEST(QueryText, whatWasTypedGoesInAsItStands)
{
    Criteria hostile = criteria();
    hostile.artist = u"%2 o'brien %1"_qs;
    hostile.path = u"_%8"_qs;
    EXPECT_TRUE(
        querytext::allOf(hostile).contains(u"fldArtist like '%%2 o'brien %1%' And fldpath Like '%_%8%'"_qs));
    EXPECT_TRUE(
        querytext::anyOf(hostile).contains(u"fldArtist like '%%2 o'brien %1%' Or fldpath Like '%_%8%'"_qs));
}

TEST(QueryText, tellsAnApostropheInAnyBox)
{
    EXPECT_FALSE(querytext::holdsApostrophe(criteria()));
    for (QString Criteria::*box :
         {&Criteria::artist, &Criteria::path, &Criteria::song, &Criteria::diskName, &Criteria::album,
          &Criteria::year, &Criteria::comment, &Criteria::extension}) {
        Criteria one = criteria();
        one.*box = u"o'"_qs;
        EXPECT_TRUE(querytext::holdsApostrophe(one));
    }
}

#include "archive/scan/tagtext.h"

#include <gtest/gtest.h>

namespace {

QString field(const char16_t* text, int length)
{
    return QString::fromUtf16(text).leftJustified(length, u' ');
}

QString tag(const QString& marker = u"TAG"_qs)
{
    return marker + field(u"Title", 30) + field(u"Artist", 30) + field(u"Album", 30) + u"1999"_qs +
           field(u"Comment", 29) + QChar(9) + QChar(17);
}

} // namespace

TEST(findTag, readsTheFieldsAtTheirOffsets)
{
    const auto found = findTag(QString(128, u'.') + tag());
    ASSERT_TRUE(found);
    EXPECT_EQ(found->song, field(u"Title", 30));
    EXPECT_EQ(found->artist, field(u"Artist", 30));
    EXPECT_EQ(found->album, field(u"Album", 30));
    EXPECT_EQ(found->year, u"1999"_qs);
    EXPECT_EQ(found->comment, field(u"Comment", 29) + QChar(9));
}

TEST(findTag, findsNothingWithoutAMarker)
{
    EXPECT_FALSE(findTag(QString(256, u'.')));
    EXPECT_FALSE(findTag(QString()));
}

TEST(findTag, takesTheFirstMarkerInAnyCase)
{
    const auto found = findTag(u"xxtAg"_qs + field(u"Loose", 30) + tag());
    ASSERT_TRUE(found);
    EXPECT_EQ(found->song, field(u"Loose", 30));
    EXPECT_TRUE(found->artist.startsWith(u"TAGTitle"));
}

TEST(findTag, whatLiesBehindTheEndIsMissing)
{
    const auto found = findTag(tag().left(127 - 1));
    ASSERT_TRUE(found);
    EXPECT_EQ(found->comment.size(), 29);
    const auto cut = findTag(u"...tag12"_qs);
    ASSERT_TRUE(cut);
    EXPECT_EQ(cut->song, u"12"_qs);
    EXPECT_EQ(cut->artist, QString());
    EXPECT_EQ(cut->comment, QString());
}

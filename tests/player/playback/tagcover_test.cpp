#include "player/playback/tagcover.h"

#include "player/playback/tagrecord.h"
#include "tests/support/world.h"

#include <gtest/gtest.h>

namespace {

struct TagCover : testing::Test {
    World world;
    TagRecord tag;

    void files(std::initializer_list<const char*> names)
    {
        for (const char* name : names)
            world.directory.write(QByteArray("disk/m/") + name, "x");
    }
    // Returns the file's name, for a tag with fields of their full width.
    QString cover(const QString& artist, const QString& album)
    {
        tag.artist = artist.leftJustified(id3v1::kTextLength);
        tag.album = album.leftJustified(id3v1::kTextLength);
        const QString path = tagCover(world.files, u"D:\\m\\"_qs, tag);
        return path.startsWith(u"D:\\m\\") ? path.mid(5) : path;
    }
};

} // namespace

TEST_F(TagCover, takesTheAlbumBeforeTheArtistAndTheAlbum)
{
    files({"Al.jpg", "Ar-Al.bmp", "Ar - Al.bmp"});
    EXPECT_EQ(cover(u"Ar"_qs, u"Al"_qs).toLower(), u"al.jpg"_qs);
    EXPECT_EQ(cover(u"Ar"_qs, u"Other"_qs), QString());
}

TEST_F(TagCover, takesTheNarrowDashBeforeTheWideOne)
{
    files({"Ar-Al.jpg", "Ar - Al.bmp"});
    EXPECT_EQ(cover(u"Ar"_qs, u"Al"_qs).toLower(), u"ar-al.jpg"_qs);
}

TEST_F(TagCover, takesTheWideDashLast)
{
    files({"Ar - Al.gif"});
    EXPECT_EQ(cover(u"Ar"_qs, u"Al"_qs).toLower(), u"ar - al.gif"_qs);
}

TEST_F(TagCover, isOfAnyOfTheThreeKinds)
{
    files({"Al.png", "Al.jpeg"});
    EXPECT_EQ(cover({}, u"Al"_qs), QString());
    files({"Al.jpg"});
    EXPECT_EQ(cover({}, u"Al"_qs).toLower(), u"al.jpg"_qs);
    files({"Al.gif"});
    EXPECT_EQ(cover({}, u"Al"_qs).toLower(), u"al.gif"_qs);
    files({"Al.bmp"});
    EXPECT_EQ(cover({}, u"Al"_qs).toLower(), u"al.bmp"_qs);
}

TEST_F(TagCover, givesBackNamesWithoutBlanks)
{
    files({"Al.jpg"});
    EXPECT_FALSE(cover(u"  Ar tist"_qs, u" Al "_qs).isEmpty());
    EXPECT_EQ(tag.artist, u"Ar tist"_qs);
    EXPECT_EQ(tag.album, u"Al"_qs);
}

TEST_F(TagCover, endsAFieldAtItsFirstNul)
{
    files({"Al.jpg"});
    EXPECT_FALSE(cover(u"Ar"_qs + QChar(0) + u"rest"_qs, u"Al"_qs + QChar(0) + u"rest"_qs).isEmpty());
    EXPECT_EQ(tag.artist, u"Ar"_qs);
    EXPECT_EQ(tag.album, u"Al"_qs);
    EXPECT_EQ(cover(u"Ar"_qs, QString(QChar(0)) + u"Al"_qs), QString());
}

TEST_F(TagCover, isNoneWithoutAnAlbum)
{
    files({".jpg", "-.jpg", "Ar-.jpg", "Ar -.jpg", "Ar - .jpg"});
    EXPECT_EQ(cover(u"Ar"_qs, {}), QString());
    EXPECT_EQ(cover(u"Ar"_qs, u"   "_qs), QString());
    EXPECT_EQ(cover({}, {}), QString());
}

TEST_F(TagCover, leadsIntoNoOtherDirectory)
{
    world.directory.write("disk/Al.jpg", "x");
    world.directory.write("disk/m/sub/Al.jpg", "x");
    for (const QString& album :
         {u"..\\Al"_qs, u"../Al"_qs, u"sub\\Al"_qs, u"sub/Al"_qs, u"D:\\Al"_qs, u"\\Al"_qs})
        EXPECT_EQ(cover(u"Ar"_qs, album), QString()) << qPrintable(album);
    EXPECT_EQ(cover(u"..\\..\\disk"_qs, u"Al"_qs), QString());
    files({"sub-Al.jpg", "..-Al.jpg"});
    EXPECT_EQ(cover({}, u"sub\\Al"_qs).toLower(), u"sub-al.jpg"_qs) << "as such a file would be named";
    EXPECT_EQ(cover({}, u"..\\Al"_qs).toLower(), u"..-al.jpg"_qs);
    EXPECT_EQ(tag.album, u"..\\Al"_qs) << "the tag itself stays";
}

TEST_F(TagCover, isNoFileThatFitsAPattern)
{
    files({"Album.jpg", "a.jpg"});
    for (const QString& album :
         {u"*"_qs, u"?"_qs, u"A*"_qs, u"Albu?"_qs, u"*.*"_qs, u"<"_qs, u">"_qs, u"\""_qs, u"|"_qs})
        EXPECT_EQ(cover(u"*"_qs, album), QString()) << qPrintable(album);
    files({"-.jpg"});
    EXPECT_EQ(cover({}, u"*"_qs), u"-.JPG"_qs);
}

TEST_F(TagCover, isNoFileWithControlCharactersInItsName)
{
    for (const char character : {'\n', '\r', '\t', '\x1F', '\x01'}) {
        world.directory.write(QByteArray("disk/m/A") + character + "l.JPG", "x");
        const QString album = u"A"_qs + QLatin1Char(character) + u"l"_qs;
        EXPECT_EQ(cover({}, album), QString()) << int(character);
    }
    files({"A-l.jpg"});
    EXPECT_EQ(cover({}, u"A\nl"_qs), u"A-l.JPG"_qs);
}

TEST_F(TagCover, isNoDirectoryAndNothingWithoutOne)
{
    world.directory.makeDirectory("disk/m/Al.jpg");
    EXPECT_EQ(cover(u"Ar"_qs, u"Al"_qs), QString());
    tag.album = u"Al"_qs;
    EXPECT_EQ(tagCover(world.files, u"Q:\\none\\"_qs, tag), QString());
    EXPECT_EQ(tagCover(world.files, QString(), tag), QString());
}

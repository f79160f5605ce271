#include "player/playback/mpegfacts.h"

#include "system/files/systemfilenumbers.h"
#include "tests/support/rights.h"
#include "tests/support/world.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

QByteArray field(const QByteArray& text, qsizetype width)
{
    return text.leftJustified(width, '\0');
}

QByteArray tagOf(const QByteArray& marker = "TAG")
{
    return marker + field("Title", 30) + field("Artist", 30) + field("Album", 30) + "1999" +
           field("Comment", 29) + '\x07' + '\x11';
}

struct GetMP3InfoTest : testing::Test {
    MpegFacts factsOf(const QByteArray& content)
    {
        world.directory.write("disk/a.mp3", content);
        const MpegFacts facts = GetMP3Info(u"D:\\a.mp3"_qs, world.files, numbers, world.codePage);
        EXPECT_EQ(numbers.freeFile(), 1);
        return facts;
    }
    MpegFacts headerOf(int third, int fourth)
    {
        QByteArray content(400, '\0');
        content[2] = static_cast<char>(third);
        content[3] = static_cast<char>(fourth);
        return factsOf(content);
    }

    World world;
    SystemFileNumbers numbers{world.drives};
    const QByteArray audio = QByteArray(300, 'x');
};

} // namespace

TEST_F(GetMP3InfoTest, readsTheFirstFourBytes)
{
    const MpegFacts facts = headerOf(0x90, 0x44);
    EXPECT_EQ(facts.bitRate, u"128"_qs);
    EXPECT_EQ(facts.bitRateValue, 128);
    EXPECT_EQ(facts.sampling, u"44"_qs);
    EXPECT_EQ(facts.samplingValue, 44);
    EXPECT_EQ(facts.mode, u"jstereo"_qs);
    EXPECT_TRUE(facts.read);
    EXPECT_EQ(facts.tag, TagRecord());
}

TEST_F(GetMP3InfoTest, takesTheCellsOfItsOwnTables)
{
    const char* const kRates[] = {"144", "16",  "32",  "48",  "56",  "64",  "80",  "96",
                                  "112", "128", "160", "192", "224", "256", "320", ""};
    for (int i = 0; i < 16; ++i) {
        const MpegFacts facts = headerOf(i << 4 | 3, 0x3F);
        EXPECT_EQ(facts.bitRate, QString::fromLatin1(kRates[i]));
        EXPECT_EQ(facts.bitRateValue, QByteArray(kRates[i]).toDouble());
        EXPECT_EQ(facts.sampling, u"44"_qs);
    }
    EXPECT_EQ(headerOf(0x04, 0).sampling, u"48"_qs);
    EXPECT_EQ(headerOf(0x08, 0).sampling, u"32"_qs);
    EXPECT_EQ(headerOf(0x0C, 0).sampling, u"??"_qs);
    EXPECT_EQ(headerOf(0x0C, 0).samplingValue, 0);
    const char* const kModes[] = {"stereo", "jstereo", "dualch", "mono"};
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(headerOf(0, i << 6 | 0x3F).mode, QString::fromLatin1(kModes[i]));
}

TEST_F(GetMP3InfoTest, aLeadingTagIsTakenForTheHeader)
{
    const MpegFacts facts = factsOf("ID3\x03" + QByteArray(400, 'x')); // "3": 0x33
    EXPECT_EQ(facts.bitRate, u"48"_qs);
    EXPECT_EQ(facts.sampling, u"44"_qs);
    EXPECT_EQ(facts.mode, u"stereo"_qs);
}

TEST_F(GetMP3InfoTest, fieldsKeepTheirBytesAndWidths)
{
    const TagRecord tag = factsOf(audio + tagOf()).tag;
    EXPECT_EQ(tag.title, u"Title"_qs + QString(25, QChar(u'\0')));
    EXPECT_EQ(tag.artist, u"Artist"_qs + QString(24, QChar(u'\0')));
    EXPECT_EQ(tag.album, u"Album"_qs + QString(25, QChar(u'\0')));
    EXPECT_EQ(tag.year, u"1999"_qs);
    EXPECT_EQ(tag.comment, u"Comment"_qs + QString(22, QChar(u'\0')));
    EXPECT_EQ(tag.track, QString(QChar(7)));
    EXPECT_EQ(tag.genre, QString(QChar(0x11)));
}

TEST_F(GetMP3InfoTest, theFirstMarkerInAnyCaseWins)
{
    for (const char* const marker : {"TAG", "tag", "Tag", "tAG"})
        EXPECT_EQ(factsOf(audio + tagOf(marker)).tag.year, u"1999"_qs);
    const TagRecord tag = factsOf(audio + "a tagged frame" + tagOf()).tag;
    EXPECT_EQ(tag.title, u"ged frameTAGTitle"_qs + QString(13, QChar(u'\0')));
}

TEST_F(GetMP3InfoTest, looksAtTheLast256BytesAlone)
{
    EXPECT_EQ(factsOf(audio + tagOf() + QByteArray(128, 'x')).tag.year, u"1999"_qs);
    EXPECT_EQ(factsOf(audio + tagOf() + QByteArray(129, 'x')).tag, TagRecord());
}

TEST_F(GetMP3InfoTest, aMarkerNearTheEndGivesShortFields)
{
    const TagRecord tag = factsOf(audio + "TAGabc").tag;
    EXPECT_EQ(tag.title, u"abc"_qs.leftJustified(30));
    EXPECT_EQ(tag.artist, QString(30, u' '));
    EXPECT_EQ(tag.comment, QString(29, u' '));
    EXPECT_EQ(tag.genre, u" "_qs);
    EXPECT_EQ(factsOf(audio + "TAG").tag.title, QString(30, u' '));
    EXPECT_EQ(factsOf(audio + "TA").tag, TagRecord());
}

TEST_F(GetMP3InfoTest, textsAreOfTheCodePage)
{
    EXPECT_EQ(factsOf(audio + "TAGSj\xF8\x80").tag.title.left(4), u"Sjø€"_qs);
    EXPECT_EQ(factsOf(audio + "TAG\xC3\xB8").tag.title.left(2), u"Ã¸"_qs);
}

TEST_F(GetMP3InfoTest, aShortOrMissingFileGivesNothing)
{
    EXPECT_FALSE(factsOf(tagOf() + QByteArray(127, '\x90')).read);
    EXPECT_EQ(factsOf(tagOf() + QByteArray(127, 'x')).tag, TagRecord());
    EXPECT_TRUE(factsOf(tagOf() + QByteArray(128, 'x')).read);
    EXPECT_EQ(factsOf(tagOf() + QByteArray(128, 'x')).tag.year, u"1999"_qs);
    for (const QString& path : {QString(), u"D:\\none.mp3"_qs, u"D:\\"_qs, u"Q:\\a"_qs}) {
        const MpegFacts facts = GetMP3Info(path, world.files, numbers, world.codePage);
        EXPECT_EQ(facts.bitRate + facts.sampling + facts.mode, QString());
        EXPECT_EQ(facts.tag, TagRecord());
        EXPECT_EQ(facts.tag.genre, QString(QChar(80)));
    }
}

TEST_F(GetMP3InfoTest, closesEveryFileOfTheTableWhenTheFileIsThere)
{
    world.directory.write("disk/other", "x");
    numbers.openBinary(1, u"D:\\other"_qs);
    numbers.openInput(7, u"D:\\other"_qs);
    GetMP3Info(u"D:\\none.mp3"_qs, world.files, numbers, world.codePage);
    EXPECT_EQ(numbers.freeFile(), 2);
    factsOf(audio);
    EXPECT_THROW(numbers.length(7), RunTimeError);
}

TEST_F(GetMP3InfoTest, aFileThatMayNotBeReadGivesNothing)
{
    world.directory.write("disk/secret.mp3", audio + tagOf());
    chmod(world.directory.at("disk/secret.mp3").constData(), 0600);
    chmod(world.directory.path().constData(), 0755);
    const Unprivileged ordinary;
    const MpegFacts facts = GetMP3Info(u"D:\\secret.mp3"_qs, world.files, numbers, world.codePage);
    EXPECT_FALSE(facts.read);
    EXPECT_EQ(facts.tag, TagRecord());
    EXPECT_EQ(numbers.freeFile(), 1);
}

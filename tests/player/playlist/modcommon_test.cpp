#include "player/playlist/modcommon.h"

#include "platform/wavevolume.h"
#include "tests/support/world.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

class VolumeWord : public WaveVolume {
public:
    std::uint32_t get() override { return word; }
    void set(std::uint32_t newWord) override { word = newWord; }
    bool isKnown() const override { return true; }

    std::uint32_t word = 0;
};

std::uint32_t wordOf(float fraction)
{
    VolumeWord volume;
    SetVolume(volume, fraction);
    return volume.word;
}

float fractionOf(std::uint32_t word)
{
    VolumeWord volume;
    volume.word = word;
    return GetVolume(volume);
}

} // namespace

TEST(modCommon, partsAPathAtItsLastBackslash)
{
    EXPECT_EQ(GetPath(u"a.mp3"_qs), QString());
    EXPECT_EQ(GetPath(u"C:\\x\\a.mp3"_qs), u"C:\\x\\"_qs);
    EXPECT_EQ(GetFileName(u"C:\\x\\a.mp3"_qs), u"a.mp3"_qs);
    EXPECT_EQ(GetFileName(u"a.mp3"_qs), u"a.mp3"_qs);
}

TEST(modCommon, addsASlashButToAnEmptyPath)
{
    EXPECT_EQ(AddSlash(u"C:\\x"_qs), u"C:\\x\\"_qs);
    EXPECT_EQ(AddSlash(u"C:\\x\\"_qs), u"C:\\x\\"_qs);
    EXPECT_EQ(AddSlash(QString()), QString());
}

TEST(modCommon, partsAPathAtItsLastDot)
{
    EXPECT_EQ(GetExtension(u"C:\\x\\a.b.mp3"_qs), u"mp3"_qs);
    EXPECT_EQ(GetExtension(u"C:\\x\\a"_qs), QString());
    EXPECT_EQ(StripExtension(u"C:\\x\\a.b.mp3"_qs), u"C:\\x\\a.b"_qs);
    EXPECT_EQ(StripExtension(u"C:\\x\\a"_qs), u"C:\\x\\a"_qs);
}

TEST(modCommon, knowsAPictureByTheLastFourCharacters)
{
    EXPECT_TRUE(IsPicture(u"C:\\a.jpg"_qs));
    EXPECT_TRUE(IsPicture(u"C:\\a.Gif"_qs));
    EXPECT_TRUE(IsPicture(u".BMP"_qs));
    EXPECT_FALSE(IsPicture(u"x.jpeg"_qs));
    EXPECT_FALSE(IsPicture(u"x.png"_qs));
    EXPECT_FALSE(IsPicture(u"jpg"_qs));
}

TEST(modCommon, cutsACellOfATable)
{
    const QString table = u"ab  c   d   e"_qs;
    EXPECT_EQ(BitCell(0x00, 2, 3, 4, table), u"ab"_qs);
    EXPECT_EQ(BitCell(0x04, 2, 3, 4, table), u"c"_qs);
    EXPECT_EQ(BitCell(0xFB, 2, 3, 4, table), u"d"_qs);
    EXPECT_EQ(BitCell(0x0C, 2, 3, 4, table), u"e"_qs); // a last cell that the text cuts short
    EXPECT_EQ(BitCell(0xF0, 4, 7, 4, table), QString());
    EXPECT_EQ(BitCell(0xFF, 0, 7, 4, table), QString());
}

TEST(modCommon, findsFilesAndNoDirectories)
{
    World world;
    world.directory.write("disk/Music/a.mp3", "x");
    EXPECT_TRUE(FileExists(world.files, u"D:\\Music\\a.mp3"_qs));
    EXPECT_TRUE(FileExists(world.files, u"D:\\MUSIC\\A.MP3"_qs));
    EXPECT_FALSE(FileExists(world.files, u"D:\\Music"_qs));
    EXPECT_FALSE(FileExists(world.files, u"D:\\Music\\b.mp3"_qs));
    EXPECT_FALSE(FileExists(world.files, QString()));
}

TEST(modCommon, findsTheFirstPictureThatIsThere)
{
    World world;
    EXPECT_EQ(FindPicture(world.files, u"D:\\cover"_qs), QString());
    world.directory.write("disk/cover.jpg", "x");
    EXPECT_EQ(FindPicture(world.files, u" D:\\cover "_qs), u"D:\\cover.JPG"_qs);
    world.directory.write("disk/cover.GIF", "x");
    EXPECT_EQ(FindPicture(world.files, u"D:\\cover"_qs), u"D:\\cover.GIF"_qs);
    world.directory.write("disk/cover.bmp", "x");
    EXPECT_EQ(FindPicture(world.files, u"D:\\cover"_qs), u"D:\\cover.BMP"_qs);
}

TEST(modCommon, fullVolumeReadsOneShortOfFull)
{
    EXPECT_EQ(wordOf(1), 0xFFFFFFFFU);
    EXPECT_EQ(fractionOf(0xFFFFFFFFU), 65534.0F / 65535);
    EXPECT_EQ(fractionOf(0), 0.0F);
    EXPECT_EQ(wordOf(0), 0U);
    EXPECT_EQ(fractionOf(0x7FFF7FFFU), 32767.0F / 65535);
    EXPECT_EQ(fractionOf(0x80008000U), 32767.0F / 65535); // -32768 + 65535
}

TEST(modCommon, theLouderChannelIsTheVolume)
{
    EXPECT_EQ(fractionOf(0x00001000U), 4096.0F / 65535);
    EXPECT_EQ(fractionOf(0x10000000U), 4096.0F / 65535);
}

TEST(modCommon, roundsAChannelHalfToEven)
{
    EXPECT_EQ(wordOf(0.5F), 0x80008000U);  // 32767.5 - 65536 = -32768.5
    EXPECT_EQ(wordOf(0.25F), 0x40004000U); // 16383.75
    EXPECT_EQ(wordOf(2.5F / 65535), 0x00020002U);
}

TEST(modCommon, aFractionJustAboveTheMiddleStaysInSixteenBits)
{
    EXPECT_EQ(wordOf(static_cast<float>(32767.25 / 65535)), 0x80008000U);
}

TEST(modCommon, aFractionBeyondTheEndsIsTheEnd)
{
    EXPECT_EQ(wordOf(1.5F), 0xFFFFFFFFU);
    EXPECT_EQ(wordOf(-0.5F), 0U);
    EXPECT_EQ(wordOf(std::numeric_limits<float>::quiet_NaN()), 0U);
    EXPECT_EQ(wordOf(std::numeric_limits<float>::infinity()), 0xFFFFFFFFU);
}

TEST(modCommon, snapsToTheEdgesWithinSixteenPixels)
{
    const QRect area(0, 0, 15000, 12000);
    const auto snap = [&](int x, int y) { return snappedPosition({x, y, 3000, 2000}, area); };
    EXPECT_EQ(snap(239, -239), QPoint(0, 0));
    EXPECT_EQ(snap(240, -240), QPoint(240, -240));
    EXPECT_EQ(snap(12000 - 239, 10000 + 239), QPoint(12000, 10000));
    EXPECT_EQ(snap(12000 - 240, 10000 + 240), QPoint(12000 - 240, 10000 + 240));
    EXPECT_EQ(snap(5000, 5000), QPoint(5000, 5000));
}

TEST(modCommon, snapsAtTheTopToTheScreenAndAtTheBottomToTheWorkArea)
{
    const QRect area(600, 450, 14400, 11000);
    const auto snap = [&](int x, int y) { return snappedPosition({x, y, 3000, 2000}, area); };
    EXPECT_EQ(snap(500, 400), QPoint(500, 400));
    EXPECT_EQ(snap(100, 100), QPoint(0, 0));
    EXPECT_EQ(snap(12100, 9300), QPoint(12000, 9450));
}

TEST(modCommon, aChosenFolderEndsInABackslash)
{
    FakeDialogs dialogs;
    const auto chosen = [&](const QString& folder) {
        dialogs.folderAnswer = folder;
        return BrowseFolder(dialogs, u"Select it:"_qs);
    };
    EXPECT_EQ(BrowseFolder(dialogs, u"Select it:"_qs), QString()); // cancelled
    EXPECT_EQ(chosen(u"D:\\Music"_qs), u"D:\\Music\\"_qs);
    EXPECT_EQ(chosen(u"D:\\"_qs), u"D:\\"_qs);
    EXPECT_EQ(chosen(u"D:\\Music"_qs + QChar(u'\0') + u"more"_qs), u"D:\\Music\\"_qs);
    EXPECT_EQ(chosen(QString(QChar(u'\0'))), QString());
    EXPECT_EQ(dialogs.asked, QStringList(5, u"folder|Select it:"_qs));
}

#include "tests/player/bitmaps/bitmapfiles.h"
#include "tests/player/bitmaps/bitmaptest.h"

#include <QBuffer>
#include <QImageReader>
#include <QRandomGenerator>

namespace {

const std::vector<QRgb> kFour = {qRgb(1, 2, 3), qRgb(255, 0, 0), qRgb(0, 255, 0), qRgb(0, 0, 255)};

std::vector<QRgb> coloursOf(const QByteArray& indices, const std::vector<QRgb>& palette)
{
    std::vector<QRgb> pixels;
    for (const char index : indices)
        pixels.push_back(palette[static_cast<quint8>(index)]);
    return pixels;
}

std::vector<QRgb> shown(const GifFile& file)
{
    return pixelsOf(skinBitmapOf(file.bytes()));
}

GifFile small()
{
    return {.screen = {3, 2},
            .place = {0, 0, 3, 2},
            .indices = QByteArray::fromHex("000102030201"),
            .palette = kFour};
}

// Makes a picture of repeats and of noise, of 8 bits.
GifFile noise(int width, int height, bool interlaced)
{
    GifFile file{
        .screen = {width, height}, .place = {0, 0, width, height}, .interlaced = interlaced, .bits = 8};
    QRandomGenerator random(7);
    for (int i = 0; i < 256; ++i)
        file.palette.push_back(random.generate() | 0xff000000);
    while (file.indices.size() < width * height)
        file.indices += QByteArray(random.bounded(1, 20), static_cast<char>(random.bounded(256)));
    file.indices.truncate(width * height);
    return file;
}

QImage readByToolkit(const QByteArray& bytes)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    return QImageReader(&buffer, "gif").read().convertToFormat(QImage::Format_RGB32);
}

} // namespace

TEST(Gif, hasItsColours)
{
    const GifFile file = small();
    EXPECT_EQ(shown(file), coloursOf(file.indices, kFour));
    EXPECT_EQ(skinBitmapOf(file.bytes())->format(), QImage::Format_RGB32);
    EXPECT_EQ(skinBitmapOf(file.bytes())->size(), QSize(3, 2));
}

TEST(Gif, ofTheOlderKindIsTheSame)
{
    EXPECT_EQ(pixelsOf(skinBitmapOf(small().bytes().replace("GIF89a", "GIF87a"))),
              coloursOf(small().indices, kFour));
    EXPECT_FALSE(skinBitmapOf(small().bytes().replace("GIF89a", "GIF88a")));
}

TEST(Gif, mayHaveAPaletteOfItsOwn)
{
    GifFile file = small();
    file.ownPalette = {kFour.rbegin(), kFour.rend()};
    EXPECT_EQ(shown(file), coloursOf(file.indices, file.ownPalette));
    file.palette.clear();
    EXPECT_EQ(shown(file), coloursOf(file.indices, file.ownPalette));
}

TEST(Gif, withoutAnyPaletteIsNone)
{
    GifFile file = small();
    file.palette.clear();
    EXPECT_FALSE(skinBitmapOf(file.bytes()));
}

TEST(Gif, isBlackWhereItsPaletteHasNoColour)
{
    GifFile file = small();
    file.palette.resize(2);
    EXPECT_EQ(shown(file), coloursOf(file.indices, {kFour[0], kFour[1], qRgb(0, 0, 0), qRgb(0, 0, 0)}));
}

TEST(Gif, isBlackThereWhateverIsTransparent)
{
    GifFile file = small();
    file.palette = {4, kFour[1]};
    file.ownPalette = {kFour[0], kFour[1]};
    file.transparent = 3;
    EXPECT_EQ(shown(file), coloursOf(file.indices, {kFour[0], kFour[1], qRgb(0, 0, 0), 0}));
}

TEST(Gif, mayHaveATransparentColour)
{
    GifFile file = small();
    file.transparent = 2;
    EXPECT_EQ(shown(file), coloursOf(file.indices, {kFour[0], kFour[1], 0, kFour[3]}));
    EXPECT_EQ(skinBitmapOf(file.bytes())->format(), QImage::Format_ARGB32_Premultiplied);
}

TEST(Gif, hasATransparentColourOnlyWhereThatIsSaid)
{
    GifFile file = small();
    file.extension = QByteArray::fromHex("21f904 00 ffff 02 00");
    EXPECT_EQ(shown(file), coloursOf(file.indices, kFour));
    EXPECT_EQ(skinBitmapOf(file.bytes())->format(), QImage::Format_RGB32);
}

TEST(Gif, isTransparentBesideItsPicture)
{
    const GifFile file{
        .screen = {3, 3}, .place = {1, 1, 1, 2}, .indices = QByteArray::fromHex("0102"), .palette = kFour};
    EXPECT_EQ(shown(file), (std::vector<QRgb>{0, 0, 0, 0, kFour[1], 0, 0, kFour[2], 0}));
}

TEST(Gif, growsWithItsPicture)
{
    const GifFile file{
        .screen = {0, 1}, .place = {1, 0, 1, 2}, .indices = QByteArray::fromHex("0102"), .palette = kFour};
    EXPECT_EQ(shown(file), (std::vector<QRgb>{0, kFour[1], 0, kFour[2]}));
}

TEST(Gif, mayHaveItsLinesInterlaced)
{
    const std::pair<QByteArray, QByteArray> packedAndShown[] = {
        {"00", "00"},
        {"0001", "0001"},
        {"000102", "000201"},
        {"00010203", "00020103"},
        {"0001020303", "0003020301"}, // lines 0, 4, 2, 1, 3
    };
    for (const auto& [packed, expected] : packedAndShown) {
        const int height = static_cast<int>(packed.size() / 2);
        const GifFile file{.screen = {1, height},
                           .place = {0, 0, 1, height},
                           .indices = QByteArray::fromHex(packed),
                           .palette = kFour,
                           .interlaced = true};
        EXPECT_EQ(shown(file), coloursOf(QByteArray::fromHex(expected), kFour)) << height;
    }
    for (const int height : {5, 8, 17, 40}) { // the toolkit mixes up the lines of 3 and 4
        const QByteArray file = noise(30, height, true).bytes();
        ASSERT_TRUE(skinBitmapOf(file));
        EXPECT_EQ(*skinBitmapOf(file), readByToolkit(file)) << height;
    }
}

TEST(Gif, ofManyPixelsIsReadAsTheToolkitReadsIt)
{
    for (const int width : {1, 7, 300}) {
        const GifFile file = noise(width, 200, false);
        EXPECT_EQ(shown(file), coloursOf(file.indices, file.palette));
        EXPECT_EQ(*skinBitmapOf(file.bytes()), readByToolkit(file.bytes()));
    }
}

TEST(Gif, ofOneColourIsPackedFarAndUnpacked)
{
    GifFile file{.screen = {2000, 2000}, .place = {0, 0, 2000, 2000}, .palette = kFour};
    file.indices = QByteArray(2000 * 2000, '\3');
    const std::optional<QImage> image = skinBitmapOf(file.bytes());
    ASSERT_TRUE(image);
    QImage expected(2000, 2000, QImage::Format_RGB32);
    expected.fill(kFour[3]);
    EXPECT_EQ(*image, expected);
}

TEST(Gif, skipsWhatStandsBeforeThePicture)
{
    GifFile file = small();
    file.extension = QByteArray::fromHex("21fe 03 2c2c3b 01 00 00  21ff 00  21f9 01 01 00");
    EXPECT_EQ(shown(file), coloursOf(file.indices, kFour));
}

TEST(Gif, withoutAPictureIsNone)
{
    const QByteArray bytes = small().bytes();
    const QByteArray before = bytes.first(13 + 12);
    EXPECT_FALSE(skinBitmapOf(before + ';'));
    EXPECT_FALSE(skinBitmapOf(before + '\0' + bytes.sliced(13 + 12)));
    EXPECT_TRUE(skinBitmapOf(before + bytes.sliced(13 + 12)));
}

TEST(Gif, ofASizeBeyondTheLimitsIsNone)
{
    for (const QSize size : {QSize(16385, 1), QSize(65535, 65535), QSize(16384, 16384)}) {
        GifFile file = small();
        file.screen = size;
        EXPECT_FALSE(skinBitmapOf(file.bytes()));
        file = small();
        file.place = QRect(QPoint(), size);
        EXPECT_FALSE(skinBitmapOf(file.bytes()));
    }
    GifFile file = small();
    file.place.moveTo(65535, 65535);
    EXPECT_FALSE(skinBitmapOf(file.bytes()));
    for (const QSize size : {QSize(0, 2), QSize(3, 0)}) {
        file = small();
        file.place.setSize(size);
        EXPECT_FALSE(skinBitmapOf(file.bytes()));
    }
}

TEST(Gif, thatPromisesMoreThanItHasIsNone)
{
    GifFile file = small();
    file.place.setHeight(3);
    EXPECT_FALSE(skinBitmapOf(file.bytes()));
    file.place = QRect(0, 0, 8192, 4096);
    EXPECT_FALSE(skinBitmapOf(file.bytes()));
}

TEST(Gif, withMorePixelsThanItPromisesIsThere)
{
    GifFile file = small();
    file.place.setHeight(1);
    EXPECT_EQ(shown(file).size(), 6u); // the screen has two lines
}

TEST(Gif, whoseTableIsFullGoesOnWithIt)
{
    GifFile file = noise(300, 200, false);
    file.clearsLate = true;
    EXPECT_EQ(shown(file), coloursOf(file.indices, file.palette));
}

TEST(Gif, whoseLastCodeIsLongerThanThePictureIsThere)
{
    const GifFile file{
        .screen = {50, 1}, .place = {0, 0, 50, 1}, .indices = QByteArray(500, '\1'), .palette = kFour};
    EXPECT_EQ(shown(file), std::vector<QRgb>(50, kFour[1]));
}

TEST(Gif, ofAnotherPackingIsNone)
{
    for (const int bits : {2, 3, 8}) {
        GifFile file = small();
        file.bits = bits;
        EXPECT_TRUE(skinBitmapOf(file.bytes())) << bits;
    }
    for (const int bits : {1, 9, 11, 12, 13}) {
        GifFile file = small();
        file.indices.fill('\0');
        file.bits = bits;
        EXPECT_FALSE(skinBitmapOf(file.bytes())) << bits;
    }
}

namespace {

// Returns the picture of small() packed as these codes of three bits; 4 forgets the codes before.
QByteArray packedAs(const std::vector<int>& codes)
{
    quint64 bits = 0;
    for (std::size_t i = 0; i < codes.size(); ++i)
        bits |= static_cast<quint64>(codes[i]) << 3 * i;
    QByteArray file = small().bytes().first(13 + 12 + 10) + QByteArray::fromHex("0208");
    addLittle(file, bits);
    return file + QByteArray::fromHex("003b");
}

} // namespace

TEST(Gif, withACodeThatThereCannotBeIsNone)
{
    const auto at = [](const QByteArray& indices) { return coloursOf(QByteArray::fromHex(indices), kFour); };
    EXPECT_EQ(pixelsOf(skinBitmapOf(packedAs({4, 0, 1, 4, 2, 3, 4, 0, 1, 4}))), at("000102030001"));
    EXPECT_EQ(pixelsOf(skinBitmapOf(packedAs({4, 1, 6, 4, 2, 3, 4, 0, 1, 4}))), at("010101020300"));
    EXPECT_FALSE(skinBitmapOf(packedAs({4, 6, 4, 0, 1, 4, 2, 3, 4, 0, 1, 4, 0, 1, 4})));
    EXPECT_FALSE(skinBitmapOf(packedAs({4, 7, 4, 0, 1, 4, 2, 3, 4, 0, 1, 4, 0, 1, 4})));
    EXPECT_FALSE(skinBitmapOf(packedAs({4, 0, 7, 4, 0, 1, 4, 2, 3, 4, 0, 1, 4, 0, 1, 4})));
}

TEST(Gif, thatIsCutIsNone)
{
    const QByteArray bytes = small().bytes();
    // What may be missing: the mark at the end of the file, the empty block, and most of the packing's end.
    expectWholeOrNothing(bytes, bytes.size() - 3);
    const QByteArray large = noise(40, 30, true).bytes();
    expectWholeOrNothing(large, large.size() - 5);
}

#include "tests/player/bitmaps/bitmapfiles.h"
#include "tests/player/bitmaps/bitmaptest.h"

namespace {

using Pixels = std::vector<QRgb>;
const QRgb kRed = qRgb(255, 0, 0);
const QRgb kGreen = qRgb(0, 255, 0);
const QRgb kBlue = qRgb(0, 0, 255);
const QRgb kBlack = qRgb(0, 0, 0);
const QRgb kOdd = qRgb(1, 2, 3);

QByteArray hex(const char* digits)
{
    return QByteArray::fromHex(digits);
}

Pixels shown(const BmpFile& file)
{
    return pixelsOf(skinBitmapOf(file.bytes()));
}

} // namespace

TEST(Bmp, of24BitsHasItsPixelsFromTheLowestLineUp)
{
    const BmpFile file{.width = 2, .height = 2, .pixels = hex("0000ff 00ff00 0000  ff0000 030201 0000")};
    EXPECT_EQ(shown(file), (Pixels{kBlue, kOdd, kRed, kGreen}));
    const std::optional<QImage> image = skinBitmapOf(file.bytes());
    EXPECT_EQ(image->format(), QImage::Format_RGB32);
    EXPECT_EQ(image->devicePixelRatio(), 1);
}

TEST(Bmp, ofANegativeHeightHasItsPixelsFromTheHighestLineDown)
{
    const BmpFile file{.width = 1, .height = -2, .pixels = hex("0000ff00 00ff0000")};
    EXPECT_EQ(shown(file), (Pixels{kRed, kGreen}));
}

TEST(Bmp, of1BitHasAPalette)
{
    const BmpFile file{.width = 10, .depth = 1, .pixels = hex("a0 40 0000"), .palette = {kOdd, kRed}};
    EXPECT_EQ(shown(file), (Pixels{kRed, kOdd, kRed, kOdd, kOdd, kOdd, kOdd, kOdd, kOdd, kRed}));
}

TEST(Bmp, of4BitsHasAPalette)
{
    const BmpFile file{
        .width = 3, .depth = 4, .pixels = hex("12 30 0000"), .palette = {kBlack, kRed, kGreen, kBlue}};
    EXPECT_EQ(shown(file), (Pixels{kRed, kGreen, kBlue}));
}

TEST(Bmp, of8BitsHasAPalette)
{
    std::vector<QRgb> palette;
    for (int i = 0; i < 256; ++i)
        palette.push_back(qRgb(i, 255 - i, 7));
    const BmpFile file{.width = 3, .depth = 8, .pixels = hex("00 80 ff 00"), .palette = palette};
    EXPECT_EQ(shown(file), (Pixels{palette[0], palette[128], palette[255]}));
}

TEST(Bmp, isBlackWhereItsPaletteHasNoColour)
{
    const BmpFile file{
        .width = 3, .depth = 8, .pixels = hex("00 01 02 00"), .palette = {kRed, kGreen}, .coloursUsed = 2};
    EXPECT_EQ(shown(file), (Pixels{kRed, kGreen, kBlack}));
}

TEST(Bmp, readsNoColourFromItsPixels)
{
    // Of the 256 colours that it means there are two before the pixels.
    const BmpFile file{.width = 3, .depth = 8, .pixels = hex("00 01 02 00"), .palette = {kRed, kGreen}};
    EXPECT_EQ(shown(file), (Pixels{kRed, kGreen, kBlack}));
}

TEST(Bmp, findsItsPixelsBehindThePaletteWhenNoPlaceIsTold)
{
    for (const quint32 offset : {0u, 13u}) {
        const BmpFile file{.width = 2,
                           .depth = 8,
                           .pixels = hex("00 01 0000"),
                           .palette = {kRed, kGreen},
                           .coloursUsed = 2,
                           .offset = offset};
        EXPECT_EQ(shown(file), (Pixels{kRed, kGreen}));
    }
}

TEST(Bmp, findsItsPixelsAtTheirPlace)
{
    const BmpFile file{.pixels = hex("ffffffff 0000ff00"), .offset = 14 + 40 + 4};
    EXPECT_EQ(shown(file), Pixels{kRed});
}

TEST(Bmp, of32BitsIsOpaque)
{
    const BmpFile file{.width = 2, .depth = 32, .pixels = hex("0000ff00 03020180")};
    EXPECT_EQ(shown(file), (Pixels{kRed, kOdd}));
    EXPECT_EQ(skinBitmapOf(file.bytes())->format(), QImage::Format_RGB32);
}

TEST(Bmp, of32BitsAndMasksWithoutAlphaIsOpaque)
{
    const BmpFile file{.width = 2,
                       .depth = 32,
                       .pixels = hex("00ff0000 80010203"),
                       .compression = 3,
                       .masks = {0x0000ff00, 0x00ff0000, 0xff000000}};
    EXPECT_EQ(shown(file), (Pixels{kRed, qRgb(1, 2, 3)}));
    EXPECT_EQ(skinBitmapOf(file.bytes())->format(), QImage::Format_RGB32);
}

TEST(Bmp, isTransparentByAnAlphaMask)
{
    const QByteArray pixels = hex("0000ffff 0000ff00 00006480");
    const std::vector<quint32> masks = {0xff0000, 0xff00, 0xff, 0xff000000};
    const BmpFile files[] = {
        {.width = 3, .depth = 32, .pixels = pixels, .compression = 3, .masks = masks, .header = 56},
        {.width = 3, .depth = 32, .pixels = pixels, .compression = 3, .masks = masks, .header = 108},
        {.width = 3, .depth = 32, .pixels = pixels, .compression = 3, .masks = masks, .header = 124},
        {.width = 3, .depth = 32, .pixels = pixels, .compression = 6, .masks = masks},
    };
    for (const BmpFile& file : files) {
        const std::optional<QImage> image = skinBitmapOf(file.bytes());
        ASSERT_TRUE(image) << file.header;
        EXPECT_EQ(image->format(), QImage::Format_ARGB32_Premultiplied);
        EXPECT_EQ(pixelsOf(image), (Pixels{kRed, 0, qRgba(100, 0, 0, 128)})) << file.header;
    }
}

TEST(Bmp, hasNoAlphaMaskWithoutBitFields)
{
    const BmpFile file{
        .depth = 32, .pixels = hex("0000ff00"), .masks = {0xff, 0xff00, 0xff0000, 0xff000000}, .header = 108};
    EXPECT_EQ(shown(file), Pixels{kRed});
}

TEST(Bmp, of16BitsHasFiveOfEachColour)
{
    const BmpFile file{.width = 4, .depth = 16, .pixels = hex("007c e003 1f00 1080")};
    EXPECT_EQ(shown(file), (Pixels{kRed, kGreen, kBlue, qRgb(0, 0, 132)}));
}

TEST(Bmp, of16BitsHasWhatItsMasksSay)
{
    const BmpFile file{.width = 4,
                       .depth = 16,
                       .pixels = hex("00f8 e007 1f00 2000"),
                       .compression = 3,
                       .masks = {0xf800, 0x07e0, 0x001f}};
    EXPECT_EQ(shown(file), (Pixels{kRed, kGreen, kBlue, qRgb(0, 4, 0)}));
}

TEST(Bmp, takesAnyMasks)
{
    for (const quint32 mask : {0u, 1u, 0x80000000u, 0xffffffffu, 0x80000001u, 0x0f0f0f0fu})
        for (const quint16 depth : {quint16{16}, quint16{32}})
            EXPECT_EQ(shown({.depth = depth,
                             .pixels = hex("ffffffff"),
                             .compression = 3,
                             .masks = {mask, mask, mask, mask},
                             .header = 124})
                          .size(),
                      1u)
                << mask;
}

TEST(Bmp, ofTheOldestKindHasPaletteEntriesOfThreeBytes)
{
    const BmpFile file{
        .width = 2, .depth = 1, .pixels = hex("40000000"), .palette = {kOdd, kGreen}, .header = 12};
    EXPECT_EQ(shown(file), (Pixels{kOdd, kGreen}));
    EXPECT_EQ(shown({.pixels = hex("0000ff00"), .header = 12}), Pixels{kRed});
}

TEST(Bmp, ofAnotherKindIsNone)
{
    const QByteArray pixels(64, '\0');
    for (const quint16 depth : std::initializer_list<quint16>{0, 2, 3, 5, 15, 31, 33, 64, 65535})
        EXPECT_FALSE(skinBitmapOf(BmpFile{.depth = depth, .pixels = pixels}.bytes())) << depth;
    for (const quint32 compression : {1u, 2u, 3u, 4u, 5u, 6u, 7u, 11u, 0xffffffffu})
        EXPECT_FALSE(skinBitmapOf(BmpFile{.pixels = pixels, .compression = compression}.bytes()))
            << compression;
    for (const quint32 header : {0u, 11u, 13u, 16u, 39u, 0x7fffffffu, 0xffffffffu}) {
        QByteArray bytes = BmpFile{.pixels = pixels}.bytes();
        QByteArray length;
        addLittle(length, header);
        EXPECT_FALSE(skinBitmapOf(bytes.replace(14, 4, length))) << header;
    }
    EXPECT_FALSE(skinBitmapOf(
        BmpFile{.depth = 16, .pixels = pixels, .compression = 3, .masks = {1, 2, 4}, .header = 64}.bytes()));
}

TEST(Bmp, ofASizeBeyondTheLimitsIsNone)
{
    const QByteArray pixels(256, '\0');
    const std::pair<qint32, qint32> sizes[] = {{0, 1},       {1, 0},      {-1, 1},        {16385, 1},
                                               {1, 16385},   {1, -16385}, {16384, 16384}, {INT_MAX, INT_MAX},
                                               {1, INT_MIN}, {INT_MIN, 1}};
    for (const auto& [width, height] : sizes)
        for (const quint32 compression : {0u, 1u})
            EXPECT_FALSE(skinBitmapOf(BmpFile{
                .width = width, .height = height, .depth = 8, .pixels = pixels, .compression = compression}
                                          .bytes()))
                << width << ' ' << height;
}

TEST(Bmp, ofTheLargestSidesIsThere)
{
    const BmpFile wide{.width = 16384, .height = 1, .depth = 1, .pixels = QByteArray(2048, '\0')};
    EXPECT_EQ(skinBitmapOf(wide.bytes()).value_or(QImage()).size(), QSize(16384, 1));
    const BmpFile high{.width = 1, .height = -16384, .depth = 1, .pixels = QByteArray(65536, '\0')};
    EXPECT_EQ(skinBitmapOf(high.bytes()).value_or(QImage()).size(), QSize(1, 16384));
}

TEST(Bmp, thatIsCutIsNone)
{
    const std::vector<QRgb> palette = {kOdd, kRed};
    for (const quint16 depth : std::initializer_list<quint16>{1, 4, 8, 16, 24, 32}) {
        const int line = (3 * depth + 31) / 32 * 4;
        BmpFile file{.width = 3, .height = 4, .depth = depth, .pixels = QByteArray(4 * line, '\1')};
        if (depth <= 8) {
            file.palette = palette;
            file.coloursUsed = 2;
        }
        const QByteArray bytes = file.bytes();
        const int padding = line - (3 * depth + 7) / 8;
        expectWholeOrNothing(bytes, bytes.size() - padding);
    }
}

#include "player/bitmaps/barepictures.h"
#include "tests/player/bitmaps/bitmapfiles.h"
#include "tests/player/bitmaps/bitmaptest.h"
#include "tests/support/world.h"

#include <QBuffer>
#include <QColorSpace>
#include <QImageWriter>
#include <QRandomGenerator>

namespace {

constexpr qsizetype kPngHeaderEnd = 8 + 25;

QByteArray written(const QImage& image, const char* format, int quality = -1, bool steps = false)
{
    QBuffer buffer;
    QImageWriter writer(&buffer, format);
    writer.setQuality(quality);
    writer.setProgressiveScanWrite(steps);
    EXPECT_TRUE(writer.write(image));
    return buffer.data();
}

QImage noise(int width, int height, QImage::Format format)
{
    QImage image(width, height, QImage::Format_ARGB32);
    QRandomGenerator random(3);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, random.generate() | (x % 2 == 0 ? 0xff000000 : 0));
    return image.convertToFormat(format);
}

quint32 checkSum(const QByteArray& bytes)
{
    quint32 sum = 0xffffffff;
    for (const char byte : bytes) {
        sum ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = sum >> 1 ^ (sum & 1 ? 0xedb88320 : 0);
    }
    return ~sum;
}

QByteArray pngPart(const QByteArray& name, const QByteArray& data)
{
    QByteArray part;
    addBig(part, static_cast<quint32>(data.size()));
    part += name + data;
    addBig(part, checkSum(name + data));
    return part;
}

QByteArray pngHeader(quint32 width, quint32 height, char depth, char colours)
{
    QByteArray data;
    addBig(data, width);
    addBig(data, height);
    (data += depth) += colours;
    data += QByteArray(3, '\0');
    return "\x89PNG\r\n\x1a\n" + pngPart("IHDR", data);
}

QByteArray jpegPart(char marker, const QByteArray& data)
{
    QByteArray part("\xff");
    part += marker;
    addBig(part, static_cast<quint16>(data.size() + 2));
    return part + data;
}

} // namespace

TEST(Png, hasItsColours)
{
    for (const QImage::Format format :
         {QImage::Format_RGB32, QImage::Format_Mono, QImage::Format_Grayscale8}) {
        const QImage image = noise(9, 7, format);
        const std::optional<QImage> read = skinBitmapOf(written(image, "png"));
        ASSERT_TRUE(read);
        EXPECT_EQ(read->format(), QImage::Format_RGB32);
        EXPECT_EQ(*read, image.convertToFormat(QImage::Format_RGB32));
    }
}

TEST(Png, mayBeTransparent)
{
    const QImage image = noise(9, 7, QImage::Format_ARGB32);
    const std::optional<QImage> read = skinBitmapOf(written(image, "png"));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->format(), QImage::Format_ARGB32_Premultiplied);
    EXPECT_EQ(*read, image.convertToFormat(QImage::Format_ARGB32_Premultiplied));
}

TEST(Png, mayHaveATransparentColourInItsPalette)
{
    QImage image(2, 1, QImage::Format_Indexed8);
    image.setColorTable({qRgba(255, 0, 0, 255), qRgba(0, 255, 0, 0)});
    image.setPixel(0, 0, 0);
    image.setPixel(1, 0, 1);
    EXPECT_EQ(pixelsOf(skinBitmapOf(written(image, "png"))), (std::vector<QRgb>{qRgb(255, 0, 0), 0}));
}

TEST(Png, keepsItsNumbersWhateverItsProfile)
{
    QImage image = noise(9, 7, QImage::Format_RGB32);
    const QImage expected = image;
    image.setColorSpace(QColorSpace(QColorSpace::AdobeRgb));
    const QByteArray profiled = written(image, "png");
    ASSERT_TRUE(profiled.contains("iCCP"));
    const QByteArray plain = written(expected, "png");
    const QByteArray gamma = plain.first(kPngHeaderEnd) + pngPart("gAMA", QByteArray::fromHex("0000ffff")) +
                             plain.sliced(kPngHeaderEnd);
    for (const QByteArray& file : {profiled, gamma}) {
        const std::optional<QImage> read = skinBitmapOf(file);
        ASSERT_TRUE(read);
        EXPECT_EQ(*read, expected);
        EXPECT_FALSE(read->colorSpace().isValid());
    }
}

TEST(Png, hasAPixelRatioOfOne)
{
    QImage image = noise(9, 7, QImage::Format_RGB32);
    image.setDevicePixelRatio(2);
    EXPECT_EQ(skinBitmapOf(written(image, "png"))->devicePixelRatio(), 1);
}

TEST(Png, thatIsCutIsNone)
{
    const QByteArray file = written(noise(9, 7, QImage::Format_ARGB32), "png");
    expectWholeOrNothing(file, file.size());
}

TEST(Png, whosePixelsAreDamagedIsNone)
{
    const QByteArray file = written(noise(9, 7, QImage::Format_RGB32), "png");
    for (qsizetype at = file.indexOf("IDAT"); at < file.indexOf("IEND") - 4; ++at) {
        QByteArray damaged = file;
        damaged[at] = static_cast<char>(damaged[at] ^ 1);
        EXPECT_FALSE(skinBitmapOf(damaged)) << at;
    }
}

TEST(Png, ofASizeBeyondTheLimitsIsNone)
{
    const QByteArray end = pngPart("IDAT", QByteArray(100, '\0')) + pngPart("IEND", {});
    const std::pair<quint32, quint32> sizes[] = {{0, 1},     {1, 0},         {16385, 1},
                                                 {1, 16385}, {16384, 16384}, {0xffffffff, 0xffffffff}};
    for (const auto& [width, height] : sizes)
        EXPECT_FALSE(skinBitmapOf(pngHeader(width, height, 1, 0) + end)) << width << ' ' << height;
}

TEST(Png, ofASizeJustBeyondTheLimitsIsNone)
{
    const std::pair<QSize, bool> sizes[] = {{{16384, 1}, true},  {{16385, 1}, false},  {{1, 16384}, true},
                                            {{1, 16385}, false}, {{8192, 4096}, true}, {{8192, 4097}, false}};
    for (const auto& [size, there] : sizes) {
        QImage mono(size, QImage::Format_Mono);
        mono.fill(1);
        EXPECT_EQ(skinBitmapOf(written(mono, "png")).has_value(), there)
            << size.width() << ' ' << size.height();
    }
}

TEST(Png, thatPromisesMoreThanItCanHaveIsNone)
{
    const QByteArray end = pngPart("IDAT", QByteArray(100, '\0')) + pngPart("IEND", {});
    EXPECT_FALSE(skinBitmapOf(pngHeader(8192, 4096, 8, 6) + end));
    EXPECT_FALSE(barePng(pngHeader(8192, 4096, 8, 6) + end)); // what the toolkit's reader never sees
    EXPECT_TRUE(barePng(pngHeader(300, 300, 8, 0) + end));
}

TEST(Png, ofOneColourIsThereHoweverFarItIsPacked)
{
    QImage image(4000, 4000, QImage::Format_RGB32);
    image.fill(qRgb(5, 5, 5));
    const QByteArray file = written(image, "png");
    EXPECT_LT(file.size(), 100'000);
    EXPECT_EQ(skinBitmapOf(file).value_or(QImage()), image);
}

TEST(Png, hasNoTextsUnpacked)
{
    // A reader of texts would want to know what is in this one.
    const QByteArray file = written(noise(9, 7, QImage::Format_RGB32), "png");
    const QByteArray text =
        pngPart("zTXt", "Title" + QByteArray(2, '\0') + qCompress(QByteArray(1000, 'x')).mid(4));
    const QByteArray with = file.first(kPngHeaderEnd) + text + file.sliced(kPngHeaderEnd);
    ASSERT_EQ(QImage::fromData(with, "png").text(u"Title"_qs).size(), 1000);
    EXPECT_EQ(skinBitmapOf(with).value_or(QImage()).textKeys(), QStringList());
}

TEST(Jpeg, isReadAsTheToolkitReadsIt)
{
    for (const bool steps : {false, true})
        for (const QImage::Format format : {QImage::Format_RGB32, QImage::Format_Grayscale8}) {
            const QByteArray file = written(noise(33, 17, format), "jpg", 90, steps);
            const std::optional<QImage> read = skinBitmapOf(file);
            ASSERT_TRUE(read);
            EXPECT_EQ(read->format(), QImage::Format_RGB32);
            EXPECT_EQ(*read, QImage::fromData(file, "jpg").convertToFormat(QImage::Format_RGB32));
        }
}

TEST(Jpeg, thatIsCutIsNone)
{
    for (const bool steps : {false, true}) {
        const QByteArray file = written(noise(33, 17, QImage::Format_RGB32), "jpg", 90, steps);
        expectWholeOrNothing(file, file.size());
    }
}

TEST(Jpeg, isNotEndedByAnythingInsideAPart)
{
    QByteArray file = written(noise(33, 17, QImage::Format_RGB32), "jpg", 90);
    file.insert(2, jpegPart('\xe1', "thumbnail \xff\xd8\xff\xd9"));
    const std::optional<QImage> read = skinBitmapOf(file);
    ASSERT_TRUE(read);
    EXPECT_EQ(*read, QImage::fromData(file, "jpg").convertToFormat(QImage::Format_RGB32));
    EXPECT_FALSE(skinBitmapOf(file.chopped(2)));
}

TEST(Jpeg, mayHaveRestarts)
{
    // These are two blocks of one colour with a restart between them.
    const QByteArray table = jpegPart('\xdb', '\0' + QByteArray(64, '\x08'));
    const QByteArray frame = jpegPart('\xc0', QByteArray::fromHex("08 0008 0010 01 011100"));
    const QByteArray codes =
        jpegPart('\xc4', QByteArray::fromHex("00 01010000000000000000000000000000 0006")) +
        jpegPart('\xc4', QByteArray::fromHex("10 01000000000000000000000000000000 00"));
    const QByteArray restarts = jpegPart('\xdd', QByteArray::fromHex("0001"));
    const QByteArray scan = jpegPart('\xda', QByteArray::fromHex("01 0100 003f00"));
    const QByteArray file =
        "\xff\xd8" + table + frame + codes + restarts + scan + QByteArray::fromHex("bf7f ffd0 bf7f ffd9");
    const std::optional<QImage> read = skinBitmapOf(file);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->size(), QSize(16, 8));
    EXPECT_EQ(read->pixel(7, 7), qRgb(191, 191, 191));
    EXPECT_EQ(read->pixel(8, 0), qRgb(191, 191, 191));
    expectWholeOrNothing(file, file.size());
}

TEST(Jpeg, hasItsColoursMeantAsItSays)
{
    QByteArray file = written(noise(33, 17, QImage::Format_RGB32), "jpg", 90);
    file.remove(2, 18); // the part that says luminance and colour
    const QByteArray luminance = file;
    file.insert(2, jpegPart('\xee', QByteArray("Adobe\0\x64\0\0\0\0\0", 12))); // red, green and blue
    EXPECT_NE(*skinBitmapOf(file), *skinBitmapOf(luminance));
    EXPECT_EQ(*skinBitmapOf(file), QImage::fromData(file, "jpg").convertToFormat(QImage::Format_RGB32));
}

TEST(Jpeg, isNotTurned)
{
    QByteArray file = written(noise(33, 17, QImage::Format_RGB32), "jpg", 90);
    // It says orientation 6, which stands for a quarter turn.
    file.insert(
        2, jpegPart('\xe1', QByteArray("Exif\0\0MM\0\x2a\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0\x06\0\0"
                                       "\0\0\0\0",
                                       32)));
    EXPECT_EQ(skinBitmapOf(file).value_or(QImage()).size(), QSize(33, 17));
}

TEST(Jpeg, keepsItsNumbersWhateverItsProfile)
{
    QImage image = noise(33, 17, QImage::Format_RGB32);
    const QByteArray plain = written(image, "jpg", 90);
    image.setColorSpace(QColorSpace(QColorSpace::AdobeRgb));
    const QByteArray profiled = written(image, "jpg", 90);
    ASSERT_TRUE(profiled.contains("ICC_PROFILE"));
    EXPECT_EQ(*skinBitmapOf(profiled), *skinBitmapOf(plain));
    EXPECT_FALSE(skinBitmapOf(profiled)->colorSpace().isValid());
}

TEST(Jpeg, ofASizeBeyondTheLimitsIsNone)
{
    const QByteArray file = written(noise(33, 17, QImage::Format_RGB32), "jpg", 90);
    const qsizetype frame = file.indexOf("\xff\xc0");
    for (const char* size : {"00000021", "00110000", "4001 0001", "0001 4001", "4000 4000", "1000 2000"})
        EXPECT_FALSE(skinBitmapOf(QByteArray(file).replace(frame + 5, 4, QByteArray::fromHex(size)))) << size;
}

TEST(Jpeg, withTwoFramesIsNone)
{
    QByteArray file = written(noise(33, 17, QImage::Format_RGB32), "jpg", 90);
    const qsizetype frame = file.indexOf("\xff\xc0");
    const qsizetype length = 2 + static_cast<quint8>(file[frame + 3]);
    EXPECT_FALSE(skinBitmapOf(QByteArray(file).insert(frame, file.mid(frame, length))));
}

TEST(Jpeg, ofVeryManyScansIsNone)
{
    QByteArray file = written(noise(33, 17, QImage::Format_RGB32), "jpg", 90, true);
    const qsizetype last = file.lastIndexOf("\xff\xda");
    const QByteArray scan = file.mid(last, file.size() - 2 - last);
    for (int i = 0; i < 200; ++i)
        file.insert(last, scan);
    EXPECT_FALSE(skinBitmapOf(file));
}

TEST(SkinBitmap, ofAnotherFormatIsNone)
{
    const QImage image = noise(9, 7, QImage::Format_RGB32);
    for (const char* format : {"ppm", "xpm", "xbm", "ico"})
        EXPECT_FALSE(skinBitmapOf(written(image, format))) << format;
    EXPECT_FALSE(skinBitmapOf("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>"));
}

TEST(SkinBitmap, ofNothingIsNone)
{
    for (const QByteArray& bytes :
         {QByteArray(), QByteArray("B"), QByteArray("BM"), QByteArray("GIF89a"), QByteArray("\xff\xd8"),
          QByteArray("\xff\xd8\xff\xd9"), QByteArray("\x89PNG\r\n\x1a\n"), QByteArray(1000, '\0')})
        EXPECT_FALSE(skinBitmapOf(bytes)) << bytes.toHex().constData();
}

namespace {

class LoadSkinBitmap : public testing::Test {
protected:
    std::optional<QImage> loaded(const QString& path) { return loadSkinBitmap(world.fileNumbers, path); }

    World world;
    QImage image = noise(9, 7, QImage::Format_RGB32);
};

} // namespace

TEST_F(LoadSkinBitmap, isTheFilesContentWhateverItsName)
{
    world.directory.write("disk/face.bmp", written(image, "png"));
    world.directory.write("disk/face.png", written(image, "bmp"));
    EXPECT_EQ(loaded(u"D:\\face.bmp"_qs).value_or(QImage()), image);
    EXPECT_EQ(loaded(u"D:\\FACE.PNG"_qs).value_or(QImage()), image);
}

TEST_F(LoadSkinBitmap, isNoneForAFileThatThereIsNot)
{
    world.directory.makeDirectory("disk/folder");
    world.directory.write("disk/empty.bmp");
    for (const QString& path :
         {u"D:\\none.bmp"_qs, u"D:\\folder"_qs, u"D:\\empty.bmp"_qs, u"Y:\\a.bmp"_qs, QString()})
        EXPECT_FALSE(loaded(path)) << path.toStdString();
}

TEST_F(LoadSkinBitmap, isNoneForAVeryLongFile)
{
    QFile file(QString::fromUtf8(world.directory.at("disk/long.bmp")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(written(image, "bmp"));
    ASSERT_TRUE(file.resize(kMostBitmapBytes));
    EXPECT_TRUE(loaded(u"D:\\long.bmp"_qs));
    ASSERT_TRUE(file.resize(kMostBitmapBytes + 1));
    EXPECT_FALSE(loaded(u"D:\\long.bmp"_qs));
    for (const qint64 length : {qint64{1} << 40, (qint64{1} << 32) + 1000}) { // sparse
        ASSERT_TRUE(file.resize(length));
        EXPECT_FALSE(loaded(u"D:\\long.bmp"_qs)) << length;
    }
}

TEST_F(LoadSkinBitmap, leavesNoFileOpen)
{
    world.directory.write("disk/face.png", written(image, "png"));
    for (int i = 0; i < 600; ++i) {
        EXPECT_TRUE(loaded(u"D:\\face.png"_qs));
        EXPECT_FALSE(loaded(u"D:\\none.png"_qs));
    }
    EXPECT_EQ(world.fileNumbers.freeFile(), 1);
}

TEST_F(LoadSkinBitmap, isNoneWhenNoNumberIsLeft)
{
    world.directory.write("disk/face.png", written(image, "png"));
    for (int number = 1; number <= 511; ++number)
        world.fileNumbers.openBinary(number, u"D:\\face.png"_qs);
    EXPECT_FALSE(loaded(u"D:\\face.png"_qs));
}

#include "tests/player/bitmaps/bitmapfiles.h"
#include "tests/player/bitmaps/bitmaptest.h"

namespace {

// Returns palette indices line by line from the top, one digit each, and none for no bitmap.
QByteArray shown(const BmpFile& file)
{
    QByteArray digits;
    for (const QRgb pixel : pixelsOf(skinBitmapOf(file.bytes())))
        digits += QByteArray::number(qRed(pixel), 16);
    return digits;
}

BmpFile runs(quint16 depth, qint32 width, qint32 height, const char* codes)
{
    BmpFile file{.width = width,
                 .height = height,
                 .depth = depth,
                 .pixels = QByteArray::fromHex(codes),
                 .compression = depth == 8 ? 1u : 2u,
                 .coloursUsed = 16};
    for (int i = 0; i < 16; ++i)
        file.palette.push_back(qRgb(i, 0, 0));
    return file;
}

} // namespace

TEST(BmpRuns8, repeatAnIndex)
{
    EXPECT_EQ(shown(runs(8, 4, 2, "0305 0106 0000  0407 0000 0001")), "77775556");
}

TEST(BmpRuns8, haveAbsoluteStretchesPaddedToTwoBytes)
{
    EXPECT_EQ(shown(runs(8, 4, 1, "0003 010203 00 0109 0001")), "1239");
    EXPECT_EQ(shown(runs(8, 5, 1, "0004 01020304 0109 0001")), "12349");
}

TEST(BmpRuns8, moveRightAndOn)
{
    EXPECT_EQ(shown(runs(8, 4, 3, "0105 0002 0101 0106 0002 0001 0107 0001")), "000700605000");
}

TEST(BmpRuns8, leaveTheFirstColourWhereTheyEndEarly)
{
    EXPECT_EQ(shown(runs(8, 3, 2, "0105 0000 0106 0001")), "600500");
    EXPECT_EQ(shown(runs(8, 3, 2, "0001")), "000000");
}

TEST(BmpRuns8, neverLeaveTheirLine)
{
    EXPECT_EQ(shown(runs(8, 3, 2, "ff05 0000 ff06 0001")), "666555");
    EXPECT_EQ(shown(runs(8, 3, 2, "0205 0004 01020304 0109 0000 0306 0001")), "666551");
    EXPECT_EQ(shown(runs(8, 3, 2, "0002 ff00 0105 0000 0306 0001")), "666000");
    EXPECT_EQ(shown(runs(8, 3, 2, "0002 00ff 0105 0001")), "000000");
}

TEST(BmpRuns8, mayLackTheEndsMark)
{
    EXPECT_EQ(shown(runs(8, 3, 2, "0305 0000 0306 0000")), "666555");
    EXPECT_EQ(shown(runs(8, 3, 2, "0305 0000 0306")), "666555");
    EXPECT_EQ(shown(runs(8, 3, 2, "0305 0000 0206")), "");
    EXPECT_EQ(shown(runs(8, 3, 2, "0305 0000")), "");
}

TEST(BmpRuns8, mayComeFromTheTop)
{
    EXPECT_EQ(shown(runs(8, 3, -2, "0305 0000 0306 0001")), "555666");
}

TEST(BmpRuns4, alternateTwoIndices)
{
    EXPECT_EQ(shown(runs(4, 5, 1, "0512 0001")), "12121");
    EXPECT_EQ(shown(runs(4, 6, 1, "0312 0345 0001")), "121454");
}

TEST(BmpRuns4, haveAbsoluteStretchesPaddedToTwoBytes)
{
    EXPECT_EQ(shown(runs(4, 6, 1, "0005 123450 00 016f 0001")), "123456");
    EXPECT_EQ(shown(runs(4, 5, 1, "0003 1230 0245 0001")), "12345");
    EXPECT_EQ(shown(runs(4, 5, 1, "0004 1234 0155 0001")), "12345");
}

TEST(BmpRuns4, moveRightAndOn)
{
    EXPECT_EQ(shown(runs(4, 4, 2, "0150 0002 0101 0267 0001")), "00675000");
}

TEST(BmpRuns4, neverLeaveTheirLine)
{
    EXPECT_EQ(shown(runs(4, 3, 2, "ff12 0000 0008 34343434 0001")), "343121");
}

TEST(BmpRuns, ofTheOtherDepthAreNone)
{
    BmpFile file = runs(8, 1, 1, "0105 0001");
    file.compression = 2;
    EXPECT_FALSE(skinBitmapOf(file.bytes()));
    file = runs(4, 1, 1, "0105 0001");
    file.compression = 1;
    EXPECT_FALSE(skinBitmapOf(file.bytes()));
}

TEST(BmpRuns, thatAreCutAreNone)
{
    for (const quint16 depth : {quint16{4}, quint16{8}}) {
        const BmpFile file = runs(depth, 9, 3, "0512 0004 34343434 0000  0002 0401 0512 0001");
        const QByteArray bytes = file.bytes();
        expectWholeOrNothing(bytes, bytes.size() - 2);
    }
}

TEST(BmpRuns, ofManyPixelsAndNoDataAreNone)
{
    EXPECT_FALSE(skinBitmapOf(runs(8, 8192, 4096, "0105 0000").bytes()));
}

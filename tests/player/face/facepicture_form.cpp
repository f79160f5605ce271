#include "player/face/facepicture.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace {

// Every pixel tells where it is.
QImage counted(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, qRgb(x, y, 100 + x + y));
    return image;
}

struct FacePictureTest : testing::Test {
    QRect item;
    QColor itemColour = Qt::red;
    FacePicture picture{[this](QImage& face, const QRect& area) {
        QPainter painter(&face);
        painter.setClipRect(area);
        painter.fillRect(item, itemColour);
    }};
};

} // namespace

TEST(CopyPixels, copiesARectangleAsItIs)
{
    QImage target(8, 8, QImage::Format_RGB32);
    target.fill(Qt::black);
    const QImage source = counted({8, 8});
    EXPECT_EQ(copyPixels(target, {1, 2}, source, {3, 4, 2, 2}), QRect(1, 2, 2, 2));
    EXPECT_EQ(target.pixel(1, 2), source.pixel(3, 4));
    EXPECT_EQ(target.pixel(2, 3), source.pixel(4, 5));
    EXPECT_EQ(target.pixel(3, 3), qRgb(0, 0, 0));
    EXPECT_EQ(target.pixel(0, 2), qRgb(0, 0, 0));
}

TEST(CopyPixels, isClippedOnBothSides)
{
    QImage target(4, 4, QImage::Format_RGB32);
    target.fill(Qt::black);
    const QImage source = counted({4, 4});
    EXPECT_EQ(copyPixels(target, {0, 0}, source, {-1, -1, 3, 3}), QRect(1, 1, 2, 2));
    EXPECT_EQ(target.pixel(1, 1), source.pixel(0, 0));
    EXPECT_EQ(copyPixels(target, {-1, 3}, source, {0, 0, 4, 4}), QRect(0, 3, 3, 1));
    EXPECT_EQ(target.pixel(0, 3), source.pixel(1, 0));
    EXPECT_TRUE(copyPixels(target, {4, 0}, source, {0, 0, 4, 4}).isEmpty());
    EXPECT_TRUE(copyPixels(target, {0, 0}, source, {4, 0, 4, 4}).isEmpty());
    EXPECT_TRUE(copyPixels(target, {0, 0}, source, {0, 0, -4, 4}).isEmpty());
    EXPECT_TRUE(copyPixels(target, {0, 0}, QImage(), {0, 0, 4, 4}).isEmpty());
}

TEST_F(FacePictureTest, isBlackWhereTheBackgroundDoesNotReach)
{
    picture.reset({4, 3}, counted({2, 2}));
    EXPECT_EQ(picture.size(), QSize(4, 3));
    EXPECT_EQ(picture.composed().pixel(1, 1), counted({2, 2}).pixel(1, 1));
    EXPECT_EQ(picture.composed().pixel(2, 1), qRgb(0, 0, 0));
    EXPECT_EQ(picture.composed().pixel(3, 2), qRgb(0, 0, 0));
}

TEST_F(FacePictureTest, hasItsItemsAboveWhatIsPaintedOnIt)
{
    picture.reset({6, 6}, counted({6, 6}));
    item = {2, 2, 2, 2};
    QImage glyph(4, 4, QImage::Format_RGB32);
    glyph.fill(Qt::green);
    picture.compose(picture.paint({1, 1}, glyph, glyph.rect()));
    EXPECT_EQ(picture.composed().pixelColor(1, 1), QColor(Qt::green));
    EXPECT_EQ(picture.composed().pixelColor(2, 2), QColor(Qt::red));
    item = {};
    picture.compose({2, 2, 2, 2});
    EXPECT_EQ(picture.composed().pixelColor(2, 2), QColor(Qt::green)) << "what was below an item comes back";
}

TEST_F(FacePictureTest, showsAnItemOnlyWhereItIsComposedAnew)
{
    picture.reset({6, 6}, counted({6, 6}));
    item = {0, 0, 6, 6};
    picture.compose({1, 1, 1, 1});
    EXPECT_EQ(picture.composed().pixelColor(1, 1), QColor(Qt::red));
    EXPECT_EQ(picture.composed().pixel(2, 1), counted({6, 6}).pixel(2, 1));
}

TEST_F(FacePictureTest, isItselfAtFactorOne)
{
    picture.reset({5, 4}, counted({5, 4}));
    EXPECT_EQ(picture.scaled(1), picture.composed());
}

TEST_F(FacePictureTest, isTheMeanOfWhatLiesUnderAPixelWhenItIsSmaller)
{
    QImage stripes(4, 2, QImage::Format_RGB32);
    for (int x = 0; x < 4; ++x)
        for (int y = 0; y < 2; ++y)
            stripes.setPixel(x, y, qRgb(40 * x, 100 * y, 200));
    picture.reset({4, 2}, stripes);
    const QImage half = picture.scaled(0.5);
    ASSERT_EQ(half.size(), QSize(2, 1));
    EXPECT_EQ(half.pixel(0, 0), qRgb(20, 50, 200));
    EXPECT_EQ(half.pixel(1, 0), qRgb(100, 50, 200));
    const QImage most = picture.scaled(0.75); // pixels of 0..4/3, 4/3..8/3, 8/3..4; rows of 0..4/3, 4/3..2
    ASSERT_EQ(most.size(), QSize(3, 2));
    EXPECT_NEAR(qRed(most.pixel(0, 0)), 10, 1);
    EXPECT_NEAR(qRed(most.pixel(1, 0)), 60, 1);
    EXPECT_NEAR(qGreen(most.pixel(1, 0)), 25, 1);
    EXPECT_EQ(qGreen(most.pixel(1, 1)), 100);
    EXPECT_EQ(qBlue(most.pixel(2, 1)), 200) << "weights are whole";
}

TEST_F(FacePictureTest, repeatsEachPixelAtAWholeFactor)
{
    picture.reset({5, 4}, counted({5, 4}));
    for (const int factor : {2, 3, 4, 7}) {
        const QImage& scaled = picture.scaled(factor);
        ASSERT_EQ(scaled.size(), QSize(5, 4) * factor);
        for (int y = 0; y < scaled.height(); ++y)
            for (int x = 0; x < scaled.width(); ++x)
                ASSERT_EQ(scaled.pixel(x, y), counted({5, 4}).pixel(x / factor, y / factor)) << x << ' ' << y;
    }
}

TEST_F(FacePictureTest, mixesNeighboursByTheirShareAtAFraction)
{
    QImage stripes(2, 1, QImage::Format_RGB32);
    stripes.setPixel(0, 0, qRgb(0, 0, 0));
    stripes.setPixel(1, 0, qRgb(200, 100, 40));
    picture.reset({2, 1}, stripes);
    const QImage& scaled = picture.scaled(1.5); // pixels of 0..2/3, 2/3..4/3, 4/3..2
    ASSERT_EQ(scaled.size(), QSize(3, 2));
    EXPECT_EQ(scaled.pixel(0, 0), qRgb(0, 0, 0));
    EXPECT_EQ(scaled.pixel(1, 0), qRgb(100, 50, 20));
    EXPECT_EQ(scaled.pixel(2, 0), qRgb(200, 100, 40));
}

// What is scaled anew must be what scaling everything gives: no seams.
TEST_F(FacePictureTest, scalesAPartAsItScalesTheWhole)
{
    for (const qreal factor : {1.25, 1.5, 1.75, 2.0, 3.0, 1.1, 0.81, 0.5, 0.3}) {
        picture.reset({40, 30}, counted({40, 30}));
        picture.scaled(factor);
        QImage glyph(7, 5, QImage::Format_RGB32);
        glyph.fill(Qt::white);
        for (int step = 0; step < 40; ++step) {
            item = {step % 36, step % 28, 4, 4};
            picture.compose(picture.paint({step, step / 2}, glyph, glyph.rect()) | QRect(0, 0, 40, 30));
            item = {(step * 7) % 36, (step * 5) % 28, 3, 2};
            picture.compose(item);
            picture.compose(QRect(step % 36, step % 28, 4, 4));
        }
        const QImage inParts = picture.scaled(factor).copy();
        QImage composed = picture.composed().copy();
        item = {};
        picture.reset({40, 30}, composed);
        EXPECT_EQ(picture.scaled(factor), inParts) << factor;
    }
}

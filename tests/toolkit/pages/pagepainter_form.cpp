#include "toolkit/pages/pagepainter.h"

#include "tests/support/pagesworld.h"
#include "toolkit/pages/fontwidths.h"
#include "toolkit/pages/reportlayout.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <cmath>

namespace {

class PagePainterTest : public testing::Test {
protected:
    // The page's pixels, of which so many make a point.
    QImage painted(const std::vector<PageItem>& items, double scale) const
    {
        QImage image(static_cast<int>(300 * scale), static_cast<int>(60 * scale), QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.scale(scale, scale);
        paintPage(painter, items, widths);
        return image;
    }
    // The columns of points that hold ink.
    static std::pair<double, double> ink(const QImage& image, double scale)
    {
        int first = image.width();
        int last = -1;
        for (int x = 0; x < image.width(); ++x)
            for (int y = 0; y < image.height(); ++y)
                if (image.pixel(x, y) != 0xFFFFFFFFU) {
                    first = std::min(first, x);
                    last = std::max(last, x);
                }
        return {first / scale, (last + 1) / scale};
    }
    double widthOf(const QString& text, double size) const
    {
        const CharacterTable table(widths, false);
        double width = 0;
        for (const char32_t c : text.toUcs4())
            width += table.of(c);
        return width * size / CharacterWidths::kUnits;
    }

    PageItem item(const QString& text, FieldAlign align = FieldAlign::Left) const
    {
        return {.place = QRectF(10, 10, 280, 12), .text = text, .font = {9, false}, .align = align};
    }

    FontWidths widths;
};

} // namespace

TEST_F(PagePainterTest, aTextIsAsWideAtEveryScale)
{
    const QString text = u"HAVE a look, Wave AVAV Sjøen Мира H"_qs;
    for (const double scale : {0.5, 1.0, 1.333, 2.0, 4.0}) {
        const auto [first, last] = ink(painted({item(text)}, scale), scale);
        EXPECT_NEAR(first, 11, 1.5) << scale;
        EXPECT_NEAR(last, 9 + widthOf(text, 9), 1 + 1 / scale) << scale;
    }
}

TEST_F(PagePainterTest, textsStandLeftCentredAndRight)
{
    const QString text = u"HAH"_qs;
    const double width = widthOf(text, 9);
    EXPECT_NEAR(ink(painted({item(text)}, 4), 4).first, 10.5, 1);
    EXPECT_NEAR(ink(painted({item(text, FieldAlign::Center)}, 4), 4).first, 150 - width / 2 + 0.5, 1);
    EXPECT_NEAR(ink(painted({item(text, FieldAlign::Right)}, 4), 4).second, 289.5, 1);
}

TEST_F(PagePainterTest, whatAScriptMakesWiderIsSqueezedIntoItsField)
{
    for (const QString& text : {QString(60, u'W'), QString(120, u'\u0628'), QString(60, u'\u4E2D')}) {
        const auto [first, last] = ink(painted({item(text)}, 2), 2);
        EXPECT_GE(first, 9.5);
        EXPECT_LE(last, 290.5);
        EXPECT_GT(last, 250) << "it uses the field";
    }
}

TEST_F(PagePainterTest, aTextFromRightToLeftStandsWhereTheFieldSays)
{
    const QString arabic = u"\u0628\u0644\u062F"_qs;
    EXPECT_NEAR(ink(painted({item(arabic)}, 4), 4).first, 10.5, 1.5);
    EXPECT_NEAR(ink(painted({item(arabic, FieldAlign::Right)}, 4), 4).second, 289.5, 1.5);
    const QString mixed = arabic + u" HAH"_qs;
    const QImage image = painted({item(mixed)}, 4);
    EXPECT_NEAR(ink(image, 4).first, 10.5, 1.5);
    EXPECT_LT(ink(image, 4).second, 100);
}

TEST_F(PagePainterTest, charactersOfOtherFontsAreMeasuredAsTheyArePainted)
{
    for (const QString& text : {QString(10, u'\u4E2D'), u"\uFFFD\uFFFDH"_qs, u"Ωλ — “H”"_qs}) {
        const auto [first, last] = ink(painted({item(text)}, 4), 4);
        EXPECT_NEAR(last, 10 + widthOf(text, 9), 2) << text.toStdString();
    }
}

TEST_F(PagePainterTest, aRuleIsSeenAtEveryScale)
{
    const PageItem rule{.place = QRectF(10, 20, 280, 1), .isRule = true};
    for (const double scale : {0.25, 1.0, 3.0}) {
        const auto [first, last] = ink(painted({rule}, scale), scale);
        EXPECT_NEAR(first, 10, 1 / scale) << scale;
        EXPECT_NEAR(last, 290, 1 / scale) << scale;
    }
}

TEST_F(PagePainterTest, boldAndPlainTextsOfAllSizesStandOnTheirLines)
{
    PageItem large = item(u"H"_qs);
    large.place = QRectF(10, 5, 280, 40);
    large.font = {30, true};
    const QImage image = painted({item(u"H"_qs), large, item(u"\u4E2D"_qs)}, 2);
    EXPECT_GT(ink(image, 2).second, 25);
    EXPECT_LT(widthOf(u"H"_qs, 30), CharacterTable(widths, true).of(U'H') * 30.0 / CharacterWidths::kUnits);
}

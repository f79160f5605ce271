#include "toolkit/grids/textpainter.h"

#include <QApplication>
#include <QFontMetrics>
#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace {

class TextPainterTest : public testing::Test {
protected:
    TextPainterTest() : image(600, 40, QImage::Format_RGB32) { image.fill(Qt::white); }

    bool add(const QString& text, qreal width = 590) { return quick.add(text, QPointF(5, 25), width); }
    void draw()
    {
        QPainter painter(&image);
        painter.setFont(QApplication::font());
        quick.draw(painter);
    }
    // Returns the columns of pixels that hold ink.
    std::pair<int, int> ink() const
    {
        int first = image.width();
        int last = -1;
        for (int x = 0; x < image.width(); ++x)
            for (int y = 0; y < image.height(); ++y)
                if (image.pixel(x, y) != 0xFFFFFFFFU) {
                    first = std::min(first, x);
                    last = std::max(last, x);
                }
        return {first, last};
    }

    QImage image;
    TextPainter quick{QApplication::font()};
};

} // namespace

TEST_F(TextPainterTest, drawsWhatTheTextEngineDraws)
{
    const QString text = u"D:\\Bjørk\\Мира 01 - Ωmega (live).mp3 “é”"_qs;
    ASSERT_TRUE(add(text));
    draw();
    const auto [first, last] = ink();
    const int width = QFontMetrics(QApplication::font()).horizontalAdvance(text);
    EXPECT_NEAR(first, 6, 2);
    EXPECT_NEAR(last, 5 + width, 4);
    image.fill(Qt::white);
    draw();
    EXPECT_EQ(ink().second, -1) << "what was drawn is forgotten";
}

TEST_F(TextPainterTest, aTextThatIsTooWideEndsWithDots)
{
    ASSERT_TRUE(add(QString(200, u'W'), 100));
    draw();
    EXPECT_LE(ink().second, 105);
    EXPECT_GT(ink().second, 80);
    image.fill(Qt::white);
    ASSERT_TRUE(add(u"WWWW"_qs, 3));
    draw();
    EXPECT_LE(ink().second, 5 + QFontMetrics(QApplication::font()).horizontalAdvance(QChar(0x2026)));
}

TEST_F(TextPainterTest, aTextThatJustFitsIsNotCut)
{
    const QString text = u"WWWW"_qs;
    const int width = QFontMetrics(QApplication::font()).horizontalAdvance(text);
    ASSERT_TRUE(add(text, width + 1));
    draw();
    EXPECT_NEAR(ink().second, 5 + width, 3);
}

TEST_F(TextPainterTest, scriptsThatNeedATextEngineAreNotTaken)
{
    for (const char16_t* text :
         {u"שלום", u"سلام", u"नमस्ते", u"e\u0301", u"\U0001F3B5", u"漢字", u"a\tb", u"a\nb",
          u"soft\u00ADhyphen", u"\u200Fmark", u"\uE000", u"\uFFFF", u"x\u0489"}) {
        EXPECT_FALSE(add(u"begins "_qs + QString::fromUtf16(text))) << QString::fromUtf16(text).toStdString();
    }
    draw();
    EXPECT_EQ(ink().second, -1) << "nothing of such a text is placed";
    EXPECT_TRUE(add(QString()));
}

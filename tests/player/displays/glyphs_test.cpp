#include "player/displays/displaytext.h"

#include <gtest/gtest.h>

namespace {

constexpr int kFace = 5000;

constexpr int kBlankGlyph = 10;
constexpr int kPoint = 11;
constexpr int kColon = 12;

DisplayFont fontOf(int style, int cells)
{
    return {.origin = {100, 200}, .cell = {9, 13}, .separator = 4, .style = style, .gap = 2, .cells = cells};
}

DisplayText plain(const QString& text)
{
    return {.text = text};
}

std::vector<int> offsetsOf(const std::vector<Glyph>& glyphs)
{
    std::vector<int> result;
    for (const Glyph& glyph : glyphs)
        result.push_back(glyph.offset);
    return result;
}

// Returns the glyph numbers of the digit font.
std::vector<int> digitsOf(int cells, const DisplayText& text)
{
    std::vector<int> result;
    for (const Glyph& glyph : glyphsOf(fontOf(0, cells), text, kFace))
        result.push_back((glyph.source.left() - 100) / 9);
    return result;
}

std::vector<int> shown(int cells, const DisplayValue& value, const DisplayClock& clock = {})
{
    return digitsOf(cells, textOf({.cells = cells}, value, clock));
}

using Numbers = std::vector<int>;

} // namespace

TEST(DigitGlyphs, areCutFromOneRow)
{
    const std::vector<Glyph> expected = {
        {{100 + 1 * 9, 200, 9, 13}, 0},   {{100 + 12 * 9, 200, 4, 13}, 11}, {{100 + 0 * 9, 200, 9, 13}, 17},
        {{100 + 11 * 9, 200, 4, 13}, 28}, {{100 + 10 * 9, 200, 9, 13}, 34}, {{100 + 9 * 9, 200, 9, 13}, 45},
    };
    EXPECT_EQ(glyphsOf(fontOf(0, 0), plain(u"1:0.x9"_qs), kFace), expected);
}

TEST(DigitGlyphs, ofANumberHaveBlanksForLeadingZeros)
{
    EXPECT_EQ(shown(3, 7.0), (Numbers{kBlankGlyph, kBlankGlyph, 7}));
    EXPECT_EQ(shown(3, 70.0), (Numbers{kBlankGlyph, 7, 0}));
    EXPECT_EQ(shown(3, 107.0), (Numbers{1, 0, 7}));
    EXPECT_EQ(shown(3, -7.0), (Numbers{kBlankGlyph, kBlankGlyph, kBlankGlyph, 7}));
}

TEST(DigitGlyphs, ofTheNumberZeroAreBlanksOnly)
{
    EXPECT_EQ(shown(1, 0.0), Numbers{kBlankGlyph});
    EXPECT_EQ(shown(3, 0.0), (Numbers{kBlankGlyph, kBlankGlyph, kBlankGlyph}));
}

TEST(DigitGlyphs, ofATextInANumberDisplayHaveBlanksForLeadingZeros)
{
    EXPECT_EQ(shown(6, u"a0b10"_qs), (Numbers{kBlankGlyph, kBlankGlyph, kBlankGlyph, 1, 0}));
    EXPECT_EQ(shown(6, QString()), Numbers{});
}

TEST(DigitGlyphs, ofMinutesBlankTheVeryFirstZeroAlone)
{
    EXPECT_EQ(shown(0, 65.0), (Numbers{kBlankGlyph, 1, kColon, 0, 5}));
    EXPECT_EQ(shown(0, 5.0), (Numbers{kBlankGlyph, 0, kColon, 0, 5}));
    EXPECT_EQ(shown(0, 0.0), (Numbers{kBlankGlyph, 0, kColon, 0, 0}));
    EXPECT_EQ(shown(0, 605.0), (Numbers{1, 0, kColon, 0, 5}));
}

TEST(DigitGlyphs, ofTheClockBlankAZeroOfTwelveHours)
{
    EXPECT_EQ(shown(8, 0.0, {.now = {14, 5}}), (Numbers{kBlankGlyph, 2, kColon, 0, 5}));
    EXPECT_EQ(shown(8, 0.0, {.now = {0, 0}}), (Numbers{1, 2, kColon, 0, 0}));
    EXPECT_EQ(shown(8, 0.0, {.now = {2, 5}, .hours24 = true}), (Numbers{0, 2, kColon, 0, 5}));
    EXPECT_EQ(shown(8, 0.0, {.now = {0, 0}, .hours24 = true}), (Numbers{0, 0, kColon, 0, 0}));
}

TEST(DigitGlyphs, ofTenthsAndOfATimeOfDayKeepTheirZeros)
{
    EXPECT_EQ(shown(7, 4.0), (Numbers{0, 0, 4, kPoint, 0}));
    EXPECT_EQ(shown(9, 0.0), (Numbers{0, 0, kColon, 0, 0, kColon, 0, 0}));
}

TEST(DigitGlyphs, ofATextAreAsManyAsCells)
{
    EXPECT_EQ(shown(10, u"007"_qs), (Numbers{0, 0, 7, kBlankGlyph, kBlankGlyph, kBlankGlyph, kBlankGlyph,
                                             kBlankGlyph, kBlankGlyph, kBlankGlyph}));
    EXPECT_EQ(shown(11, u"12345678901234"_qs), (Numbers{1, 2, 3, 4, 5, 6, 7, 8, 9, 0, 1}));
}

TEST(DigitGlyphs, ofOtherScriptsDigitsAreBlanks)
{
    EXPECT_EQ(shown(6, u"\u06610"_qs), (Numbers{kBlankGlyph, kBlankGlyph}));
    EXPECT_EQ(digitsOf(0, plain(u"\u0661\uff11"_qs)), (Numbers{kBlankGlyph, kBlankGlyph}));
}

namespace {

// Returns column and row of the only character in a font of cells.
QPoint cellOf(int style, QChar c)
{
    const std::vector<Glyph> glyphs = glyphsOf(fontOf(style, 1), plain(c), kFace);
    EXPECT_EQ(glyphs.size(), 1u);
    const QRect source = glyphs.at(0).source;
    EXPECT_EQ(source.size(), QSize(9, 13));
    return {(source.left() - 100) / 9, (source.top() - 200) / 13};
}

} // namespace

TEST(LetterGlyphs, haveTheirTable)
{
    const QString table[] = {
        u"ABCDEFGHIJKLMNOPQRSTUVWXYZ\0\"\0 "_qs,
        u"0123456789\0\0:()-'!_+\\/[]^&%.=$#"_qs,
        u"\0\0\0?*"_qs,
    };
    int known = 0;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < table[row].size(); ++column)
            if (const QChar c = table[row][column]; !c.isNull()) {
                EXPECT_EQ(cellOf(3, c), QPoint(column, row)) << int{c.unicode()};
                ++known;
            }
    EXPECT_EQ(known, 26 + 2 + 10 + 19 + 2);
}

TEST(LetterGlyphs, haveTheNamedPlaces)
{
    EXPECT_EQ(cellOf(3, u':'), QPoint(12, 1));
    EXPECT_EQ(cellOf(3, u'#'), QPoint(30, 1));
    EXPECT_EQ(cellOf(3, u'"'), QPoint(27, 0));
    EXPECT_EQ(cellOf(3, u' '), QPoint(29, 0));
}

TEST(LetterGlyphs, showAnIForTheAtSign)
{
    EXPECT_EQ(cellOf(3, u'@'), cellOf(3, u'I'));
}

TEST(LetterGlyphs, areCapitals)
{
    for (char16_t c = u'a'; c <= u'z'; ++c)
        EXPECT_EQ(cellOf(3, c), QPoint(c - u'a', 0));
}

TEST(LetterGlyphs, areBlankForAnythingElse)
{
    for (const char16_t c :
         {u',', u';', u'<', u'~', u'{', u'\t', u'\0', u'\u00e5', u'\u00df', char16_t{0xd83d}})
        EXPECT_EQ(cellOf(3, c), QPoint(29, 0)) << int{c};
}

TEST(AsciiGlyphs, areSixteenToARow)
{
    EXPECT_EQ(cellOf(1, u' '), QPoint(0, 0));
    for (char16_t c = 32; c < 128; ++c)
        EXPECT_EQ(cellOf(1, c), QPoint(c % 16, c / 16 - 2)) << int{c};
}

TEST(AsciiGlyphs, areBlankBelow32AndFrom128On)
{
    for (const int c : {0, 9, 31, 128, 229, 0x120, 0xd83d, 0xffff})
        EXPECT_EQ(cellOf(1, QChar(c)), QPoint(0, 0)) << c;
}

TEST(AsciiGlyphs, areCapitalsInStyle2)
{
    EXPECT_EQ(cellOf(1, u'a'), QPoint(1, 4));
    EXPECT_EQ(cellOf(2, u'a'), QPoint(1, 2));
    EXPECT_EQ(cellOf(2, u'z'), cellOf(1, u'Z'));
    EXPECT_EQ(cellOf(2, u'{'), QPoint(11, 5));
}

TEST(CellGlyphs, areAsManyAsCells)
{
    for (const int style : {1, 2, 3}) {
        EXPECT_EQ(offsetsOf(glyphsOf(fontOf(style, 3), plain(u"A"_qs), kFace)), (Numbers{0, 11, 22}));
        EXPECT_EQ(offsetsOf(glyphsOf(fontOf(style, 2), plain(u"ABC"_qs), kFace)), (Numbers{0, 11}));
        EXPECT_TRUE(glyphsOf(fontOf(style, 0), plain(u"ABC"_qs), kFace).empty());
    }
}

TEST(CellGlyphs, beyondTheTextAreBlanks)
{
    EXPECT_EQ(glyphsOf(fontOf(3, 3), plain(u"A"_qs), kFace), glyphsOf(fontOf(3, 3), plain(u"A  "_qs), kFace));
    EXPECT_EQ(glyphsOf(fontOf(1, 3), plain(u"A"_qs), kFace), glyphsOf(fontOf(1, 3), plain(u"A  "_qs), kFace));
}

TEST(CellGlyphs, countUnitsAndNotLetters)
{
    const DisplayText text = plain(u"\U0001d11eA\u00dfB"_qs); // two units, and a letter with two capitals
    const std::vector<Glyph> glyphs = glyphsOf(fontOf(3, 5), text, kFace);
    ASSERT_EQ(glyphs.size(), 5u);
    EXPECT_EQ(glyphs[2].source.left(), 100);
    EXPECT_EQ(glyphs[4].source.left(), 100 + 9);
}

TEST(CellGlyphs, showLeadingZeros)
{
    const DisplayText text = textOf({.cells = 3}, 7.0, {});
    EXPECT_EQ(glyphsOf(fontOf(3, 3), text, kFace), glyphsOf(fontOf(3, 3), plain(u"007"_qs), kFace));
}

TEST(Glyphs, ofAStyleThatThereIsNotAreNone)
{
    for (const int style : {-32768, -1, 4, 32767})
        EXPECT_TRUE(glyphsOf(fontOf(style, 10), plain(u"123"_qs), kFace).empty());
}

TEST(Glyphs, ofNegativeCellsAreNone)
{
    for (const int style : {0, 1, 2, 3})
        for (const int cells : {-1, -32768})
            EXPECT_TRUE(glyphsOf(fontOf(style, cells), plain(u"123"_qs), kFace).empty());
}

TEST(Glyphs, areThoseThatTouchTheFace)
{
    EXPECT_EQ(offsetsOf(glyphsOf(fontOf(1, 32767), plain({}), 23)), (Numbers{0, 11, 22}));
    EXPECT_EQ(offsetsOf(glyphsOf(fontOf(1, 32767), plain({}), 22)), (Numbers{0, 11}));
    EXPECT_TRUE(glyphsOf(fontOf(1, 32767), plain({}), 0).empty());
}

TEST(Glyphs, mayGoLeft)
{
    DisplayFont font = fontOf(1, 32767);
    font.gap = -14;
    EXPECT_EQ(offsetsOf(glyphsOf(font, plain({}), kFace, 10)), (Numbers{0, -5, -10, -15}));
    EXPECT_EQ(offsetsOf(glyphsOf(font, plain({}), kFace, 0)), (Numbers{0, -5}));
}

TEST(Glyphs, withoutWidthOrHeightAreNone)
{
    for (const QSize cell : {QSize(0, 13), QSize(-9, 13), QSize(9, 0), QSize(9, -13)}) {
        DisplayFont font = fontOf(1, 100);
        font.cell = cell;
        EXPECT_TRUE(glyphsOf(font, plain(u"abc"_qs), kFace).empty());
    }
}

TEST(Glyphs, ofASeparatorWithoutWidthOnlyMoveTheNext)
{
    DisplayFont font = fontOf(0, 0);
    font.separator = 0;
    EXPECT_EQ(offsetsOf(glyphsOf(font, plain(u"1:2"_qs), kFace)), (Numbers{0, 13}));
    font.separator = -1;
    EXPECT_EQ(offsetsOf(glyphsOf(font, plain(u"1:2"_qs), kFace)), (Numbers{0, 12}));
}

TEST(Glyphs, ofExtremesAreBounded)
{
    const QString text(1'000'000, u'8');
    for (const int style : {0, 1, 2, 3})
        for (const int cells : {0, 9, 10, 32767})
            for (const int width : {-32768, -1, 0, 1, 32767})
                for (const int gap : {-32768, -32767, -1, 0, 32767}) {
                    const DisplayFont font{.origin = {-32768, 32767},
                                           .cell = {width, 32767},
                                           .separator = 32767,
                                           .style = style,
                                           .gap = gap,
                                           .cells = cells};
                    EXPECT_LE(glyphsOf(font, plain(text), 10000).size(), std::size_t{kMostCells});
                }
}

TEST(Glyphs, thatLieOverEachOtherEndAtAnArea)
{
    DisplayFont font = fontOf(1, 32767);
    font.cell = {1000, 1000};
    font.gap = -1000;
    EXPECT_EQ(glyphsOf(font, plain({}), 2000).size(), 17u); // a million pixels each
    EXPECT_EQ(glyphsOf(font, plain({}), 500).size(), 34u);  // half of each is seen
    font.cell = {1, 1};
    font.gap = -1;
    EXPECT_EQ(glyphsOf(font, plain({}), 2000).size(), std::size_t{kMostCells});
}

#include "toolkit/pages/linebreaker.h"

#include "tests/support/pagesworld.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <chrono>

namespace {

class LineBreakerTest : public testing::Test {
protected:
    QStringList linesOf(QByteArrayView text, int characters)
    {
        const LineBreaker breaker(m_table, characters * CharacterWidths::kUnits / 2);
        QStringList found;
        breaker.visit(text, [&](const LineBreaker::Line& line) {
            EXPECT_EQ(line.bytes.data() - text.data(), line.start);
            found += LineBreaker::shown(line.bytes);
        });
        EXPECT_EQ(breaker.count(text), found.size()) << "what is counted is what is shown";
        return found;
    }
    QStringList lines(const QString& text, int characters) { return linesOf(text.toUtf8(), characters); }

    FixedWidths m_widths;
    CharacterTable m_table{m_widths, false};
};

} // namespace

TEST_F(LineBreakerTest, aTextThatFitsIsOneLine)
{
    EXPECT_EQ(lines(u"Bohemian"_qs, 8), QStringList(u"Bohemian"_qs));
    EXPECT_EQ(lines(u"Sjøen Я"_qs, 7), QStringList(u"Sjøen Я"_qs));
    EXPECT_EQ(lines(QString(), 8), QStringList(QString()));
    EXPECT_EQ(lines(u"   "_qs, 1), QStringList(QString()));
}

TEST_F(LineBreakerTest, breaksAtTheLastBlankThatFits)
{
    EXPECT_EQ(lines(u"one two three four"_qs, 9), (QStringList{u"one two"_qs, u"three"_qs, u"four"_qs}));
    EXPECT_EQ(lines(u"one two"_qs, 3), (QStringList{u"one"_qs, u"two"_qs}));
    EXPECT_EQ(lines(u"  one two"_qs, 5), (QStringList{u"  one"_qs, u"two"_qs})) << "indents are kept";
}

TEST_F(LineBreakerTest, blanksAtALinesEndTakeNoRoom)
{
    EXPECT_EQ(lines(u"one     two   "_qs, 4), (QStringList{u"one"_qs, u"two"_qs}));
    EXPECT_EQ(lines(u"padded"_qs + QString(1000, u' '), 6), QStringList(u"padded"_qs));
}

TEST_F(LineBreakerTest, aPathBreaksBehindABackslashAndNotAtABlank)
{
    EXPECT_EQ(lines(u"D:\\A b c\\D e f\\01 - g.mp3"_qs, 14),
              (QStringList{u"D:\\A b c\\"_qs, u"D e f\\"_qs, u"01 - g.mp3"_qs}));
    EXPECT_EQ(lines(u"\\\\server\\share one"_qs, 12), (QStringList{u"\\\\server\\"_qs, u"share one"_qs}));
    EXPECT_EQ(lines(u"no\\path at all"_qs, 10), (QStringList{u"no\\path at"_qs, u"all"_qs}));
}

TEST_F(LineBreakerTest, aLongNameInAPathBreaksAtABlankElseAnywhere)
{
    EXPECT_EQ(lines(u"D:\\a name that is long"_qs, 11),
              (QStringList{u"D:\\"_qs, u"a name that"_qs, u"is long"_qs}));
    EXPECT_EQ(lines(u"abcdefgh"_qs, 3), (QStringList{u"abc"_qs, u"def"_qs, u"gh"_qs}));
}

TEST_F(LineBreakerTest, newlinesMakeLines)
{
    EXPECT_EQ(lines(u"a\nb\r\nc\rd\n\ne\n"_qs, 9),
              (QStringList{u"a"_qs, u"b"_qs, u"c"_qs, u"d"_qs, QString(), u"e"_qs}));
    EXPECT_EQ(lines(u"full  \nb"_qs, 4), (QStringList{u"full"_qs, u"b"_qs}));
}

TEST_F(LineBreakerTest, tabsAndControlsAreBlanks)
{
    EXPECT_EQ(linesOf(QByteArrayView("a\tb\x01"
                                     "c\x7F"
                                     "d\0e",
                                     9),
                      9),
              QStringList(u"a b c d e"_qs));
    EXPECT_EQ(lines(u"a\u0085b\u2028c"_qs, 9), QStringList(u"a b c"_qs));
    EXPECT_EQ(lines(u"one\ttwo"_qs, 4), (QStringList{u"one"_qs, u"two"_qs}));
}

TEST_F(LineBreakerTest, whatTurnsTextAndWhatIsNoUtf8IsShownAsUnreadable)
{
    EXPECT_EQ(lines(u"a\u202Eb\u2067c"_qs, 9), QStringList(u"a\uFFFDb\uFFFDc"_qs));
    EXPECT_EQ(linesOf(QByteArrayView("a\xFF"
                                     "b\xC3"),
                      9),
              QStringList(u"a\uFFFDb\uFFFD"_qs));
    EXPECT_EQ(linesOf(QByteArrayView("\xED\xA0\x80"), 9), QStringList(u"\uFFFD\uFFFD\uFFFD"_qs));
}

TEST_F(LineBreakerTest, damagedTextIsShownAsTheLibraryConvertsIt)
{
    const QByteArray damaged("\xE2\x82 \xF0\x9F\x8E\xC0\xAF\xF8\x88\xE2\x82\xAC\x80");
    EXPECT_EQ(LineBreaker::shown(damaged), QString::fromUtf8(damaged));
}

TEST_F(LineBreakerTest, aCombiningMarkNeverBeginsALine)
{
    const QString marked = u"e\u0301\u0302"_qs;
    EXPECT_EQ(lines(marked + marked + marked, 2), (QStringList{marked + marked, marked}));
    EXPECT_EQ(lines(u"ab \u0301cd"_qs, 2), (QStringList{u"ab"_qs, u" \u0301c"_qs, u"d"_qs}))
        << "it stands on the blank";
}

TEST_F(LineBreakerTest, whatIsOneCharacterToAReaderStaysWhole)
{
    const QString family = u"\U0001F468\u200D\U0001F469\u200D\U0001F467"_qs;
    EXPECT_EQ(lines(family + family, 4), (QStringList{family, family}));
    EXPECT_EQ(lines(family + family, 1), (QStringList{family, family})) << "even where it does not fit";
    const QString flag = u"\U0001F1F3\U0001F1F4"_qs;
    EXPECT_EQ(lines(flag + flag, 3), (QStringList{flag, flag}));
    EXPECT_EQ(lines(u"\U0001D11E\U0001D11E\U0001D11E"_qs, 2),
              (QStringList{u"\U0001D11E\U0001D11E"_qs, u"\U0001D11E"_qs}));
}

TEST_F(LineBreakerTest, aFieldWithoutWidthHasACharacterALine)
{
    EXPECT_EQ(lines(u"abc"_qs, 0), (QStringList{u"a"_qs, u"b"_qs, u"c"_qs}));
}

TEST_F(LineBreakerTest, marksWithoutEndAreCut)
{
    const QStringList found = lines(u"a"_qs + QString(100'000, u'\u0301'), 10);
    EXPECT_GT(found.size(), 20);
    EXPECT_EQ(found.join(QString()), u"a"_qs + QString(100'000, u'\u0301'));
}

TEST_F(LineBreakerTest, hostileTextsTakeNoTime)
{
    const auto start = std::chrono::steady_clock::now();
    for (const QString& text :
         {QString(100'000, u' ') + u'a', QString(100'000, u'a'), QString(100'000, u'\\'),
          QString(100'000, u'\n') + u'a', QString(100'000, u'\u4E00'), QString(100'000, u'\u0301'),
          u"D:\\"_qs + QString(100'000, u' ') + u'a'})
        lines(text, 40);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

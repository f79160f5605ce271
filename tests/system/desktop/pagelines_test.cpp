#include "system/desktop/pagelines.h"

#include <gtest/gtest.h>

namespace {

QStringList lines(std::initializer_list<const char*> texts)
{
    QStringList out;
    for (const char* text : texts)
        out += QString::fromUtf8(text);
    return out;
}

std::string shown(const QStringList& lines)
{
    return lines.join(u'|').toStdString();
}

} // namespace

TEST(PageLines, linesTheColumnsOfATableUp)
{
    EXPECT_EQ(shown(pagelines::withoutTabs(lines({"Artist\tSong\tYear", "A-ha\tTake on me\t1985"}), 80)),
              "Artist  Song        Year|A-ha    Take on me  1985");
}

TEST(PageLines, linesEachTableUpByItself)
{
    EXPECT_EQ(shown(pagelines::withoutTabs(lines({"a\tb", "cccccccccc\td", "text", "e\tf", "g\th"}), 80)),
              "a           b|cccccccccc  d|text|e       f|g       h");
}

TEST(PageLines, narrowsTheWidestColumnsWhenThePageIsTooNarrow)
{
    EXPECT_EQ(shown(pagelines::withoutTabs(lines({"aaaaaaaaaaaaaaaaaaaaaaaa\tb\tc", "d\te\tf"}), 20)),
              "aaaaaaaaaaaaaaaaaaaaaaaa  b  c|d          e       f");
}

TEST(PageLines, putsALineOfItsOwnAtEveryEighthCharacter)
{
    EXPECT_EQ(shown(pagelines::withoutTabs(lines({"\ta\tbb", "12345678\tc"}), 80)),
              "        a       bb|12345678        c");
}

TEST(PageLines, makesBlanksOfControlCharacters)
{
    EXPECT_EQ(
        shown(pagelines::withoutTabs({QStringLiteral("a\fb") + QChar(0) + u'c' + QChar(0x85) + u'd'}, 80)),
        "a b c d");
}

TEST(PageLines, breaksALongLineAtBlanks)
{
    EXPECT_EQ(shown(pagelines::broken(QStringLiteral("one two three"), 7)), "one two|three");
    EXPECT_EQ(shown(pagelines::broken(QStringLiteral("one  two"), 5)), "one |two");
    EXPECT_EQ(shown(pagelines::broken(QStringLiteral("one"), 3)), "one");
    EXPECT_EQ(shown(pagelines::broken(QString(), 3)), "");
    EXPECT_EQ(pagelines::broken(QString(), 3).size(), 1);
}

TEST(PageLines, breaksAWordThatIsTooLong)
{
    EXPECT_EQ(shown(pagelines::broken(QStringLiteral("abcdefgh"), 3)), "abc|def|gh");
    EXPECT_EQ(shown(pagelines::broken(QStringLiteral("  abcdef"), 4)), "  ab|cdef");
    EXPECT_EQ(shown(pagelines::broken(QStringLiteral("ab"), 0)), "a|b");
}

TEST(PageLines, losesNoCharacterThatIsNoBlank)
{
    QString line;
    for (int i = 0; i < 5000; ++i)
        line += i % 7 == 0 || i % 31 < 4 ? QChar(u' ') : QChar(u'a' + i % 26);
    const QStringList pieces = pagelines::broken(line, 11);
    for (const QString& piece : pieces)
        ASSERT_LE(piece.size(), 11);
    EXPECT_EQ(pieces.join(QString()).remove(u' '), QString(line).remove(u' '));
}

TEST(PageLines, tellsLatinFromOtherText)
{
    EXPECT_TRUE(pagelines::isPlain(QStringLiteral("Bj\u00F8rk \u0160")));
    EXPECT_FALSE(pagelines::isPlain(QStringLiteral("a\u4E2D")));
    EXPECT_FALSE(pagelines::isPlain(QStringLiteral("e\u0301")));
}

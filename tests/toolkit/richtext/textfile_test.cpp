#include "toolkit/richtext/textfile.h"

#include "base/codepage.h"
#include "tests/toolkit/richtext/richtexttest.h"

#include <gtest/gtest.h>

namespace {

RichText read(const QByteArray& bytes)
{
    return richTextOf(bytes, CodePage::windows1252());
}

std::string lines(const QByteArray& bytes)
{
    return plainText(read(bytes)).toStdString();
}

} // namespace

TEST(TextFile, linesAreParagraphsInLettersOfOneWidth)
{
    EXPECT_EQ(written(read("one\n\ttwo")), "<fixed:one>\n<fixed:\ttwo>");
    EXPECT_EQ(read("").paragraphs.size(), 0U);
}

TEST(TextFile, linesMayEndAsTheyLike)
{
    EXPECT_EQ(lines("one\r\ntwo\rthree\nfour\n\n"), "one\ntwo\nthree\nfour\n");
}

TEST(TextFile, bytesAreUtf8OrOfTheCodePage)
{
    EXPECT_EQ(lines("Sj\303\270en"), "Sjøen");
    EXPECT_EQ(lines("\357\273\277Sj\303\270"), "Sjø") << "the mark is not shown";
    EXPECT_EQ(lines("Sj\370en"), "Sjøen");
    EXPECT_EQ(richTextOf("\xCF", CodePage([] {
                             CodePage::Table table{};
                             table[0xCF] = u'П';
                             return table;
                         }()))
                  .paragraphs.at(0)
                  .runs.at(0)
                  .text,
              u"П");
}

TEST(TextFile, whatBeginsAsRtfIsReadAsSuch)
{
    EXPECT_EQ(written(read("{\\rtf1 {\\b one}\\par two}")), "<bold:one>\ntwo");
    EXPECT_EQ(lines("x{\\rtf1 one}"), "x{\\rtf1 one}");
    EXPECT_EQ(lines("<b>one</b> &amp;"), "<b>one</b> &amp;") << "nothing else is";
}

TEST(TextFile, whatIsTooLongIsSaidToBe)
{
    EXPECT_TRUE(read(QByteArray(100'000, '\n')).isWhole);
    EXPECT_FALSE(read(QByteArray(100'001, '\n')).isWhole);
    EXPECT_TRUE(read(QByteArray(2'000'000, 'x')).isWhole);
    EXPECT_FALSE(read(QByteArray(2'000'001, 'x')).isWhole);
}

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

TEST(TextFile, aMarkInFrontTellsUtf16)
{
    const auto utf16 = [](const char* bytes, qsizetype size) { return lines(QByteArray(bytes, size)); };
    EXPECT_EQ(utf16("\xFF\xFES\0j\0\xF8\0\r\0\n\0x\0", 14), "Sjø\nx");
    EXPECT_EQ(utf16("\xFE\xFF\0S\0j\0\xF8\0\n\0x", 12), "Sjø\nx");
    EXPECT_EQ(utf16("\xFF\xFE\x35\xD8\x1E\xDD", 6), "\U0001D51E");
    EXPECT_EQ(utf16("\xFF\xFE", 2), "");
    EXPECT_TRUE(utf16("\xFF\xFE\x35\xD8x\0", 6).ends_with("x")) << "behind a half character";
    EXPECT_TRUE(lines(QByteArray("\xFF\xFES\0j", 5)).starts_with("S")) << "a half file";
    EXPECT_EQ(lines("\xFFx"), "ÿx");
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

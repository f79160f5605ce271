#include "toolkit/richtext/rtfreader.h"

#include "base/codepage.h"
#include "tests/toolkit/richtext/richtexttest.h"

#include <QElapsedTimer>
#include <QRandomGenerator>

#include <gtest/gtest.h>

namespace {

RichText read(const QByteArray& bytes)
{
    static const CodePage page = CodePage::windows1252();
    return readRtf(bytes, page);
}

// Of what stands behind the head of a file.
std::string body(const QByteArray& bytes)
{
    return written(read("{\\rtf1\\ansi " + bytes + '}'));
}

std::string plain(const QByteArray& bytes)
{
    return plainText(read("{\\rtf1\\ansi " + bytes + '}')).toStdString();
}

// A file with something of everything.
const QByteArray kWhole =
    "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fswiss Arial;}{\\f1\\froman\\fcharset204{\\*\\panose "
    "02}Times;}}\r\n{\\colortbl ;\\red255\\green0\\blue16;}{\\stylesheet{\\s0 Normal;}}{\\info{\\title "
    "secret}}{\\*\\generator Somebody;}\\pard\\qc{\\b Bold \\i both}\\par\r\n\\pard\\li360\\fi-360 "
    "{\\f1\\'cf\\'f0}\\tab caf\\'e9 \\u8364? {\\cf1 red}{\\pict\\wmetafile8 0102\\bin4 }}{{}\\line "
    "end\\par}";

} // namespace

TEST(RtfReader, knowsAFileByItsBeginning)
{
    EXPECT_TRUE(isRtf("{\\rtf1 x}"));
    EXPECT_TRUE(isRtf("{\\rtf"));
    EXPECT_FALSE(isRtf("{\\rt"));
    EXPECT_FALSE(isRtf(" {\\rtf1 x}"));
    EXPECT_FALSE(isRtf(""));
}

TEST(RtfReader, readsTextInParagraphs)
{
    EXPECT_EQ(body("one\\par two\\par"), "one\ntwo");
    EXPECT_EQ(body("one\\par\\par two"), "one\n\ntwo");
    EXPECT_EQ(body("on\r\ne\n \\par\r\ntwo"), "one \ntwo") << "line ends of the file are none of the text";
    EXPECT_EQ(body("one\\\ntwo\\\r\nthree"), "one\ntwo\nthree") << "behind a backslash they are";
    EXPECT_EQ(body(""), "");
}

TEST(RtfReader, endsAtTheEndOfTheFirstGroup)
{
    EXPECT_EQ(body("one} two {three"), "one");
    EXPECT_EQ(written(read("{\\rtf1\\qc one")), "(centred)one") << "without an end, too";
    EXPECT_EQ(written(read("{\\rtf1\\qc one}")), "(centred)one");
}

TEST(RtfReader, looksLastUntilTheyAreTurnedOffOrTheirGroupEnds)
{
    EXPECT_EQ(body("a{\\b b}c"), "a<bold:b>c");
    EXPECT_EQ(body("\\b a\\b0 b\\i c\\plain d"), "<bold:a>b<italic:c>d");
    EXPECT_EQ(body("\\ul a\\ulnone b\\ulw c\\ul0 d\\strike e"), "<underlined:a>b<underlined:c>d<struck:e>");
    EXPECT_EQ(body("x{\\super 2}y{\\sub 3\\nosupersub 4}"), "x<raised:2>y<lowered:3>4");
    EXPECT_EQ(body("{\\b{\\i x}y}z"), "<bold italic:x><bold:y>z");
}

TEST(RtfReader, lettersHaveSizesWithinReason)
{
    EXPECT_EQ(body("\\fs20 a\\fs25 b\\fs c\\fs0 d"), "<10pt:a><12.5pt:b><12pt:c>d");
    EXPECT_EQ(body("\\fs32000 a\\fs-3 b\\fs99999999999999 c"), "<144pt:a>b<144pt:c>");
    EXPECT_EQ(body("\\fs4294967297 a"), "<144pt:a>") << "a number beyond all numbers";
}

TEST(RtfReader, coloursComeFromTheirTable)
{
    const QByteArray table = "{\\colortbl;\\red255\\green128\\blue1;\\red300\\blue-7;}";
    EXPECT_EQ(body(table + "\\cf1 a\\cf2 b\\cf0 c\\cf3 d\\cf-1 e\\cf f"), "<#ff8001:a><#ff0000:b>cdef");
    EXPECT_EQ(body("\\cf1 a" + table + "b"), "ab") << "a table behind its use";
}

TEST(RtfReader, fontsAreOfAFamily)
{
    const QByteArray table =
        "{\\fonttbl{\\f0\\fswiss Sans;}{\\f1\\froman Serif;}{\\f2\\fmodern Fixed;}\\f3\\froman One;}";
    EXPECT_EQ(body(table + "\\f0 a\\f1 b\\f2 c\\f3 d\\f9 e"), "a<serif:b><fixed:c><serif:d>e");
    EXPECT_EQ(body("\\deff2" + table + "a\\f0 b\\plain c"), "<fixed:a>b<fixed:c>");
}

TEST(RtfReader, paragraphsHaveTheirPlaces)
{
    EXPECT_EQ(body("\\qc a\\par\\pard b\\par\\qr c\\par\\qj d\\par\\ql e"),
              "(centred)a\nb\n(right)c\n(justified)d\n(left)e");
    EXPECT_EQ(body("\\li720\\ri10\\fi-360\\sb20\\sa30 a\\par\\pard b"), "(li720 ri10 fi-360 sb20 sa30)a\nb");
    EXPECT_EQ(body("\\li999999999 a"), "(li31680)a");
}

TEST(RtfReader, bytesAreOfTheCodePageOfTheFileOrOfTheFont)
{
    EXPECT_EQ(body("caf\\'e9 \\'80"), "café €");
    EXPECT_EQ(body("caf\xe9"), "café") << "as they stand";
    EXPECT_EQ(body("\\ansicpg1251\\'cf\\'f0\\'e8"), "При");
    EXPECT_EQ(body("\\mac\\'8e"), "é");
    EXPECT_EQ(body("\\pc\\'82\\pca\\'9b"), "éø");
    EXPECT_EQ(body("\\ansicpg4711\\'e9"), "é") << "an unknown one";
    EXPECT_EQ(body("{\\fonttbl{\\f1\\fcharset204 x;}{\\f2\\fcharset161 y;}{\\f3\\cpg1250 z;}}"
                   "{\\f1\\'cf}{\\f2\\'e1}{\\f3\\'9a}\\'e1"),
              "Пαšá");
}

TEST(RtfReader, charactersOfTwoBytesStayWhole)
{
    EXPECT_EQ(body("\\ansicpg932\\'93\\'fa\\'96\\'7b"), "日本");
    EXPECT_EQ(body("\\ansicpg932\\'83A\\'83\\\r\nx"), "ア\nx") << "half a character is none";
    EXPECT_EQ(body("\\ansicpg65001 \xE2\x82\xAC\\'e2\\'82\\'ac"), "€€");
}

TEST(RtfReader, listSignsOfAFontOfSignsAreSeen)
{
    EXPECT_EQ(body("{\\fonttbl{\\f1\\fcharset2 Symbol;}}{\\pntext\\f1\\'B7\\tab}one"), "•\tone");
    EXPECT_EQ(body("\\u-3913 ?\\tab one"), "•\tone");
}

TEST(RtfReader, unicodePassesItsStandInsOver)
{
    EXPECT_EQ(body("\\u8364?x"), "€x");
    EXPECT_EQ(body("\\u8364 ?x"), "€x");
    EXPECT_EQ(body("\\u8364\\'80x"), "€x");
    EXPECT_EQ(body("\\u8364\r\n?x"), "€x") << "the end of a line of the file is none";
    EXPECT_EQ(body("\\uc0\\u8364 x"), "€x");
    EXPECT_EQ(body("\\uc2\\u8364\\'80\\'81x"), "€x");
    EXPECT_EQ(body("\\uc3\\u8364 abcx"), "€x") << "several in one text";
    EXPECT_EQ(body("{\\uc0\\u65 a}\\u66?b"), "AaBb") << "the number is of its group";
    EXPECT_EQ(body("\\uc4\\u8364 a{\\b b}c"), "€<bold:b>c") << "a group ends them";
    EXPECT_EQ(body("\\u8212\\emdash x"), "—x") << "a word is one";
    EXPECT_EQ(body("\\uc999999999\\u65 a}"), "A");
    EXPECT_EQ(body("\\uc-5\\u65 a"), "Aa");
    EXPECT_EQ(body("\\uc2\\u65\\bin3 }}}?x"), "Ax") << "data of another kind is one";
}

TEST(RtfReader, unicodeReachesBeyondTheFirstPlane)
{
    EXPECT_EQ(body("\\u-10179?\\u-8704?"), "😀");
    EXPECT_EQ(body("\\u55357?\\u56832?"), "😀");
    EXPECT_EQ(body("a\\u8233?b"), "a\342\200\250b") << "its end of a paragraph is one of a line";
    EXPECT_EQ(body("a\\u0?\\u7?b"), "ab");
}

TEST(RtfReader, wordsAndSignsStandForCharacters)
{
    EXPECT_EQ(body("a\\emdash b\\endash c\\lquote d\\rquote e\\ldblquote f\\rdblquote g\\bullet h"),
              "a—b–c‘d’e“f”g•h");
    EXPECT_EQ(body("a\\tab b\tc\\~d\\_e\\-f\\{\\}\\\\"), "a\tb\tc\u00A0d\u2011ef{}\\");
    EXPECT_EQ(plain("one\\line two\\par three"), "one\ntwo\nthree");
    EXPECT_EQ(body("\\trowd one\\cell two\\cell\\row three"), "one\ttwo\t\nthree");
    EXPECT_EQ(body("one\\page\\page two\\sect three"), "one\ntwo\nthree");
}

TEST(RtfReader, wordsEndAtTheirNumberOrBlank)
{
    EXPECT_EQ(body("\\b1x\\b0 y\\b  z"), "<bold:x>y<bold: z>");
    EXPECT_EQ(body("\\b-x"), "<bold:-x>");
    EXPECT_EQ(body("\\bogus12 x\\Bogus-3y"), "xy");
    EXPECT_EQ(body("\\i\\b x"), "<bold italic:x>");
}

TEST(RtfReader, whatIsNotOfTheTextIsLeftOut)
{
    for (const char* group : {"{\\stylesheet{\\s1 Heading;}}", "{\\info{\\author Me}}", "{\\pict 0011ff}",
                              "{\\header top}", "{\\footerr bottom}", "{\\*\\unknown secret}",
                              "{\\*\\unknown{\\b deep}secret}", "{\\fldinst HYPERLINK x}", "{\\v hidden}",
                              "{\\fonttbl{\\f0 Arial;}}", "{\\colortbl;}", "{\\xe word}"})
        EXPECT_EQ(body(QByteArray("a") + group + "b"), "ab") << group;
    EXPECT_EQ(body("{\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt shown}}"), "shown");
    EXPECT_EQ(body("a\\v b\\v0 c"), "ac");
}

TEST(RtfReader, dataBetweenIsPassedOverWhateverItHolds)
{
    EXPECT_EQ(body("a{\\pict\\bin5 }}{\\x}b"), "ab");
    EXPECT_EQ(body("a\\bin3 }}}b"), "ab");
    EXPECT_EQ(body("a\\bin-3 b\\bin c"), "abc");
    EXPECT_EQ(body("a\\bin999999999 b}"), "a");
}

TEST(RtfReader, isLenientWithWhatIsDamaged)
{
    EXPECT_EQ(body("a\\'zz b\\'4"), "azz b4");
    EXPECT_EQ(written(read("{\\rtf1 a\\")), "a");
    EXPECT_EQ(written(read("{\\rtf1 a\\'")), "a");
    EXPECT_EQ(written(read("{\\rtf1 a{\\b b")), "a<bold:b>");
    EXPECT_EQ(written(read("}text")), "");
    EXPECT_EQ(written(read("")), "");
    EXPECT_EQ(body(QByteArray("a\0b\001c", 5)), "abc");
}

TEST(RtfReader, groupsMayBeAsDeepAsTheyLike)
{
    constexpr int kDeep = 200'000;
    const QByteArray deep = QByteArray(kDeep, '{') + "\\b x" + QByteArray(kDeep, '}') + "y";
    EXPECT_EQ(body(deep), "<bold:x>y");
    EXPECT_EQ(body(QByteArray(kDeep, '{') + "x"), "x");
    EXPECT_EQ(body(QByteArray(kDeep, '}') + "x"), "");
}

TEST(RtfReader, aTextThatIsTooLongIsNotReadOn)
{
    const RichText lines = read("{\\rtf1 " + QByteArray("\\par").repeated(200'000) + "}");
    EXPECT_FALSE(lines.isWhole);
    EXPECT_LE(static_cast<qsizetype>(lines.paragraphs.size()), RichText::kMostPieces + 1);
    EXPECT_FALSE(read("{\\rtf1 " + QByteArray("\\b x\\b0 y").repeated(60'000)).isWhole);
    EXPECT_FALSE(read("{\\rtf1 " + QByteArray(2'000'001, 'x')).isWhole);
    EXPECT_TRUE(read("{\\rtf1 " + QByteArray(1'999'999, 'x')).isWhole);
    EXPECT_TRUE(read("{\\rtf1 " + QByteArray("\\par").repeated(90'000)).isWhole);
}

TEST(RtfReader, everyBeginningOfAFileIsABeginningOfItsText)
{
    const QString whole = plainText(read(kWhole));
    EXPECT_EQ(written(read(kWhole)),
              "(centred)<bold:Bold ><bold italic:both>\n(li360 fi-360)<serif:Пр>\tcafé € "
              "<#ff0010:red>\342\200\250end");
    for (qsizetype size = 0; size <= kWhole.size(); ++size) {
        const QString text = plainText(read(QByteArray(kWhole.constData(), size)));
        // What is cut in the middle of a word may be another character.
        EXPECT_TRUE(whole.startsWith(text.chopped(text.isEmpty() ? 0 : 1)))
            << size << ": " << text.toStdString();
    }
}

TEST(RtfReader, anyBytesAreReadToTheirEnd)
{
    QRandomGenerator random(7);
    const QByteArray signs = "{}\\'*~ \n;09afubpi\xE9";
    for (int round = 0; round < 3000; ++round) {
        QByteArray bytes = round % 2 == 0 ? kWhole : QByteArray("{\\rtf1");
        for (int i = 0; i < 40; ++i)
            bytes.insert(random.bounded(bytes.size() + 1), signs[random.bounded(signs.size())]);
        const RichText text = read(bytes);
        EXPECT_LE(plainText(text).size(), bytes.size());
        EXPECT_TRUE(text.isWhole);
    }
}

TEST(RtfReader, nothingMakesItSlow)
{
    constexpr qsizetype kSize = 2 << 20;
    QElapsedTimer clock;
    clock.start();
    for (const char* part : {"{", "{}", "\\*", "{\\b", "\\u1", "\\'e9\\b", "\\ansicpg932\\'93", "\\bin1 x",
                             "{\\fonttbl\\f1\\froman", "{\\colortbl;", "\\f1\\f2", "\\uc9\\u1{}"}) {
        const QByteArray bytes = "{\\rtf1" + QByteArray(part).repeated(kSize / qstrlen(part));
        read(bytes);
    }
    EXPECT_LT(clock.elapsed(), 20'000);
}

#include "player/skin/skinreader.h"

#include "base/codepage.h"
#include "tests/support/errorof.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <ctime>

namespace {

const CodePage kPage = CodePage::windows1252();

QStringList fieldsOf(const QByteArray& bytes)
{
    SkinReader reader(bytes, kPage);
    QStringList fields;
    while (!reader.atEnd())
        fields += reader.field();
    return fields;
}

int numberIn(const QByteArray& bytes)
{
    return SkinReader(bytes, kPage).number();
}

int errorIn(const QByteArray& bytes)
{
    return errorOf([&] { numberIn(bytes); });
}

} // namespace

TEST(SkinReader, endsFieldsAtCommasAndLineEnds)
{
    EXPECT_EQ(fieldsOf("a,b\nc\n"), (QStringList{u"a"_qs, u"b"_qs, u"c"_qs}));
    EXPECT_EQ(fieldsOf("a,b\r\nc\r\n"), fieldsOf("a,b\nc\n"));
    EXPECT_EQ(fieldsOf("a,b\rc\r"), fieldsOf("a,b\nc\n"));
    EXPECT_EQ(fieldsOf("a\r\nb\nc\rd\ne\r\nf"),
              (QStringList{u"a"_qs, u"b"_qs, u"c"_qs, u"d"_qs, u"e"_qs, u"f"_qs}));
}

TEST(SkinReader, needsNoLineEndBehindTheLastLine)
{
    EXPECT_EQ(fieldsOf("a,b"), fieldsOf("a,b\n"));
    EXPECT_EQ(fieldsOf("a,"), fieldsOf("a,\r\n"));
    EXPECT_EQ(fieldsOf("a,"), (QStringList{u"a"_qs, QString()}));
    EXPECT_EQ(fieldsOf(""), QStringList());
}

TEST(SkinReader, takesAnEmptyLineForAnEmptyField)
{
    EXPECT_EQ(fieldsOf("a\n\nb"), (QStringList{u"a"_qs, QString(), u"b"_qs}));
    EXPECT_EQ(fieldsOf("a\r\n\r\nb"), fieldsOf("a\n\nb"));
    EXPECT_EQ(fieldsOf("a\r\rb"), fieldsOf("a\n\nb"));
    EXPECT_EQ(fieldsOf("a\n\r\nb"), fieldsOf("a\n\nb"));
    EXPECT_EQ(fieldsOf("\n"), QStringList{QString()});
    EXPECT_EQ(fieldsOf("\r\n"), QStringList{QString()});
    EXPECT_EQ(fieldsOf(",,\n"), (QStringList{QString(), QString(), QString()}));
}

TEST(SkinReader, dropsBlanksAroundAField)
{
    EXPECT_EQ(fieldsOf("  a b  ,  c\n   \n"), (QStringList{u"a b"_qs, u"c"_qs, QString()}));
    EXPECT_EQ(numberIn("  12  ,"), 12);
}

TEST(SkinReader, keepsCommasAndBlanksInQuotes)
{
    EXPECT_EQ(fieldsOf("\"a, b\",c"), (QStringList{u"a, b"_qs, u"c"_qs}));
    EXPECT_EQ(fieldsOf("  \" a \"  ,c"), (QStringList{u" a "_qs, u"c"_qs}));
    EXPECT_EQ(fieldsOf("\"\",c"), (QStringList{QString(), u"c"_qs}));
    EXPECT_EQ(fieldsOf("a\"b,c\"d"), (QStringList{u"a\"b"_qs, u"c\"d"_qs}));
    EXPECT_EQ(numberIn("\"12\""), 12);
}

TEST(SkinReader, dropsWhatFollowsAClosingQuote)
{
    EXPECT_EQ(fieldsOf("\"a\"junk \"x\",b"), (QStringList{u"a"_qs, u"b"_qs}));
    EXPECT_EQ(fieldsOf("\"a\"junk\nb"), (QStringList{u"a"_qs, u"b"_qs}));
}

TEST(SkinReader, endsAQuotedFieldWithItsLine)
{
    EXPECT_EQ(fieldsOf("\"a,b\nc"), (QStringList{u"a,b"_qs, u"c"_qs}));
    EXPECT_EQ(fieldsOf("\"a,b\r\nc"), fieldsOf("\"a,b\nc"));
    EXPECT_EQ(fieldsOf("\""), QStringList{QString()});
}

TEST(SkinReader, readsNumbersOfSixteenBits)
{
    EXPECT_EQ(numberIn("32767"), 32767);
    EXPECT_EQ(numberIn("-32768"), -32768);
    EXPECT_EQ(numberIn("+7"), 7);
    EXPECT_EQ(numberIn("007"), 7);
    EXPECT_EQ(numberIn("2.5"), 2);
    EXPECT_EQ(numberIn("3.5"), 4);
    EXPECT_EQ(numberIn("1e2"), 100);
    EXPECT_EQ(numberIn(""
                       "\n"),
              0);
    EXPECT_EQ(numberIn(",1"), 0);
}

TEST(SkinReader, tellsWhatIsNoNumber)
{
    for (const char* text : {"abc", "12x", "-", "+", "1 2", "--1", "\"a\"", "nan", "inf"})
        EXPECT_EQ(errorIn(text), numberOf(ErrorNumber::TypeMismatch)) << text;
    for (const char* text : {"32768", "-32769", "99999999999999999999", "-99999999999999999999", "32767.5"})
        EXPECT_EQ(errorIn(text), numberOf(ErrorNumber::Overflow)) << text;
    EXPECT_EQ(errorIn(QByteArray(1000, '9')), numberOf(ErrorNumber::Overflow));
    EXPECT_EQ(errorIn(""), numberOf(ErrorNumber::InputPastEnd));
}

TEST(SkinReader, goesOnBehindAMalformedNumber)
{
    SkinReader reader("x,2\n3", kPage);
    EXPECT_THROW(reader.number(), RunTimeError);
    EXPECT_EQ(reader.number(), 2);
    EXPECT_EQ(reader.number(), 3);
}

TEST(SkinReader, givesTheRestOfALineAsItStands)
{
    SkinReader reader("a,  \"b\", c \nd", kPage);
    EXPECT_EQ(reader.field(), u"a"_qs);
    EXPECT_EQ(reader.restOfLine(), u"  \"b\", c "_qs);
    EXPECT_EQ(reader.restOfLine(), QString());
    EXPECT_EQ(reader.field(), u"d"_qs);
}

TEST(SkinReader, hasNoRestWhereAFieldEndedItsLine)
{
    SkinReader reader("a\nb\nc,d\ne", kPage);
    EXPECT_EQ(reader.field(), u"a"_qs);
    EXPECT_EQ(reader.restOfLine(), QString());
    reader.skipLine();
    EXPECT_EQ(reader.field(), u"b"_qs);
    reader.skipLine();
    EXPECT_EQ(reader.field(), u"c"_qs);
    reader.skipLine();
    EXPECT_EQ(reader.field(), u"e"_qs);
    reader.skipLine();
    EXPECT_TRUE(reader.atEnd());
}

TEST(SkinReader, endsWhereTheLastLineWasSkipped)
{
    SkinReader reader("a,b,c", kPage);
    reader.field();
    EXPECT_FALSE(reader.atEnd());
    reader.skipLine();
    EXPECT_TRUE(reader.atEnd());
    EXPECT_THROW(reader.field(), RunTimeError);
}

TEST(SkinReader, countsLines)
{
    SkinReader reader("a,b\r\n\rc\nd", kPage);
    EXPECT_EQ(reader.line(), 0);
    for (const int line : {1, 1, 2, 3, 4}) {
        reader.field();
        EXPECT_EQ(reader.line(), line);
    }
}

TEST(SkinReader, decidesTheEncodingOfEachLine)
{
    EXPECT_EQ(fieldsOf("\xC3\xA5,\xC3\xB8\n\xE5,\xC3\xB8\n\x80"),
              (QStringList{u"å"_qs, u"ø"_qs, u"å"_qs, u"Ã¸"_qs, u"€"_qs}));
}

TEST(SkinReader, skipsAByteOrderMark)
{
    EXPECT_EQ(fieldsOf("\xEF\xBB\xBF"
                       "Tonedeck Skin\nb"),
              (QStringList{u"Tonedeck Skin"_qs, u"b"_qs}));
    EXPECT_EQ(fieldsOf("\xEF\xBB\xBF"), QStringList());
    EXPECT_EQ(fieldsOf("\xEF\xBB\xBF\r\nb"), (QStringList{QString(), u"b"_qs}));
}

TEST(SkinReader, readsAMegabyteInOneLineAndAMillionLines)
{
    const qsizetype count = 1000000;
    EXPECT_EQ(fieldsOf(QByteArray(count, ',')).size(), count + 1);
    EXPECT_EQ(fieldsOf(QByteArray(count, '\n')).size(), count);
    EXPECT_EQ(fieldsOf(QByteArray(count, '\r')).size(), count);
    EXPECT_EQ(fieldsOf(QByteArray("\r\n").repeated(count)).size(), count);
    EXPECT_EQ(fieldsOf(QByteArray("\xE5,").repeated(count)).size(), count + 1);
    EXPECT_EQ(fieldsOf(QByteArray("\"").repeated(count)).size(), 1);
    EXPECT_EQ(fieldsOf(QByteArray(count, 'x')).at(0).size(), count);
    EXPECT_EQ(errorIn(QByteArray(count, ' ') + 'x' + QByteArray(count, ' ')),
              numberOf(ErrorNumber::TypeMismatch));
    EXPECT_EQ(errorIn(QByteArray(count, '1') + "." + QByteArray(count, '1')),
              numberOf(ErrorNumber::TypeMismatch));
}

namespace {

// Counts the processor's seconds: the others on the machine take none of them.
double secondsFor(const QByteArray& bytes)
{
    const std::clock_t start = std::clock();
    SkinReader reader(bytes, kPage);
    while (!reader.atEnd())
        reader.number();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

} // namespace

// Ten times as much takes a hundred times as long where each line or field looks at the rest of the file.
TEST(SkinReader, takesTimeInProportion)
{
    for (const char* part : {"\n", "\r", "\r\n", ",", "1,", "\"\","}) {
        const QByteArray once = QByteArray(part).repeated(100000);
        EXPECT_LT(secondsFor(once.repeated(10)), 40 * secondsFor(once) + 0.1) << part;
    }
}

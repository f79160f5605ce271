#include "base/textrules.h"
#include "tests/support/errorof.h"

#include <gtest/gtest.h>

#include <limits>

using namespace textrules;

namespace {

int errorIn(const QString& text)
{
    return errorOf([&] { toInteger(text); });
}

} // namespace

TEST(textrules, valueIsTheLeadingNumber)
{
    EXPECT_EQ(val(u"1"_qs), 1);
    EXPECT_EQ(val(u" 12 apples"_qs), 12);
    EXPECT_EQ(val(u"-3.5x"_qs), -3.5);
    EXPECT_EQ(val(u"1e2"_qs), 100);
    EXPECT_EQ(val(u"1 2"_qs), 12);
    EXPECT_EQ(val(u"apples"_qs), 0);
    EXPECT_EQ(val(QString()), 0);
    EXPECT_EQ(val(u"1e999"_qs), std::numeric_limits<double>::max());
    EXPECT_EQ(val(u"-1e999"_qs), std::numeric_limits<double>::lowest());
    EXPECT_EQ(val(QString(400, u'9') + u"x"_qs), std::numeric_limits<double>::max());
    EXPECT_EQ(val(u"1e-999"_qs), 0);
    EXPECT_EQ(val(u"0e999"_qs), 0);
}

TEST(textrules, integersRoundHalvesToEven)
{
    EXPECT_EQ(toInteger(u"2"_qs), 2);
    EXPECT_EQ(toInteger(u" 2 "_qs), 2);
    EXPECT_EQ(toInteger(u"0.5"_qs), 0);
    EXPECT_EQ(toInteger(u"1.5"_qs), 2);
    EXPECT_EQ(toInteger(u"-1"_qs), -1);
}

TEST(textrules, whatIsNoIntegerIsAnError)
{
    EXPECT_EQ(errorIn(u"wide"_qs), numberOf(ErrorNumber::TypeMismatch));
    EXPECT_EQ(errorIn(u"2 windows"_qs), numberOf(ErrorNumber::TypeMismatch));
    EXPECT_EQ(errorIn(QString()), numberOf(ErrorNumber::TypeMismatch));
    EXPECT_EQ(errorIn(u"nan"_qs), numberOf(ErrorNumber::TypeMismatch));
    EXPECT_EQ(errorIn(u"40000"_qs), numberOf(ErrorNumber::Overflow));
    EXPECT_EQ(errorIn(u"-32769"_qs), numberOf(ErrorNumber::Overflow));
}

TEST(textrules, singlesHaveSevenDigits)
{
    EXPECT_EQ(singleText(43.2F), u"43.2"_qs);
    EXPECT_EQ(singleText(86.39999F), u"86.39999"_qs);
    EXPECT_EQ(singleText(0.0F), u"0"_qs);
}

TEST(textrules, strHasABlankWhereTheSignWouldBe)
{
    EXPECT_EQ(str(0), u" 0"_qs);
    EXPECT_EQ(str(-0.0), u" 0"_qs);
    EXPECT_EQ(str(32766), u" 32766"_qs);
    EXPECT_EQ(str(-12), u"-12"_qs);
    EXPECT_EQ(str(1234567), u" 1234567"_qs);
    EXPECT_EQ(str(0.5), u" .5"_qs);
    EXPECT_EQ(str(-0.25), u"-.25"_qs);
    EXPECT_EQ(str(44.1), u" 44.1"_qs);
    EXPECT_EQ(str(0.1 + 0.2), u" .3"_qs);
    EXPECT_EQ(str(1e15), u" 1E+15"_qs);
}

TEST(textrules, shortTextsAreRightAlignedInTwoCharacters)
{
    EXPECT_EQ(atLeastTwo(QString()), u"  "_qs);
    EXPECT_EQ(atLeastTwo(u";"_qs), u" ;"_qs);
    EXPECT_EQ(atLeastTwo(u"ab"_qs), u"ab"_qs);
    EXPECT_EQ(atLeastTwo(u"abc"_qs), u"abc"_qs);
}

TEST(textrules, linesEndInEveryWay)
{
    EXPECT_EQ(lines(u"a\r\nb\nc\rd"_qs), QStringList({u"a"_qs, u"b"_qs, u"c"_qs, u"d"_qs}));
    EXPECT_EQ(lines(u"a\r\n\r\nb\r\n"_qs), QStringList({u"a"_qs, QString(), u"b"_qs}));
    EXPECT_EQ(lines(QString()), QStringList());
    EXPECT_EQ(lines(u"\n"_qs), QStringList({QString()}));
}

#include "player/displays/displaytext.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

DisplayText made(int cells, const DisplayValue& value, const DisplayClock& clock = {})
{
    return textOf({.cells = cells}, value, clock);
}

QString text(int cells, const DisplayValue& value)
{
    return made(cells, value).text;
}

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
constexpr double kEndless = std::numeric_limits<double>::infinity();
constexpr double kHuge = 1e300;

} // namespace

TEST(DisplayTextMinutes, hasTwoDigitsOfEach)
{
    EXPECT_EQ(text(0, 65.0), u"01:05"_qs);
    EXPECT_EQ(text(0, 0.0), u"00:00"_qs);
    EXPECT_EQ(text(0, 599.0), u"09:59"_qs);
    EXPECT_EQ(text(0, 5999.0), u"99:59"_qs);
}

TEST(DisplayTextMinutes, growsBeyondTwoDigits)
{
    EXPECT_EQ(text(0, 6000.0), u"100:00"_qs);
}

TEST(DisplayTextMinutes, roundsHalvesToEven)
{
    EXPECT_EQ(text(0, 0.5), u"00:00"_qs);
    EXPECT_EQ(text(0, 1.5), u"00:02"_qs);
    EXPECT_EQ(text(0, 2.5), u"00:02"_qs);
    EXPECT_EQ(text(0, 59.6), u"01:00"_qs);
}

TEST(DisplayTextMinutes, givesBothPartsTheSign)
{
    EXPECT_EQ(text(0, -65.0), u"-01:-05"_qs);
    EXPECT_EQ(text(0, -1.0), u"00:-01"_qs);
}

TEST(DisplayTextMinutes, takesTheNumberOfAText)
{
    EXPECT_EQ(text(0, u" 65 "_qs), u"01:05"_qs);
    EXPECT_EQ(text(0, u"abc"_qs), u"abc"_qs);
    EXPECT_EQ(text(0, QString()), QString());
}

TEST(DisplayTextMinutes, staysWithin32Bits)
{
    EXPECT_EQ(text(0, kHuge), u"35791394:07"_qs);
    EXPECT_EQ(text(0, -kHuge), u"-35791394:-08"_qs);
    EXPECT_EQ(text(0, kNone), u"00:00"_qs);
    EXPECT_EQ(text(0, kEndless), u"00:00"_qs);
}

TEST(DisplayTextMinutes, blanksTheVeryFirstZeroAtMost)
{
    EXPECT_EQ(made(0, 65.0).blankedZeros, 1);
}

TEST(DisplayTextNumber, hasAsManyZerosAsCells)
{
    EXPECT_EQ(text(1, 7.0), u"7"_qs);
    EXPECT_EQ(text(2, 7.0), u"07"_qs);
    EXPECT_EQ(text(3, 7.0), u"007"_qs);
    EXPECT_EQ(text(6, 7.0), u"000007"_qs);
    EXPECT_EQ(text(3, 0.0), u"000"_qs);
}

TEST(DisplayTextNumber, isNeverCut)
{
    EXPECT_EQ(text(3, 123456.0), u"123456"_qs);
}

TEST(DisplayTextNumber, takesTheNumberOfAText)
{
    EXPECT_EQ(text(3, u"44"_qs), u"044"_qs);
    EXPECT_EQ(text(3, u"44.1"_qs), u"044"_qs);
    EXPECT_EQ(text(3, u"1e2"_qs), u"100"_qs);
}

TEST(DisplayTextNumber, leavesOtherTextsAlone)
{
    EXPECT_EQ(text(3, u"??"_qs), u"??"_qs);
    EXPECT_EQ(text(3, u"7 kHz"_qs), u"7 kHz"_qs);
    EXPECT_EQ(text(3, u"inf"_qs), u"inf"_qs);
    EXPECT_EQ(text(3, u"nan"_qs), u"nan"_qs);
    EXPECT_EQ(text(3, u"0x10"_qs), u"0x10"_qs);
    EXPECT_EQ(text(3, u"1e999"_qs), u"1e999"_qs);
    EXPECT_EQ(text(3, QString()), QString());
}

TEST(DisplayTextNumber, roundsHalvesAwayFromZero)
{
    EXPECT_EQ(text(1, 2.5), u"3"_qs);
    EXPECT_EQ(text(1, 0.5), u"1"_qs);
    EXPECT_EQ(text(1, 0.4), u"0"_qs);
    EXPECT_EQ(text(1, -2.5), u"-3"_qs);
    EXPECT_EQ(text(2, 99.5), u"100"_qs);
    EXPECT_EQ(text(2, 0.04), u"00"_qs);
}

TEST(DisplayTextNumber, hasASignOnlyBesideWhatIsNotZero)
{
    EXPECT_EQ(text(3, -7.0), u"-007"_qs);
    EXPECT_EQ(text(3, -0.2), u"000"_qs);
    EXPECT_EQ(text(3, -0.0), u"000"_qs);
}

TEST(DisplayTextNumber, keepsFifteenDigitsOfAHugeOne)
{
    EXPECT_EQ(text(1, 1e20), u"100000000000000000000"_qs);
    EXPECT_EQ(text(1, kHuge), u"1"_qs + QString(300, u'0'));
    EXPECT_EQ(text(1, std::numeric_limits<double>::denorm_min()), u"0"_qs);
    EXPECT_EQ(text(2, kNone), u"00"_qs);
    EXPECT_EQ(text(2, -kEndless), u"00"_qs);
}

TEST(DisplayTextNumber, mayHaveItsZerosBlanked)
{
    EXPECT_EQ(made(3, 7.0).blankedZeros, 3);
    EXPECT_EQ(made(3, 123456.0).blankedZeros, 6);
}

TEST(DisplayTextTenths, hasThreeDigitsAndOne)
{
    EXPECT_EQ(text(7, 44.1), u"044.1"_qs);
    EXPECT_EQ(text(7, 0.0), u"000.0"_qs);
    EXPECT_EQ(text(7, 0.25), u"000.3"_qs);
    EXPECT_EQ(text(7, 0.04), u"000.0"_qs);
    EXPECT_EQ(text(7, 999.95), u"1000.0"_qs);
    EXPECT_EQ(text(7, -1.26), u"-001.3"_qs);
    EXPECT_EQ(text(7, u"128"_qs), u"128.0"_qs);
    EXPECT_EQ(made(7, 7.0).blankedZeros, 0);
}

namespace {

DisplayText clockAt(const QTime& now, bool hours24)
{
    return made(8, 0.0, {.now = now, .hours24 = hours24});
}

} // namespace

TEST(DisplayTextClock, of24HoursHasBlanksForTheHalfOfTheDay)
{
    const DisplayText clock = clockAt({14, 5}, true);
    EXPECT_EQ(clock.text, u"14:05"_qs);
    EXPECT_EQ(clock.dayHalf, u"   "_qs);
    EXPECT_TRUE(clock.isClock);
    EXPECT_EQ(clock.blankedZeros, 0);
    EXPECT_EQ(clockAt({0, 0, 59}, true).text, u"00:00"_qs);
}

TEST(DisplayTextClock, of12HoursHasTheHalfOfTheDay)
{
    const DisplayText clock = clockAt({14, 5}, false);
    EXPECT_EQ(clock.text, u"02:05"_qs);
    EXPECT_EQ(clock.dayHalf, u"PM"_qs);
    EXPECT_TRUE(clock.isClock);
    EXPECT_EQ(clock.blankedZeros, 5);
}

TEST(DisplayTextClock, of12HoursCallsMidnightAndNoonTwelve)
{
    EXPECT_EQ(clockAt({0, 1}, false).text, u"12:01"_qs);
    EXPECT_EQ(clockAt({0, 1}, false).dayHalf, u"AM"_qs);
    EXPECT_EQ(clockAt({12, 1}, false).text, u"12:01"_qs);
    EXPECT_EQ(clockAt({12, 1}, false).dayHalf, u"PM"_qs);
    EXPECT_EQ(clockAt({11, 59}, false).text, u"11:59"_qs);
    EXPECT_EQ(clockAt({11, 59}, false).dayHalf, u"AM"_qs);
    EXPECT_EQ(clockAt({23, 59}, false).text, u"11:59"_qs);
}

TEST(DisplayTextClock, ofNoTimeIsMidnight)
{
    EXPECT_EQ(clockAt(QTime(), true).text, u"00:00"_qs);
    EXPECT_EQ(clockAt(QTime(), false).text, u"12:00"_qs);
}

TEST(DisplayTextClock, isNoMatterOfTheValue)
{
    EXPECT_EQ(made(8, u"abc"_qs, {.now = {9, 30}}).text, u"09:30"_qs);
    EXPECT_FALSE(made(7, 0.0).isClock);
}

TEST(DisplayTextTimeOfDay, isTheFractionOfADay)
{
    EXPECT_EQ(text(9, 0.5), u"12:00:00"_qs);
    EXPECT_EQ(text(9, 0.0), u"00:00:00"_qs);
    EXPECT_EQ(text(9, 65.0 / 86400), u"00:01:05"_qs);
    EXPECT_EQ(text(9, 36526.75), u"18:00:00"_qs);
    EXPECT_EQ(text(9, -1.25), u"06:00:00"_qs);
    EXPECT_EQ(text(9, 86399.6 / 86400), u"00:00:00"_qs);
    EXPECT_EQ(text(9, u"0.25"_qs), u"06:00:00"_qs);
    EXPECT_EQ(text(9, u"noon"_qs), u"noon"_qs);
    EXPECT_EQ(text(9, kHuge), u"00:00:00"_qs);
    EXPECT_EQ(text(9, kNone), u"00:00:00"_qs);
    EXPECT_EQ(made(9, 0.5).blankedZeros, 0);
}

TEST(DisplayTextPlain, isTheValueItself)
{
    EXPECT_EQ(text(10, u"A name, longer than that"_qs), u"A name, longer than that"_qs);
    EXPECT_EQ(text(10, u"007"_qs), u"007"_qs);
    EXPECT_EQ(text(32767, 7.0), u"7"_qs);
    EXPECT_EQ(text(12, 0.5), u"0.5"_qs);
    EXPECT_EQ(text(12, -0.0), u"0"_qs);
    EXPECT_EQ(text(12, 1e15), u"1E+15"_qs);
    EXPECT_EQ(text(12, kNone), u"0"_qs);
    EXPECT_EQ(made(10, u"007"_qs).blankedZeros, 0);
}

TEST(DisplayText, ofNegativeCellsIsNone)
{
    EXPECT_EQ(text(-1, 7.0), QString());
    EXPECT_EQ(text(-32768, u"abc"_qs), QString());
}

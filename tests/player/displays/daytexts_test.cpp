#include "player/displays/daytexts.h"

#include <QLocale>

#include <gtest/gtest.h>

namespace {

// It is the Sunday before the others.
const QDate kSunday(2026, 11, 15);

} // namespace

TEST(DayTexts, haveALetterForEachDayOfTheWeek)
{
    QString letters;
    for (int day = 0; day < 8; ++day)
        letters += dayTexts(kSunday.addDays(day)).letter;
    EXPECT_EQ(letters, QStringLiteral("UMTWRFSU"));
}

TEST(DayTexts, nameTheDayInFullAndByThreeLetters)
{
    QStringList names;
    QStringList days;
    for (int day = 0; day < 7; ++day) {
        const DayTexts texts = dayTexts(kSunday.addDays(day));
        names += texts.date.section(u' ', 0, 0);
        days += texts.day;
    }
    EXPECT_EQ(names.join(u' '), QStringLiteral("Sunday Monday Tuesday Wednesday Thursday Friday Saturday"));
    EXPECT_EQ(days.join(u' '), QStringLiteral("Sun Mon Tue Wed Thu Fri Sat"));
}

TEST(DayTexts, nameTheMonth)
{
    QStringList months;
    for (int month = 1; month <= 12; ++month)
        months += dayTexts({2026, month, 1}).date.section(u' ', 1, 1);
    EXPECT_EQ(months.join(u' '),
              QStringLiteral("January February March April May June July August September October November "
                             "December"));
}

TEST(DayTexts, keepThePlaceOfTheSignBeforeNumbers)
{
    EXPECT_EQ(dayTexts({2026, 11, 21}).date, QStringLiteral("Saturday November  21, 2026"));
    EXPECT_EQ(dayTexts({2026, 3, 1}).date, QStringLiteral("Sunday March  1, 2026"));
    EXPECT_EQ(dayTexts({2024, 2, 29}).date, QStringLiteral("Thursday February  29, 2024"));
}

TEST(DayTexts, areTheSameWhateverTheSystemSpeaks)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
    const DayTexts texts = dayTexts({2026, 12, 9});
    QLocale::setDefault(before);
    EXPECT_EQ(texts.date, QStringLiteral("Wednesday December  9, 2026"));
    EXPECT_EQ(texts.day, QStringLiteral("Wed"));
}

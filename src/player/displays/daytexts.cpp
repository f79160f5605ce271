#include "player/displays/daytexts.h"

#include <array>

namespace {

constexpr QStringView kLetters = u"UMTWRFS";

// The names are English whatever the system speaks, as everything the player says.
const std::array<QString, 7> kDays{QStringLiteral("Sunday"),   QStringLiteral("Monday"),
                                   QStringLiteral("Tuesday"),  QStringLiteral("Wednesday"),
                                   QStringLiteral("Thursday"), QStringLiteral("Friday"),
                                   QStringLiteral("Saturday")};
const std::array<QString, 12> kMonths{
    QStringLiteral("January"), QStringLiteral("February"), QStringLiteral("March"),
    QStringLiteral("April"),   QStringLiteral("May"),      QStringLiteral("June"),
    QStringLiteral("July"),    QStringLiteral("August"),   QStringLiteral("September"),
    QStringLiteral("October"), QStringLiteral("November"), QStringLiteral("December")};

} // namespace

DayTexts dayTexts(QDate date)
{
    const auto weekday = static_cast<std::size_t>(date.dayOfWeek() % 7); // 0: Sunday
    const QString& day = kDays[weekday];
    const QString& month = kMonths[static_cast<std::size_t>(date.month() - 1)];
    return {QStringLiteral("%1 %2  %3, %4").arg(day, month).arg(date.day()).arg(date.year()), day.left(3),
            kLetters[static_cast<qsizetype>(weekday)]};
}

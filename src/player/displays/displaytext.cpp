#include "player/displays/displaytext.h"
#include "player/displays/zeroformat.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace {

// These are codes of DisplayFont::cells; those above are a count of characters.
constexpr int kMinutesCells = 0;
constexpr int kMostNumberCells = 6;
constexpr int kTenthsCells = 7;
constexpr int kClockCells = 8;
constexpr int kTimeOfDayCells = 9;

constexpr qsizetype kClockCharacters = 5;

std::optional<double> numberOf(const DisplayValue& value)
{
    if (const double* number = std::get_if<double>(&value))
        return std::isfinite(*number) ? *number : 0;
    bool ok = false;
    const double number = std::get<QString>(value).toDouble(&ok);
    if (!ok || !std::isfinite(number)) // "inf" and "nan" are words
        return {};
    return number;
}

QString plainText(const DisplayValue& value)
{
    if (const QString* text = std::get_if<QString>(&value))
        return *text;
    return QString::number(*numberOf(value), 'G', 15);
}

// Kept: both parts carry the sign of a value below zero.
QString minutesText(double value)
{
    using Limits = std::numeric_limits<qint32>;
    const auto seconds = static_cast<qint32>(
        std::nearbyint(std::clamp<double>(value, Limits::min(), Limits::max()))); // a half goes to even
    const qint32 minutes = seconds / 60;
    return zeroFormat(minutes, 2) + u':' + zeroFormat(seconds % 60, 2);
}

QString timeText(int hour, int minute)
{
    return zeroFormat(hour, 2) + u':' + zeroFormat(minute, 2);
}

// The value is days, as dates are numbers; the time is its fraction, for dates before the first one too.
QString timeOfDayText(double value)
{
    constexpr int kDay = 24 * 60 * 60;
    const double fraction = std::fabs(value - std::trunc(value));
    const int seconds = static_cast<int>(std::lround(fraction * kDay)) % kDay;
    return timeText(seconds / 3600, seconds / 60 % 60) + u':' + zeroFormat(seconds % 60, 2);
}

QString clockFormat(const DisplayClock& clock)
{
    const int hour = clock.now.isValid() ? clock.now.hour() : 0;
    const int minute = clock.now.isValid() ? clock.now.minute() : 0;
    if (clock.hours24)
        return timeText(hour, minute) + QStringLiteral("    ");
    return timeText((hour + 11) % 12 + 1, minute) +
           (hour < 12 ? QStringLiteral(" AM") : QStringLiteral(" PM"));
}

DisplayText clockText(const DisplayClock& clock)
{
    const QString whole = clockFormat(clock);
    return {.text = whole.left(kClockCharacters),
            .dayHalf = whole.mid(kClockCharacters + 1),
            .isClock = true,
            .blankedZeros = clock.hours24 ? 0 : static_cast<int>(kClockCharacters)};
}

QString formatted(int cells, double value)
{
    switch (cells) {
    case kMinutesCells:
        return minutesText(value);
    case kTenthsCells:
        return zeroFormat(value, 3, 1);
    case kTimeOfDayCells:
        return timeOfDayText(value);
    default:
        return zeroFormat(value, cells);
    }
}

} // namespace

DisplayText textOf(const DisplayFont& font, const DisplayValue& value, const DisplayClock& clock)
{
    if (font.cells < 0)
        return {};
    if (font.cells == kClockCells)
        return clockText(clock);
    DisplayText result;
    const std::optional<double> number = numberOf(value);
    result.text =
        number && font.cells < kFirstCountedCells ? formatted(font.cells, *number) : plainText(value);
    if (font.cells == kMinutesCells)
        result.blankedZeros = 1;
    else if (font.cells <= kMostNumberCells)
        result.blankedZeros = static_cast<int>(std::min<qsizetype>(result.text.size(), kMostCells));
    return result;
}

#include "player/playback/playertimes.h"

#include <cmath>

namespace {

constexpr qint32 kSecond = 1000;
constexpr qint32 kMinute = 60;

QString minutesAndSeconds(qint32 seconds)
{
    const qint32 minutes = seconds / kMinute;
    const qint32 rest = seconds - minutes * kMinute;
    // A negative rest keeps its sign behind the colon.
    const QString digits = QString::number(std::abs(rest)).rightJustified(2, u'0');
    return QString::number(minutes) + QLatin1String(rest < 0 ? ":-" : ":") + digits;
}

} // namespace

qint32 shownSeconds(qint32 milliseconds)
{
    return milliseconds / kSecond;
}

QString shownTimeText(qint32 milliseconds, bool remaining)
{
    return (remaining ? QStringLiteral("-") : QString()) + minutesAndSeconds(shownSeconds(milliseconds));
}

QString lengthText(qint32 milliseconds)
{
    return minutesAndSeconds(static_cast<qint32>(std::nearbyint(milliseconds / double(kSecond))));
}

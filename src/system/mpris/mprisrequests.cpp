#include "system/mpris/mprisrequests.h"

#include "platform/desktopcontrols.h"
#include "system/mpris/mprisvalues.h"

#include <QStringView>

#include <algorithm>
#include <climits>
#include <cmath>

namespace {

qint32 milliseconds(qlonglong microseconds)
{
    return static_cast<qint32>(microseconds / 1000);
}

// The offset may be any number at all; the sum is made when it is known to be no greater than what is left.
void seekBy(ControlledPlayer& player, qlonglong offset)
{
    const PlayerReport report = player.report();
    if (!mpris::canSeek(report))
        return;
    const qlonglong length = mpris::microseconds(report.length);
    const qlonglong here = std::min(mpris::microseconds(report.position), length);
    if (offset > length - here)
        player.next();
    else
        player.goTo(milliseconds(std::max<qlonglong>(here + offset, 0)));
}

// A wish for an entry that is over by now must not hit the one that follows it.
void goTo(ControlledPlayer& player, const QDBusObjectPath& track, qlonglong position)
{
    const PlayerReport report = player.report();
    const bool isInside = position >= 0 && position <= mpris::microseconds(report.length);
    if (mpris::canSeek(report) && isInside && track == mpris::trackOf(report))
        player.goTo(milliseconds(position));
}

// Makes "/home/me/a.mp3" of "file:///home/me/a.mp3", still encoded.
QStringView pathOf(QStringView address)
{
    constexpr QStringView kScheme(u"file:");
    constexpr QStringView kAuthority(u"//");
    constexpr QStringView kThisMachine(u"localhost");
    if (!address.startsWith(kScheme, Qt::CaseInsensitive))
        return {};
    address = address.sliced(kScheme.size());
    if (address.startsWith(kAuthority)) {
        address = address.sliced(kAuthority.size());
        if (address.startsWith(kThisMachine, Qt::CaseInsensitive))
            address = address.sliced(kThisMachine.size());
    }
    return address.startsWith(u'/') ? address : QStringView();
}

} // namespace

namespace mpris {

Request seek(qlonglong offset)
{
    return [offset](ControlledPlayer& player) { seekBy(player, offset); };
}

Request setPosition(const QDBusObjectPath& track, qlonglong position)
{
    return [track, position](ControlledPlayer& player) { goTo(player, track, position); };
}

std::optional<Request> setVolume(double volume)
{
    if (!std::isfinite(volume))
        return std::nullopt;
    const double bounded = std::clamp(volume, 0.0, 1.0);
    return [bounded](ControlledPlayer& player) { player.setVolume(bounded); };
}

// There is one rate only, and MPRIS has rate 0 mean a pause.
std::optional<Request> setRate(double rate)
{
    if (rate != 0)
        return std::nullopt;
    return [](ControlledPlayer& player) { player.pause(); };
}

std::optional<Request> setLoopStatus(const QString& status)
{
    const bool repeats = status == u"Track";
    if (!repeats && status != u"None")
        return std::nullopt;
    return [repeats](ControlledPlayer& player) { player.setRepeatsEntry(repeats); };
}

// It is handed on with two slashes, the one form that playlists know too.
std::optional<Request> openUri(const QString& address)
{
    constexpr qsizetype kLongest = PATH_MAX * 3; // each byte of a path encoded
    const QStringView path = pathOf(address);
    if (path.isEmpty() || path.size() > kLongest || path.contains(u'\0') || path.contains(u"%00"))
        return std::nullopt;
    const QString file = QStringLiteral("file://") + path.toString();
    return [file](ControlledPlayer& player) { player.openAndPlay(file); };
}

} // namespace mpris

#include "system/mpris/mprisvalues.h"

#include "platform/desktopcontrols.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace {

// A text on the bus holds no NUL, and a whole message has a size: a file's tag must not end the connection.
QString textOnBus(const QString& text)
{
    constexpr qsizetype kLongest = 4096;
    return text.left(kLongest).replace(QChar(u'\0'), QChar(QChar::ReplacementCharacter));
}

// It encodes byte by byte, because a name need not be UTF-8.
QString fileAddress(const QByteArray& path)
{
    return QStringLiteral("file://") + QString::fromLatin1(path.toPercentEncoding("/"));
}

QString statusOf(PlayerReport::Status status)
{
    switch (status) {
    case PlayerReport::Playing:
        return QStringLiteral("Playing");
    case PlayerReport::Paused:
        return QStringLiteral("Paused");
    case PlayerReport::Stopped:
        break;
    }
    return QStringLiteral("Stopped");
}

QVariantMap metadataOf(const PlayerReport& report)
{
    QVariantMap values{{QStringLiteral("mpris:trackid"), QVariant::fromValue(mpris::trackOf(report))}};
    if (report.entry < 1)
        return values;
    if (report.length > 0)
        values[QStringLiteral("mpris:length")] = mpris::microseconds(report.length);
    if (!report.cover.isEmpty())
        values[QStringLiteral("mpris:artUrl")] = fileAddress(report.cover);
    if (!report.title.isEmpty())
        values[QStringLiteral("xesam:title")] = textOnBus(report.title);
    if (!report.artist.isEmpty())
        values[QStringLiteral("xesam:artist")] = QStringList{textOnBus(report.artist)};
    if (!report.album.isEmpty())
        values[QStringLiteral("xesam:album")] = textOnBus(report.album);
    if (!report.file.isEmpty())
        values[QStringLiteral("xesam:url")] = fileAddress(report.file);
    return values;
}

} // namespace

namespace mpris {

qlonglong microseconds(qint32 milliseconds)
{
    return qlonglong(std::max(milliseconds, 0)) * 1000;
}

QDBusObjectPath trackOf(const PlayerReport& report)
{
    return QDBusObjectPath(report.entry > 0 ? QStringLiteral("/org/songbin/track/%1").arg(report.entry)
                                            : QStringLiteral("/org/mpris/MediaPlayer2/TrackList/NoTrack"));
}

bool canSeek(const PlayerReport& report)
{
    return report.entry > 0 && report.length > 0 && report.status != PlayerReport::Stopped;
}

// The player goes on from the last entry to the first and back, so that a list of one has a next entry too.
QVariantMap valuesOf(const PlayerReport& report)
{
    const bool hasEntries = report.entries > 0;
    const double volume = std::isfinite(report.volume) ? std::clamp(report.volume, 0.0, 1.0) : 0.0;
    return {
        {QStringLiteral("PlaybackStatus"), statusOf(report.status)},
        {QStringLiteral("LoopStatus"),
         report.repeatsEntry ? QStringLiteral("Track") : QStringLiteral("None")},
        {QStringLiteral("Shuffle"), report.shuffle},
        {QStringLiteral("Metadata"), metadataOf(report)},
        {QStringLiteral("Volume"), volume},
        {QStringLiteral("CanGoNext"), hasEntries},
        {QStringLiteral("CanGoPrevious"), hasEntries},
        {QStringLiteral("CanPlay"), hasEntries},
        {QStringLiteral("CanPause"), hasEntries},
        {QStringLiteral("CanSeek"), canSeek(report)},
    };
}

} // namespace mpris

#include "player/playlist/modcommon.h"

#include "base/dospath.h"
#include "base/textrules.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/wavevolume.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

constexpr int kFullChannel = 65535;
constexpr int kSnapDistance = 240; // twips: 16 pixels

// Kept: a negative half has 65535 added and not 65536, so that full volume reads one short of full.
int channel(std::uint32_t half)
{
    const int value = static_cast<std::int16_t>(half);
    return value < 0 ? value + kFullChannel : value;
}

} // namespace

QString GetPath(const QString& path)
{
    return dospath::splitAtLastBackslash(path).directory;
}

QString AddSlash(const QString& path)
{
    return path.isEmpty() ? path : dospath::withTrailingBackslash(path);
}

QString GetFileName(const QString& path)
{
    return dospath::fileName(path);
}

QString GetExtension(const QString& path)
{
    const qsizetype dot = path.lastIndexOf(u'.');
    return dot < 0 ? QString() : path.mid(dot + 1);
}

QString StripExtension(const QString& path)
{
    return path.left(path.lastIndexOf(u'.')); // the whole path when there is no dot
}

bool IsPicture(const QString& path)
{
    const QStringView end = QStringView(path).right(4);
    const auto isOne = [end](QStringView extension) {
        return std::equal(end.begin() + 1, end.end(), extension.begin(),
                          [](QChar c, QChar lower) { return (c.unicode() | 0x20) == lower.unicode(); });
    };
    return end.size() == 4 && end[0] == u'.' && (isOne(u"gif") || isOne(u"bmp") || isOne(u"jpg"));
}

QString BitCell(quint8 byte, int firstBit, int lastBit, int width, QStringView table)
{
    const int mask = (1 << (lastBit - firstBit + 1)) - 1;
    const qsizetype start = static_cast<qsizetype>((byte >> firstBit) & mask) * width;
    if (start >= table.size())
        return {};
    return textrules::withoutBlanks(table.mid(start, width));
}

bool FileExists(Files& files, const QString& path)
{
    return !path.isEmpty() && files.exists(path);
}

QString FindPicture(Files& files, const QString& pathWithoutExtension)
{
    const QString path = textrules::withoutBlanks(pathWithoutExtension);
    for (const QStringView extension : {u".BMP", u".GIF", u".JPG"}) {
        QString picture = path + extension.toString();
        if (FileExists(files, picture))
            return picture;
    }
    return {};
}

float GetVolume(WaveVolume& volume)
{
    const std::uint32_t word = volume.get();
    const int louder = std::max(channel(word & 0xFFFF), channel(word >> 16));
    return static_cast<float>(louder) / kFullChannel;
}

void SetVolume(WaveVolume& volume, float fraction)
{
    // What lies beyond the ends, and what is no number, would not fit in a channel.
    const double inRange = fraction > 0 ? std::min(static_cast<double>(fraction), 1.0) : 0.0;
    double value = inRange * kFullChannel;
    if (value > 32767)
        value -= 65536;
    // Between 32767 and 32767.5 the rounded value would be one less than 16 bits hold.
    const auto half = static_cast<std::int16_t>(std::max(std::nearbyint(value), -32768.0));
    const auto bits = static_cast<std::uint16_t>(half);
    volume.set(static_cast<std::uint32_t>(bits) << 16 | bits);
}

QString BrowseFolder(Dialogs& dialogs, const QString& title)
{
    const QString folder = dialogs.browseFolder(title).value_or(QString());
    return AddSlash(folder.left(folder.indexOf(u'\0'))); // the whole text when there is none
}

QPoint snappedPosition(const QRect& window, const QRect& workArea)
{
    const auto near = [](int a, int b) { return std::abs(a - b) < kSnapDistance; };
    const int bottom = workArea.y() + workArea.height();
    const int right = workArea.x() + workArea.width();
    QPoint place(window.x(), window.y());
    // Kept: the top and left edges snap to the screen's, not to those of the work area.
    if (near(place.y(), 0))
        place.setY(0);
    if (near(place.x(), 0))
        place.setX(0);
    if (near(place.y() + window.height(), bottom))
        place.setY(bottom - window.height());
    if (near(place.x() + window.width(), right))
        place.setX(right - window.width());
    return place;
}

#include "platform/audiodisc.h"

#include "platform/descriptor.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <linux/cdrom.h>
#include <sys/ioctl.h>

#include <fcntl.h>

#include <algorithm>
#include <optional>

namespace audiodisc {

namespace {

constexpr qint64 kMostSheetBytes = 1 << 20;
constexpr int kFrameBytes = 2352;
constexpr int kMostTracks = 99;

int framesOf(const QByteArray& minutesSecondsFrames)
{
    const QList<QByteArray> parts = minutesSecondsFrames.split(':');
    if (parts.size() != 3)
        return -1;
    int values[3] = {};
    for (int i = 0; i < 3; ++i) {
        bool number = false;
        values[i] = parts[i].toInt(&number);
        if (!number || values[i] < 0 || values[i] > (i == 0 ? 999 : i == 1 ? 59 : kFramesPerSecond - 1))
            return -1;
    }
    return (values[0] * 60 + values[1]) * kFramesPerSecond + values[2];
}

// The text between the quotes, or the first word.
QByteArray fileNameOf(const QByteArray& afterFile)
{
    const qsizetype quote = afterFile.indexOf('"');
    const qsizetype end = quote < 0 ? -1 : afterFile.indexOf('"', quote + 1);
    return end < 0 ? afterFile.split(' ').value(0) : afterFile.mid(quote + 1, end - quote - 1);
}

// Collects what the lines of a sheet say.
class Sheet {
public:
    void take(const QByteArray& line)
    {
        const QByteArray word = line.left(line.indexOf(' ')).toUpper();
        const QByteArray rest = line.mid(word.size()).trimmed();
        if (word == "FILE")
            image = fileNameOf(rest);
        else if (word == "TRACK")
            m_number = rest.toUpper().endsWith("AUDIO") ? rest.left(rest.indexOf(' ')).toInt() : 0;
        else if (word == "INDEX" && rest.startsWith("01 "))
            takeStart(framesOf(rest.mid(3).trimmed()));
    }

    QByteArray image;
    std::vector<Track> tracks; // without their lengths

private:
    void takeStart(int start)
    {
        const bool inOrder =
            tracks.empty() || (m_number > tracks.back().number && start > tracks.back().start);
        if (m_number >= 1 && m_number <= kMostTracks && start >= 0 && inOrder)
            tracks.push_back({m_number, start, 0});
    }

    int m_number = 0;
};

void setLengths(std::vector<Track>& tracks, int end)
{
    for (auto track = tracks.rbegin(); track != tracks.rend(); ++track) {
        track->length = std::max(end - track->start, 0);
        end = track->start;
    }
    std::erase_if(tracks, [](const Track& track) { return track.length == 0; });
}

std::optional<cdrom_tocentry> entryOf(int device, int number)
{
    cdrom_tocentry entry{};
    entry.cdte_track = static_cast<__u8>(number);
    entry.cdte_format = CDROM_LBA;
    return ioctl(device, CDROMREADTOCENTRY, &entry) == 0 ? std::optional(entry) : std::nullopt;
}

std::vector<Track> tracksOfDevice(const QByteArray& path)
{
    // Without O_NONBLOCK an empty drive would be waited for.
    const Descriptor device(::open(path.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    cdrom_tochdr header{};
    // A disc that still starts turning would be waited for, too.
    if (!device || ioctl(device.get(), CDROM_DRIVE_STATUS, CDSL_CURRENT) != CDS_DISC_OK ||
        ioctl(device.get(), CDROMREADTOCHDR, &header) != 0)
        return {};
    std::vector<Track> tracks;
    for (int number = header.cdth_trk0; number <= header.cdth_trk1; ++number) {
        const auto entry = entryOf(device.get(), number);
        const auto next = entryOf(device.get(), number == header.cdth_trk1 ? CDROM_LEADOUT : number + 1);
        if (entry && next && !(entry->cdte_ctrl & CDROM_DATA_TRACK))
            tracks.push_back({number, entry->cdte_addr.lba, next->cdte_addr.lba - entry->cdte_addr.lba});
    }
    return tracks;
}

QByteArray littleEndian(unsigned value, int bytes)
{
    QByteArray text;
    for (int i = 0; i < bytes; ++i)
        text += static_cast<char>(value >> 8 * i & 0xFF);
    return text;
}

QByteArray frameSecondMinute(int frames)
{
    const auto whole = static_cast<unsigned>(frames);
    return littleEndian(whole % kFramesPerSecond, 1) + littleEndian(whole / kFramesPerSecond % 60, 1) +
           littleEndian(whole / kFramesPerSecond / 60, 2);
}

QString trackName(const Track& track)
{
    return QStringLiteral("Track%1.cda").arg(track.number, 2, 10, QLatin1Char('0'));
}

} // namespace

bool isSheet(const QByteArray& path)
{
    return path.toLower().endsWith(".cue");
}

std::vector<Track> tracksOfSheet(const QByteArray& text, const QByteArray& directory)
{
    Sheet sheet;
    for (const QByteArray& line : text.split('\n'))
        sheet.take(line.simplified());
    const qint64 imageBytes = QFileInfo(QFile::decodeName(directory + '/' + sheet.image)).size();
    setLengths(sheet.tracks, static_cast<int>(std::min<qint64>(imageBytes / kFrameBytes, 1 << 30)));
    return std::move(sheet.tracks);
}

std::vector<Track> tracksOf(const QByteArray& deviceOrSheet)
{
    if (!isSheet(deviceOrSheet))
        return tracksOfDevice(deviceOrSheet);
    QFile sheet(QFile::decodeName(deviceOrSheet));
    if (!QFileInfo(sheet).isFile() || !sheet.open(QFile::ReadOnly))
        return {};
    return tracksOfSheet(sheet.read(kMostSheetBytes), deviceOrSheet.left(deviceOrSheet.lastIndexOf('/')));
}

QByteArray trackFile(const Track& track)
{
    constexpr int kLeadIn = 150; // two seconds, counted by the addresses in minutes
    return "RIFF" + littleEndian(36, 4) + "CDDAfmt " + littleEndian(24, 4) + littleEndian(1, 2) +
           littleEndian(static_cast<unsigned>(track.number), 2) + littleEndian(0, 4) +
           littleEndian(static_cast<unsigned>(track.start), 4) +
           littleEndian(static_cast<unsigned>(track.length), 4) + frameSecondMinute(track.start + kLeadIn) +
           frameSecondMinute(track.length);
}

QByteArray trackDirectory(const QByteArray& cache, const QByteArray& deviceOrSheet,
                          const std::vector<Track>& tracks)
{
    const QByteArray name =
        QCryptographicHash::hash(deviceOrSheet, QCryptographicHash::Sha1).toHex().left(16);
    const QByteArray path = cache + "/discs/" + name;
    QDir directory(QFile::decodeName(path));
    if (!directory.mkpath(QStringLiteral(".")))
        return {};
    QStringList gone = directory.entryList({QStringLiteral("Track??.cda")}, QDir::Files);
    for (const Track& track : tracks) {
        QFile file(directory.filePath(trackName(track)));
        if (!file.open(QFile::WriteOnly) || file.write(trackFile(track)) < 0)
            return {};
        gone.removeOne(trackName(track));
    }
    for (const QString& old : std::as_const(gone))
        directory.remove(old);
    return path;
}

} // namespace audiodisc

#include "system/drives/audiodisc.h"

#include "posix/descriptor.h"
#include "system/drives/cuesheet.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <linux/cdrom.h>
#include <sys/ioctl.h>

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <optional>

namespace audiodisc {

namespace {

constexpr qint64 kMostSheetBytes = 1 << 20;
constexpr int kFrameBytes = 2352;
constexpr int kLeadIn = 150; // two seconds, counted by the addresses in minutes
// This much can be told in two digits of minutes.
constexpr std::uintmax_t kMostFrames = 100 * 60 * kFramesPerSecond - 1 - kLeadIn;

std::optional<cdrom_tocentry> entryOf(int device, int number)
{
    cdrom_tocentry entry{};
    entry.cdte_track = static_cast<__u8>(number);
    entry.cdte_format = CDROM_LBA;
    return ioctl(device, CDROMREADTOCENTRY, &entry) == 0 ? std::optional(entry) : std::nullopt;
}

int lastSessionOf(int device)
{
    cdrom_multisession session{};
    session.addr_format = CDROM_LBA;
    const bool several = ioctl(device, CDROMMULTISESSION, &session) == 0 && session.xa_flag != 0;
    return several ? session.addr.lba : 0;
}

Disc discInDevice(const QByteArray& path)
{
    // Without O_NONBLOCK an empty drive would be waited for.
    const Descriptor device(::open(path.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    cdrom_tochdr header{};
    // A disc that still starts turning would be waited for, too.
    if (!device || ioctl(device.get(), CDROM_DRIVE_STATUS, CDSL_CURRENT) != CDS_DISC_OK ||
        ioctl(device.get(), CDROMREADTOCHDR, &header) != 0)
        return {};
    Toc toc;
    for (int number = header.cdth_trk0; number <= header.cdth_trk1; ++number) {
        const auto entry = entryOf(device.get(), number);
        if (!entry)
            return {}; // a gap in the table would lengthen the track before
        toc.entries.push_back({number, entry->cdte_addr.lba, !(entry->cdte_ctrl & CDROM_DATA_TRACK)});
    }
    const auto leadOut = entryOf(device.get(), CDROM_LEADOUT);
    toc.end = leadOut ? leadOut->cdte_addr.lba : 0;
    toc.lastSession = lastSessionOf(device.get());
    return {tracksOf(toc)};
}

// The toolkit's own would not find a name that is no UTF-8.
bool isFile(const QByteArray& path)
{
    std::error_code ignored;
    return std::filesystem::is_regular_file(path.toStdString(), ignored);
}

std::optional<QByteArray> sheetText(const QByteArray& path)
{
    if (!isFile(path)) // a pipe of that name would be waited for
        return {};
    std::ifstream file(path.toStdString(), std::ios::binary);
    QByteArray text(kMostSheetBytes + 1, '\0');
    file.read(text.data(), text.size());
    text.truncate(file.gcount());
    return text.size() > kMostSheetBytes ? std::nullopt : std::optional(text);
}

// Sheets made elsewhere name their image by a path of that system.
QByteArray imagePath(const QByteArray& name, const QByteArray& directory)
{
    const QByteArray last = name.mid(name.lastIndexOf('\\') + 1);
    return last.startsWith('/') ? last : directory + '/' + last;
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

// What is right already is left alone: drives are looked at often, and by several programs at once.
bool makeFile(const QString& path, const QByteArray& content)
{
    QFile old(path);
    if (QFileInfo(path).isFile() && old.open(QFile::ReadOnly) && old.read(content.size() + 1) == content)
        return true;
    QSaveFile file(path);
    return file.open(QFile::WriteOnly) && file.write(content) == content.size() && file.commit();
}

bool makeLink(const QByteArray& path, const QByteArray& target)
{
    std::error_code ignored;
    if (std::filesystem::read_symlink(path.toStdString(), ignored) == target.toStdString())
        return true;
    unlink(path.constData());
    return symlink(target.constData(), path.constData()) == 0;
}

bool makeTrackFiles(const QByteArray& path, const std::vector<Track>& tracks)
{
    QDir directory(QFile::decodeName(path));
    if (!directory.mkpath(QStringLiteral(".")))
        return false;
    QStringList gone = directory.entryList({QStringLiteral("Track??.cda")}, QDir::Files);
    for (const Track& track : tracks) {
        if (!makeFile(directory.filePath(trackName(track)), trackFile(track)))
            return false;
        gone.removeOne(trackName(track));
    }
    for (const QString& old : std::as_const(gone))
        directory.remove(old);
    return true;
}

} // namespace

bool isSheet(const QByteArray& path)
{
    return path.toLower().endsWith(".cue");
}

Disc discOfSheet(const QByteArray& text, const QByteArray& directory)
{
    const std::optional<CueSheet> sheet = readCueSheet(text);
    if (!sheet)
        return {};
    const QByteArray image = imagePath(sheet->image, directory);
    std::error_code noFile;
    const std::uintmax_t frames = std::filesystem::file_size(image.toStdString(), noFile) / kFrameBytes;
    if (noFile || !isFile(image) || frames > kMostFrames)
        return {{}, image};
    const int end = static_cast<int>(frames);
    return {tracksOf({sheet->entries, end}), image, end};
}

Disc discIn(const QByteArray& deviceOrSheet)
{
    if (!isSheet(deviceOrSheet))
        return discInDevice(deviceOrSheet);
    const std::optional<QByteArray> text = sheetText(deviceOrSheet);
    return text ? discOfSheet(*text, deviceOrSheet.left(deviceOrSheet.lastIndexOf('/'))) : Disc{};
}

QByteArray trackFile(const Track& track)
{
    return "RIFF" + littleEndian(36, 4) + "CDDAfmt " + littleEndian(24, 4) + littleEndian(1, 2) +
           littleEndian(static_cast<unsigned>(track.number), 2) + littleEndian(0, 4) +
           littleEndian(static_cast<unsigned>(track.start), 4) +
           littleEndian(static_cast<unsigned>(track.length), 4) + frameSecondMinute(track.start + kLeadIn) +
           frameSecondMinute(track.length);
}

// The player's own reader of sheets knows upper case alone, takes a sound file's header for samples, gives up
// at unknown words and does not count its tracks: it is only given sheets that we wrote.
Place show(const Disc& disc, const QByteArray& deviceOrSheet, const QByteArray& cache)
{
    const QByteArray name =
        QCryptographicHash::hash(deviceOrSheet, QCryptographicHash::Sha1).toHex().left(16);
    const QByteArray place = cache + "/discs/" + name;
    if (disc.tracks.empty() || !makeTrackFiles(place, disc.tracks))
        return {};
    if (disc.image.isEmpty())
        return {place, deviceOrSheet};
    const QByteArray sheet = cueSheetOf(disc.tracks, disc.imageFrames, name + ".bin");
    const QByteArray player = place + ".cue";
    const bool made = makeLink(place + ".bin", disc.image) && makeFile(QFile::decodeName(player), sheet);
    return made ? Place{place, player} : Place{};
}

} // namespace audiodisc

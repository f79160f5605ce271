#include "player/playback/entryopener.h"

#include "platform/drives.h"
#include "platform/mediaelement.h"
#include "platform/mediaerror.h"
#include "platform/platform.h"
#include "player/playback/mpegfacts.h"
#include "player/playback/playbackrules.h"
#include "player/playback/playbackview.h"
#include "player/playback/playersettings.h"
#include "player/playlist/modcommon.h"
#include "player/playlist/playlist.h"

#include <utility>

namespace {

constexpr qint32 kPictureTime = 5000;

const QString kDelay = QStringLiteral("Delay");
const QString kModules = QStringLiteral("M4W_MCI");
const QString kDisc = QStringLiteral("cdaudio");

// Returns the letter of a path's drive that has no disk, or is not there, and null for any other path.
QChar emptyDrive(Drives& drives, const QString& path)
{
    const bool hasDrive = path.size() > 2 && path[1] == u':' && path[2] == u'\\';
    return hasDrive && !drives.machinePath(path.left(3)) ? path[0].toUpper() : QChar();
}

} // namespace

bool EntryOpener::isPicture() const
{
    return m_kind == MediaKind::Picture;
}

bool EntryOpener::isDelay() const
{
    return m_deviceType == kDelay;
}

bool EntryOpener::isModule() const
{
    return m_deviceType == kModules;
}

// --- what it is -----------------------------------------------------------------------------------

bool EntryOpener::prepare(int index)
{
    if (!fileIsThere(index))
        return false;
    const MediaKind kind = mediaKindOf(m_path);
    m_kind = kind.entry;
    m_deviceType = kind.deviceType;
    if (kind.hasTag)
        readFacts();
    return m_kind != MediaKind::NotPlayed;
}

// Kept: the path of a file that is not there is dropped for good.
bool EntryOpener::fileIsThere(int index)
{
    m_path = m_list.entries()[static_cast<std::size_t>(index)].path;
    if (FileExists(m_seams.platform.files, m_path))
        return true;
    m_deviceType.clear();
    sayDriveIsEmpty();
    m_list.markNotFound(index);
    return false;
}

void EntryOpener::sayDriveIsEmpty()
{
    if (const QChar drive = emptyDrive(m_seams.platform.drives, m_path); !drive.isNull())
        m_view.say(QStringLiteral("Drive %1: is empty. Put its disk in, then add %2 again.")
                       .arg(drive)
                       .arg(GetFileName(m_path)));
}

void EntryOpener::readFacts()
{
    const MpegFacts facts = GetMP3Info(m_path, m_seams.platform.files, m_seams.fileNumbers, m_seams.codePage);
    m_tag = facts.tag;
    if (facts.read) {
        m_view.showBitRate(facts.bitRate, facts.bitRateValue);
        m_view.showSampling(facts.sampling, facts.samplingValue);
        m_view.showMode(facts.mode);
    }
    if (m_seams.settings.UseTagCover == 1)
        m_view.loadTagCover(GetPath(m_path), m_tag);
}

void EntryOpener::showPicture()
{
    m_length = kPictureTime;
    m_view.loadCover(m_path);
}

// --- on a device ----------------------------------------------------------------------------------

bool EntryOpener::open(MediaElement& device, bool cues)
{
    device.setDeviceType(m_deviceType);
    device.setTimeFormat(QStringLiteral("milliseconds"));
    if (isDelay())
        return true;
    return m_deviceType == kDisc ? openDisc(device, cues) : openFile(device, cues);
}

// Who waits is told what for.
void EntryOpener::sendOpen(MediaElement& device)
{
    m_openingSince = std::chrono::steady_clock::now();
    device.send(QStringLiteral("open"));
    const bool told = !m_openingSince;
    m_openingSince.reset();
    if (told)
        m_view.say({});
}

void EntryOpener::paintMeanwhile()
{
    constexpr auto kLong = std::chrono::milliseconds(700);
    if (m_openingSince && std::chrono::steady_clock::now() - *m_openingSince > kLong) {
        m_openingSince.reset();
        m_view.say(QStringLiteral("Opening %1 takes a moment.").arg(GetFileName(m_path)));
    }
    m_view.paintMeanwhile();
}

bool EntryOpener::openFile(MediaElement& device, bool cues)
{
    device.setFileName(m_path);
    device.setWait(true);
    sendOpen(device);
    if (device.error() > 0)
        return false;
    device.setFrom(0);
    m_length = device.length();
    if (!cues)
        device.send(QStringLiteral("play"));
    return true;
}

bool EntryOpener::openDisc(MediaElement& device, bool cues)
{
    device.setFileName({});
    sendOpen(device);
    if (device.error() > 0)
        return false;
    device.setTrack(discTrackOf(m_path));
    const qint32 start = device.trackPosition();
    m_length = device.trackLength();
    device.setFrom(start);
    device.setTo(within32Bits(qint64(start) + m_length - 1));
    if (!cues)
        device.send(QStringLiteral("play"));
    return device.error() == 0;
}

QString EntryOpener::errorReport(const MediaElement& device)
{
    QString text = QStringLiteral("Unhandled Tonedeck error");
    if (device.error() == MediaError::kNoDriver)
        text = QStringLiteral("MCI driver is NOT installed.\rSee Tonedeck documentation!");
    else if (device.error() == MediaError::kDamaged)
        text =
            QStringLiteral("Unknown file format, corrupt file, or un-supported variation of known format.");
    return QStringLiteral("MCI Device: %1\r\r%2\r\r%3")
        .arg(std::exchange(m_deviceType, {}), device.errorMessage(), text);
}

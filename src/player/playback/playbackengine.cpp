#include "player/playback/playbackengine.h"

#include "platform/drives.h"
#include "platform/mediaelement.h"
#include "platform/platform.h"
#include "platform/program.h"
#include "player/playback/mediakind.h"
#include "player/playback/mpegfacts.h"
#include "player/playback/playbackview.h"
#include "player/playback/playersettings.h"
#include "player/playback/playertimes.h"
#include "player/playlist/modcommon.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <chrono>
#include <limits>
#include <thread>

namespace {

constexpr qint32 kTick = 100;
constexpr qint32 kPictureTime = 5000;
constexpr qint32 kStep = 10000; // of a jump back or forward

const QString kDelay = QStringLiteral("Delay");
const QString kModules = QStringLiteral("M4W_MCI");
const QString kDisc = QStringLiteral("cdaudio");

qint32 within32Bits(qint64 value)
{
    using Limits = std::numeric_limits<qint32>;
    return static_cast<qint32>(std::clamp<qint64>(value, Limits::min(), Limits::max()));
}

// The letter of a path's drive that has no disk, or is not there; null of any other path.
QChar emptyDrive(Drives& drives, const QString& path)
{
    const bool hasDrive = path.size() > 2 && path[1] == u':' && path[2] == u'\\';
    return hasDrive && !drives.machinePath(path.left(3)) ? path[0].toUpper() : QChar();
}

} // namespace

PlaybackEngine::PlaybackEngine(Playlist& list, PlaybackView& face, const Seams& seams)
    : m_list(list), m_face(face), m_seams(seams)
{
    for (MediaElement* element : m_seams.devices)
        element->setMeanwhile([this] { paintMeanwhile(); });
}

void PlaybackEngine::paintMeanwhile()
{
    constexpr auto kLong = std::chrono::milliseconds(700);
    if (m_openingSince && std::chrono::steady_clock::now() - *m_openingSince > kLong) {
        m_openingSince.reset();
        m_face.say(QStringLiteral("Opening %1 takes a moment.").arg(GetFileName(m_path)));
    }
    m_face.paintMeanwhile();
}

bool PlaybackEngine::isDelay() const
{
    return m_deviceType == kDelay;
}

// --- starting an entry ----------------------------------------------------------------------------

void PlaybackEngine::PlayIt()
{
    if (!chooseEntry())
        return;
    m_face.enableTimer1(false);
    device().send(QStringLiteral("close"));
    m_face.clearFacts();
    m_loop = {};
    if (!isPlayable(m_list.CurTrack() - 1))
        return halt();
    showEntry();
    if (!start())
        return reportError();
    started();
    if (m_deviceType == kModules && !m_isCueing)
        handOver();
    m_face.enableTimer1(true);
}

// Kept: before the first comes the last one, behind the last one the player stops on the first.
bool PlaybackEngine::chooseEntry()
{
    const int entries = m_list.count();
    if (entries == 0)
        return false;
    if (m_list.CurTrack() < 1)
        m_list.setCurTrack(entries);
    if (m_list.CurTrack() <= entries)
        return true;
    m_list.setCurTrack(1);
    StopIt();
    return false;
}

bool PlaybackEngine::isPlayable(int index)
{
    if (!fileIsThere(index))
        return false;
    const MediaKind kind = mediaKindOf(m_path);
    m_deviceType = kind.deviceType;
    if (kind.hasTag)
        readFacts();
    if (kind.entry == MediaKind::Picture)
        showPicture();
    return kind.entry != MediaKind::NotPlayed;
}

// Kept: the path of a file that is not there is dropped for good.
bool PlaybackEngine::fileIsThere(int index)
{
    m_path = m_list.entries()[static_cast<std::size_t>(index)].path;
    if (FileExists(m_seams.platform.files, m_path))
        return true;
    m_deviceType.clear();
    if (const QChar drive = emptyDrive(m_seams.platform.drives, m_path); !drive.isNull())
        m_face.say(QStringLiteral("Drive %1: is empty. Put its disk in, then add %2 again.")
                       .arg(drive)
                       .arg(GetFileName(m_path)));
    m_list.markNotFound(index);
    return false;
}

void PlaybackEngine::readFacts()
{
    const MpegFacts facts = GetMP3Info(m_path, m_seams.platform.files, m_seams.fileNumbers, m_seams.codePage);
    m_tag = facts.tag;
    if (facts.read) {
        m_face.showBitRate(facts.bitRate, facts.bitRateValue);
        m_face.showSampling(facts.sampling, facts.samplingValue);
        m_face.showMode(facts.mode);
    }
    if (m_seams.settings.UseTagCover == 1)
        m_face.loadTagCover(GetPath(m_path), m_tag);
}

void PlaybackEngine::showPicture()
{
    m_trackLength = kPictureTime;
    m_position = 0;
    m_face.loadCover(m_path);
}

void PlaybackEngine::showEntry()
{
    const int number = m_list.CurTrack();
    m_name = m_list.entries()[static_cast<std::size_t>(number - 1)].name;
    m_face.showName(m_name);
    m_face.showEntryNumber(number);
}

bool PlaybackEngine::start()
{
    MediaElement& element = device();
    element.setDeviceType(m_deviceType);
    element.setTimeFormat(QStringLiteral("milliseconds"));
    if (isDelay())
        return true;
    return m_deviceType == kDisc ? openDisc() : openFile();
}

// Who waits is told what for.
void PlaybackEngine::sendOpen()
{
    m_openingSince = std::chrono::steady_clock::now();
    device().send(QStringLiteral("open"));
    const bool told = !m_openingSince;
    m_openingSince.reset();
    if (told)
        m_face.say({});
}

bool PlaybackEngine::openFile()
{
    MediaElement& element = device();
    element.setFileName(m_path);
    element.setWait(true);
    sendOpen();
    if (element.error() > 0)
        return false;
    element.setFrom(0);
    m_trackLength = element.length();
    if (!m_isCueing)
        element.send(QStringLiteral("play"));
    return true;
}

bool PlaybackEngine::openDisc()
{
    MediaElement& element = device();
    element.setFileName({});
    sendOpen();
    if (element.error() > 0)
        return false;
    element.setTrack(discTrackOf(m_path));
    const qint32 start = element.trackPosition();
    m_trackLength = element.trackLength();
    element.setFrom(start);
    element.setTo(within32Bits(qint64(start) + m_trackLength - 1));
    if (!m_isCueing)
        element.send(QStringLiteral("play"));
    return element.error() == 0;
}

void PlaybackEngine::started()
{
    m_isPaused = false;
    m_isPlaying = true;
    m_isHalted = false;
    m_face.offerPosition();
    m_face.showLights();
    m_list.select(m_list.CurTrack() - 1);
    m_face.showLength(lengthText(m_trackLength));
    tellSilence();
}

// Once, and not with each entry that nobody hears.
void PlaybackEngine::tellSilence()
{
    const bool silent = !isDelay() && device().isSilent();
    if (isDelay() || silent == m_isSilent)
        return;
    m_isSilent = silent;
    if (silent)
        m_face.say(QStringLiteral("There is no sound device: it plays on without sound until there is one."));
    else
        m_face.say(QStringLiteral("There is a sound device again."));
}

// A music module's own player starts at a key; it may never come that far.
void PlaybackEngine::handOver()
{
    using Clock = std::chrono::steady_clock;
    constexpr auto kLongest = std::chrono::milliseconds(500);
    constexpr auto kPause = std::chrono::milliseconds(5);
    const auto end = Clock::now() + kLongest;
    while (device().position() < 1 && Clock::now() < end)
        std::this_thread::sleep_for(kPause);
    m_face.startModulePlayer();
}

void PlaybackEngine::reportError()
{
    constexpr int kNoDriver = 263;
    constexpr int kUnknownFormat = 277;
    const int number = device().error();
    QString text = QStringLiteral("Unhandled Tonedeck error");
    if (number == kNoDriver)
        text = QStringLiteral("MCI driver is NOT installed.\rSee Tonedeck documentation!");
    else if (number == kUnknownFormat)
        text =
            QStringLiteral("Unknown file format, corrupt file, or un-supported variation of known format.");
    const QString report =
        QStringLiteral("MCI Device: %1\r\r%2\r\r%3").arg(m_deviceType, device().errorMessage(), text);
    // Another entry may be started while the user reads: nothing of this one is left by then, nor after it.
    m_deviceType.clear();
    m_isCueing = false;
    halt();
    m_face.reportError(report);
}

void PlaybackEngine::halt()
{
    m_isHalted = true;
    m_face.showLights();
}

// --- while it plays -------------------------------------------------------------------------------

void PlaybackEngine::Timer1_Timer()
{
    if (!m_face.yield())
        return;
    if (!m_isPlaying || m_isHalted || m_trackLength == 0) // a skin's load begins the timer anyhow
        return;
    if (!isDelay())
        m_position = device().position();
    else if (!m_isPaused)
        m_position += kTick;
    tellSilence();
    showTime();
    if (m_face.followsPosition())
        m_face.showPosition(static_cast<float>(m_position) / static_cast<float>(m_trackLength));
    const TickPlan plan = planTick({.position = m_position,
                                    .trackLength = m_trackLength,
                                    .overlap = m_seams.settings.OverlapMs,
                                    .loop = m_loop,
                                    .introMode = IntroMode});
    if (plan.jumpsToLoopStart)
        PlayFrom(m_loop.start);
    if (plan.over)
        goOn();
}

void PlaybackEngine::showTime()
{
    const QString text = shownTimeText(ShownMs(), ShowRemaining);
    if (text == m_timeText)
        return;
    m_timeText = text;
    m_face.showTime(text, shownSeconds(ShownMs()));
}

// With an overlap the other device takes over, and this one plays its tail.
void PlaybackEngine::goOn()
{
    if (m_list.count() == 0) // cleared while it played: else each tick would count its entries on
        return StopIt();
    if (m_seams.settings.OverlapMs > 0)
        m_deviceIndex = 1 - m_deviceIndex;
    if (!RepeatMode) {
        Program& program = m_seams.platform.program;
        if (ShuffleMode)
            program.randomize();
        const double random = ShuffleMode ? program.random() : 0;
        m_face.enableTimer1(false); // a number beyond 16 bits is an error once, and not of each tick
        m_list.setCurTrack(entryAfter(m_list.CurTrack(), m_list.count(), ShuffleMode, random));
        m_face.enableTimer1(true);
    }
    if (StopAfterTrack)
        cue();
    else
        PlayIt();
}

// Opened and shown as if it played, but not one sample of it is heard.
void PlaybackEngine::cue()
{
    const QScopedValueRollback cueing(m_isCueing, true);
    PlayIt();
    StopIt();
}

// --- transport ------------------------------------------------------------------------------------

void PlaybackEngine::rewind(MediaElement& element)
{
    element.setFrom(0);
    element.send(QStringLiteral("seek"));
    element.send(QStringLiteral("stop"));
}

void PlaybackEngine::StopIt()
{
    rewind(device());
    rewind(*m_seams.devices[static_cast<std::size_t>(1 - m_deviceIndex)]);
    m_position = 0;
    showTime();
    if (m_face.followsPosition())
        m_face.showPosition(0);
    m_isPaused = false;
    m_isPlaying = false;
    m_face.showLights();
}

void PlaybackEngine::PauseIt()
{
    if (m_face.stoppedLightShown())
        return;
    device().send(m_isPaused ? QStringLiteral("play") : QStringLiteral("stop"));
    m_isPaused = !m_isPaused;
    m_face.showLights();
}

void PlaybackEngine::PlayPause()
{
    m_isPlaying ? PauseIt() : PlayIt();
}

void PlaybackEngine::Reverse()
{
    PlayFrom(within32Bits(qint64(m_position) - kStep));
}

void PlaybackEngine::Forward()
{
    PlayFrom(within32Bits(qint64(m_position) + kStep));
}

void PlaybackEngine::NextTrack()
{
    m_list.setCurTrack(m_list.CurTrack() + 1);
    PlayIt();
}

void PlaybackEngine::PrevTrack()
{
    m_list.setCurTrack(m_list.CurTrack() - 1);
    PlayIt();
}

void PlaybackEngine::PlayFrom(qint32 milliseconds)
{
    MediaElement& element = device();
    element.send(QStringLiteral("stop"));
    element.setFrom(jumpTarget(milliseconds, m_trackLength));
    element.send(QStringLiteral("Play"));
}

void PlaybackEngine::pressAB()
{
    m_loop = pressedAB(m_loop, m_position, m_face.hasButtonB());
    m_face.showLights();
}

void PlaybackEngine::setLoopEnd()
{
    m_loop.end = m_position;
    m_face.showLights();
}

void PlaybackEngine::closeDevices()
{
    for (MediaElement* element : m_seams.devices)
        element->send(QStringLiteral("close"));
}

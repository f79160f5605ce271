#include "player/playback/playbackengine.h"

#include "platform/mediaelement.h"
#include "platform/platform.h"
#include "platform/program.h"
#include "player/playback/playbackview.h"
#include "player/playback/playersettings.h"
#include "player/playback/playertimes.h"

#include <QScopedValueRollback>

#include <chrono>
#include <thread>

namespace {

constexpr qint32 kTick = 100;
constexpr qint32 kStep = 10000; // of a jump back or forward

} // namespace

PlaybackEngine::PlaybackEngine(Playlist& list, PlaybackView& view, const Seams& seams)
    : m_list(list), m_view(view), m_seams(seams), m_opener(list, view, seams)
{
    for (MediaElement* element : m_seams.devices)
        element->setMeanwhile([this] { m_opener.paintMeanwhile(); });
}

// --- starting an entry ----------------------------------------------------------------------------

void PlaybackEngine::PlayIt()
{
    if (!chooseEntry())
        return;
    m_view.enableTimer1(false);
    device().send(QStringLiteral("close"));
    m_view.clearFacts();
    m_loop = {};
    if (!m_opener.prepare(m_list.CurTrack() - 1))
        return halt();
    if (m_opener.isPicture())
        showPicture();
    showEntry();
    if (!m_opener.open(device(), m_isCueing))
        return reportError();
    started();
    if (m_opener.isModule() && !m_isCueing)
        handOver();
    m_view.enableTimer1(true);
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

void PlaybackEngine::showPicture()
{
    m_position = 0;
    m_opener.showPicture();
}

void PlaybackEngine::showEntry()
{
    const int number = m_list.CurTrack();
    m_name = m_list.entries()[static_cast<std::size_t>(number - 1)].name;
    m_view.showName(m_name);
    m_view.showEntryNumber(number);
}

void PlaybackEngine::started()
{
    m_isPaused = false;
    m_isPlaying = true;
    m_isHalted = false;
    m_view.offerPosition();
    m_view.showLights();
    m_list.select(m_list.CurTrack() - 1);
    m_view.showLength(lengthText(TrackLength()));
    tellSilence();
}

// It tells so once, and not with each entry that nobody hears.
void PlaybackEngine::tellSilence()
{
    const bool silent = !m_opener.isDelay() && device().isSilent();
    if (m_opener.isDelay() || silent == m_isSilent)
        return;
    m_isSilent = silent;
    if (silent)
        m_view.say(QStringLiteral("There is no sound device: it plays on without sound until there is one."));
    else
        m_view.say(QStringLiteral("There is a sound device again."));
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
    m_view.startModulePlayer();
}

void PlaybackEngine::reportError()
{
    const QString report = m_opener.errorReport(device());
    // Another entry may be started while the user reads: nothing of this one is left by then, and nothing of
    // it follows.
    m_isCueing = false;
    halt();
    m_view.reportError(report);
}

void PlaybackEngine::halt()
{
    m_isHalted = true;
    m_view.showLights();
}

// --- while it plays -------------------------------------------------------------------------------

void PlaybackEngine::Timer1_Timer()
{
    if (!m_view.yield())
        return;
    if (!m_isPlaying || m_isHalted || TrackLength() == 0) // a skin's load begins the timer anyhow
        return;
    if (!m_opener.isDelay())
        m_position = device().position();
    else if (!m_isPaused)
        m_position += kTick;
    tellSilence();
    showTime();
    if (m_view.followsPosition())
        m_view.showPosition(static_cast<float>(m_position) / static_cast<float>(TrackLength()));
    const TickPlan plan = planTick({.position = m_position,
                                    .trackLength = TrackLength(),
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
    m_view.showTime(text, shownSeconds(ShownMs()));
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
        m_view.enableTimer1(false); // a number beyond 16 bits is an error once, and not of each tick
        m_list.setCurTrack(entryAfter(m_list.CurTrack(), m_list.count(), ShuffleMode, random));
        m_view.enableTimer1(true);
    }
    if (StopAfterTrack)
        cue();
    else
        PlayIt();
}

// The entry is opened and shown as if it played, but not one sample of it is heard.
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
    if (m_view.followsPosition())
        m_view.showPosition(0);
    m_isPaused = false;
    m_isPlaying = false;
    m_view.showLights();
}

void PlaybackEngine::PauseIt()
{
    if (m_view.stoppedLightShown())
        return;
    device().send(m_isPaused ? QStringLiteral("play") : QStringLiteral("stop"));
    m_isPaused = !m_isPaused;
    m_view.showLights();
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
    element.setFrom(jumpTarget(milliseconds, TrackLength()));
    element.send(QStringLiteral("Play"));
}

void PlaybackEngine::pressAB()
{
    m_loop = pressedAB(m_loop, m_position, m_view.hasButtonB());
    m_view.showLights();
}

void PlaybackEngine::setLoopEnd()
{
    m_loop.end = m_position;
    m_view.showLights();
}

void PlaybackEngine::closeDevices()
{
    for (MediaElement* element : m_seams.devices)
        element->send(QStringLiteral("close"));
}

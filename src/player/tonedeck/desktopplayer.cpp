#include "player/tonedeck/desktopplayer.h"

#include "platform/drives.h"
#include "player/playback/mediakind.h"
#include "player/tonedeck/frmtonedeck.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int kMostOfTitle = 1000; // characters: it is sent again with each change

QByteArray machinePath(Drives& drives, const QString& path)
{
    return path.isEmpty() ? QByteArray() : drives.machinePath(path).value_or(QByteArray());
}

} // namespace

DesktopPlayer::DesktopPlayer(frmTonedeck& window, const MakeDesktopControls& make) : m_window(window)
{
    if (make)
        m_controls = make(*this);
}

DesktopPlayer::~DesktopPlayer() = default;

void DesktopPlayer::refresh()
{
    if (m_controls)
        m_controls->refresh();
}

void DesktopPlayer::followPosition(Clock::time_point now)
{
    constexpr qint64 kJump = 500;
    if (!m_controls)
        return;
    const PlaybackEngine& engine = m_window.engine();
    const bool moves = engine.IsPlaying() && !engine.IsPaused();
    const Clock::duration passed = moves ? now - m_followed.value_or(now) : Clock::duration{};
    m_followed = now;
    const qint64 expected =
        m_position + std::chrono::duration_cast<std::chrono::milliseconds>(passed).count();
    m_position = engine.PlayPosMs();
    if (std::llabs(m_position - expected) > kJump)
        m_controls->jumped(m_position);
}

PlayerReport::Status DesktopPlayer::status() const
{
    const PlaybackEngine& engine = m_window.engine();
    if (!engine.IsPlaying() || engine.halted())
        return PlayerReport::Stopped;
    return engine.IsPaused() ? PlayerReport::Paused : PlayerReport::Playing;
}

void DesktopPlayer::describeEntry(PlayerReport& report) const
{
    PlaybackEngine& engine = m_window.engine();
    report.title = engine.CurName().left(kMostOfTitle);
    report.file = machinePath(m_window.context().platform.drives, engine.CurPath());
    if (!mediaKindOf(engine.CurPath()).hasTag)
        return;
    const TagRecord& tag = engine.tag();
    const auto text = [](const QString& field) { return field.left(field.indexOf(u'\0')).trimmed(); };
    if (const QString title = text(tag.title); !title.isEmpty())
        report.title = title;
    report.artist = text(tag.artist);
    report.album = text(tag.album);
}

PlayerReport DesktopPlayer::report()
{
    const PlaybackEngine& engine = m_window.engine();
    PlayerReport report{.status = status(),
                        .entry = m_window.playlist().count() > 0 ? m_window.playlist().CurTrack() : 0,
                        .entries = m_window.playlist().count(),
                        .cover = machinePath(m_window.context().platform.drives, m_window.coverPath()),
                        .length = engine.TrackLength(),
                        .position = engine.PlayPosMs(),
                        .shuffle = engine.ShuffleMode,
                        .repeatsEntry = engine.RepeatMode,
                        .volume = static_cast<double>(m_window.volume())};
    if (report.entry > 0)
        describeEntry(report);
    return report;
}

// --- what the desktop asks ------------------------------------------------------------------------

void DesktopPlayer::command(Command command)
{
    m_window.guard([this, command] { m_window.DoIt(command); });
}

void DesktopPlayer::play()
{
    if (status() == PlayerReport::Paused)
        command(Command::Pause);
    else if (status() == PlayerReport::Stopped)
        command(Command::Play);
}

void DesktopPlayer::pause()
{
    if (status() == PlayerReport::Playing)
        command(Command::Pause);
}

void DesktopPlayer::playPause()
{
    command(status() == PlayerReport::Stopped ? Command::Play : Command::Pause);
}

void DesktopPlayer::stop()
{
    command(Command::Stop);
}

void DesktopPlayer::next()
{
    command(Command::Next);
}

void DesktopPlayer::previous()
{
    command(Command::Previous);
}

void DesktopPlayer::goTo(qint32 position)
{
    m_window.guard([this, position] { m_window.engine().PlayFrom(position); });
}

void DesktopPlayer::setShuffle(bool on)
{
    if (m_window.engine().ShuffleMode != on)
        command(Command::Shuffle);
}

void DesktopPlayer::setRepeatsEntry(bool on)
{
    if (m_window.engine().RepeatMode != on)
        command(Command::RepeatTrack);
}

void DesktopPlayer::setVolume(double volume)
{
    const double held = volume > 0 ? std::min(volume, 1.0) : 0.0; // what no float holds, and what is none
    m_window.guard([this, held] { m_window.changeVolume(static_cast<float>(held)); });
}

void DesktopPlayer::openAndPlay(const QString& address)
{
    m_window.guard([this, &address] { m_window.openAndPlay(address); });
}

void DesktopPlayer::bringToFront()
{
    m_window.showForm();
}

void DesktopPlayer::quit()
{
    m_window.unload();
}

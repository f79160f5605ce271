#include "player/tonedeck/desktopplayer.h"

#include "platform/drives.h"
#include "player/playback/mediakind.h"
#include "player/playback/player.h"
#include "player/tonedeck/coverkeeper.h"
#include "player/tonedeck/playerwindow.h"
#include "player/tonedeck/volumepanel.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int kMostOfTitle = 1000; // characters: it is sent again with each change

QByteArray machinePath(Drives& drives, const QString& path)
{
    return path.isEmpty() ? QByteArray() : drives.machinePath(path).value_or(QByteArray());
}

} // namespace

DesktopPlayer::DesktopPlayer(const Parts& parts, const CoverKeeper& cover, const MakeDesktopControls& make)
    : m_parts(parts), m_cover(cover)
{
    if (make)
        m_controls = make(*this);
}

DesktopPlayer::~DesktopPlayer() = default;

const PlaybackEngine& DesktopPlayer::engine() const
{
    return m_parts.player.engine();
}

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
    const bool moves = engine().IsPlaying() && !engine().IsPaused();
    const Clock::duration passed = moves ? now - m_followed.value_or(now) : Clock::duration{};
    m_followed = now;
    const qint64 expected =
        m_position + std::chrono::duration_cast<std::chrono::milliseconds>(passed).count();
    m_position = engine().PlayPosMs();
    if (std::llabs(m_position - expected) > kJump)
        m_controls->jumped(m_position);
}

PlayerReport::Status DesktopPlayer::status() const
{
    if (!engine().IsPlaying() || engine().halted())
        return PlayerReport::Stopped;
    return engine().IsPaused() ? PlayerReport::Paused : PlayerReport::Playing;
}

void DesktopPlayer::describeEntry(PlayerReport& report) const
{
    report.title = engine().CurName().left(kMostOfTitle);
    report.file = machinePath(m_parts.player.context().platform.drives, engine().CurPath());
    if (!mediaKindOf(engine().CurPath()).hasTag)
        return;
    const TagRecord& tag = m_parts.player.engine().tag();
    const auto text = [](const QString& field) { return field.left(field.indexOf(u'\0')).trimmed(); };
    if (const QString title = text(tag.title); !title.isEmpty())
        report.title = title;
    report.artist = text(tag.artist);
    report.album = text(tag.album);
}

PlayerReport DesktopPlayer::report()
{
    PlayerReport report{.status = status(),
                        .entry = m_parts.player.list().count() > 0 ? m_parts.player.list().CurTrack() : 0,
                        .entries = m_parts.player.list().count(),
                        .cover = machinePath(m_parts.player.context().platform.drives, m_cover.path()),
                        .length = engine().TrackLength(),
                        .position = engine().PlayPosMs(),
                        .shuffle = engine().ShuffleMode,
                        .repeatsEntry = engine().RepeatMode,
                        .volume = static_cast<double>(m_parts.volume.volume())};
    if (report.entry > 0)
        describeEntry(report);
    return report;
}

// --- what the desktop asks ------------------------------------------------------------------------

void DesktopPlayer::command(Command command)
{
    m_parts.window.guard([this, command] { DoIt(m_parts, command); });
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
    m_parts.window.guard([this, position] { m_parts.player.engine().PlayFrom(position); });
}

void DesktopPlayer::setShuffle(bool on)
{
    if (engine().ShuffleMode != on)
        command(Command::Shuffle);
}

void DesktopPlayer::setRepeatsEntry(bool on)
{
    if (engine().RepeatMode != on)
        command(Command::RepeatTrack);
}

void DesktopPlayer::setVolume(double volume)
{
    const double held = volume > 0 ? std::min(volume, 1.0) : 0.0; // what no float holds, and what is none
    m_parts.window.guard([this, held] { m_parts.volume.changeVolume(static_cast<float>(held)); });
}

void DesktopPlayer::openAndPlay(const QString& address)
{
    m_parts.window.guard([this, &address] { m_parts.player.openAndPlay(address); });
}

void DesktopPlayer::bringToFront()
{
    m_parts.window.bringToFront();
}

void DesktopPlayer::quit()
{
    m_parts.window.unload();
}

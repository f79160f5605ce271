#include "player/tonedeck/playercommand.h"

#include "platform/launcher.h"
#include "player/tonedeck/frmtonedeck.h"

#include <algorithm>

namespace {

constexpr int kVolumeStep = 5; // percent

} // namespace

const std::vector<PlayerCommand>& PlayerCommand::table()
{
    using W = frmTonedeck;
    static const std::vector<PlayerCommand> commands = {
        {Command::Close, [](W& w) { w.unload(); }},
        {Command::Minimise, [](W& w) { w.showMinimized(); }},
        {Command::NextSize, [](W& w) { w.nextSizeMode(); }},
        {Command::TagEditor},
        {Command::Preferences},
        {Command::SelectSkin, [](W& w) { w.SelectSkin(); }},
        {Command::VolumeDown, [](W& w) { w.changeVolumeBy(-kVolumeStep); }},
        {Command::VolumeUp, [](W& w) { w.changeVolumeBy(kVolumeStep); }},
        {Command::Mute, [](W& w) { w.toggleMute(); }, [](W& w) { return w.muted(); }},
        {Command::Stop, [](W& w) { w.m_engine.StopIt(); }},
        {Command::Pause, [](W& w) { w.m_engine.PauseIt(); }, [](W& w) { return w.m_engine.IsPaused(); }},
        {Command::Play, [](W& w) { w.m_engine.PlayIt(); }},
        {Command::OpenFile, [](W& w) { w.EjectDirect(); }},
        {Command::Previous, [](W& w) { w.m_engine.PrevTrack(); }},
        {Command::Next, [](W& w) { w.m_engine.NextTrack(); }},
        {Command::CoverWindow},
        {Command::RemoveEntry, [](W& w) { w.m_playlist.remove(w.m_playlist.selected()); }},
        {Command::MoveEntryDown, [](W& w) { w.m_playlist.PlMoveEntry(+1); }},
        {Command::MoveEntryUp, [](W& w) { w.m_playlist.PlMoveEntry(-1); }},
        {Command::ClearPlaylist, [](W& w) { w.PlClear(); }},
        {Command::LoadPlaylist, [](W& w) { w.loadPlaylist(); }},
        {Command::SavePlaylist, [](W& w) { w.withPlaylist([](PlaylistCommands& list) { list.save(); }); }},
        {Command::AddFile, [](W& w) { w.withPlaylist([](PlaylistCommands& list) { list.openMedia(); }); }},
        {Command::AddDirectory,
         [](W& w) { w.withPlaylist([](PlaylistCommands& list) { list.AddFromDir(); }); }},
        {Command::Intro, [](W& w) { w.toggle(w.m_engine.IntroMode); },
         [](W& w) { return w.m_engine.IntroMode; }},
        {Command::StopAfterTrack, [](W& w) { w.toggle(w.m_engine.StopAfterTrack); },
         [](W& w) { return w.m_engine.StopAfterTrack; }},
        {Command::RepeatTrack, [](W& w) { w.toggle(w.m_engine.RepeatMode); },
         [](W& w) { return w.m_engine.RepeatMode; }},
        {Command::Shuffle, [](W& w) { w.toggle(w.m_engine.ShuffleMode); },
         [](W& w) { return w.m_engine.ShuffleMode; }},
        {Command::VolumeMixer, [](W& w) { w.ShowMixer(); }},
        {Command::LoopStart, [](W& w) { w.m_engine.pressAB(); }},
        {Command::LoopEnd, [](W& w) { w.m_engine.setLoopEnd(); }},
        {Command::Back, [](W& w) { w.m_engine.Reverse(); }},
        {Command::Forward, [](W& w) { w.m_engine.Forward(); }},
        {Command::RemainingTime, [](W& w) { w.toggleTime(); }, [](W& w) { return w.m_engine.ShowRemaining; }},
        {Command::VisualPlaylist},
        {Command::PlayOrPause, [](W& w) { w.m_engine.PlayPause(); }},
        {Command::PreviousSkin, [](W& w) { w.switchSkin(Command::PreviousSkin); }},
        {Command::NextSkin, [](W& w) { w.switchSkin(Command::NextSkin); }},
    };
    return commands;
}

const PlayerCommand& PlayerCommand::of(Command command)
{
    return *std::find_if(table().begin(), table().end(),
                         [command](const PlayerCommand& row) { return row.command == command; });
}

// --- what the window does for them ----------------------------------------------------------------

void frmTonedeck::DoIt(Command command)
{
    if (const PlayerCommand& row = PlayerCommand::of(command); row.run)
        row.run(*this);
}

void frmTonedeck::DoIt(int code)
{
    if (const std::optional<Command> command = commandOf(code))
        DoIt(*command);
}

void frmTonedeck::toggle(bool& mode)
{
    mode = !mode;
    ShowLights();
}

void frmTonedeck::toggleTime()
{
    m_engine.ShowRemaining = !m_engine.ShowRemaining;
    m_engine.showTime();
}

void frmTonedeck::ShowMixer()
{
    try {
        m_context.platform.launcher.start(QStringLiteral("sndvol32.exe"));
    } catch (const RunTimeError&) {
        tell(QStringLiteral("No volume mixer was found on this system."));
    }
}

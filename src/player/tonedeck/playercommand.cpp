#include "player/tonedeck/playercommand.h"

#include "player/face/face.h"
#include "player/playback/player.h"
#include "player/tonedeck/playerwindow.h"
#include "player/tonedeck/skinloader.h"
#include "player/tonedeck/volumepanel.h"

#include <algorithm>

namespace {

constexpr int kVolumeStep = 5; // percent

using P = const Parts&;
using Engine = PlaybackEngine;

std::vector<PlayerCommand> windowCommands()
{
    return {
        {Command::Close, [](P p) { p.window.unload(); }},
        {Command::Minimise, [](P p) { p.window.minimise(); }},
        {Command::NextSize, [](P p) { p.face.nextSizeMode(); }},
        {Command::TagEditor},
        {Command::Preferences},
        {Command::SelectSkin, [](P p) { p.loader.SelectSkin(); }},
        {Command::CoverWindow},
        {Command::VisualPlaylist},
        {Command::PreviousSkin, [](P p) { p.loader.switchSkin(Command::PreviousSkin); }},
        {Command::NextSkin, [](P p) { p.loader.switchSkin(Command::NextSkin); }},
    };
}

std::vector<PlayerCommand> volumeCommands()
{
    return {
        {Command::VolumeDown, [](P p) { p.volume.changeVolumeBy(-kVolumeStep); }},
        {Command::VolumeUp, [](P p) { p.volume.changeVolumeBy(kVolumeStep); }},
        {Command::Mute, [](P p) { p.volume.toggleMute(); }, [](P p) { return p.volume.muted(); }},
        {Command::VolumeMixer, [](P p) { p.volume.ShowMixer(); }},
    };
}

std::vector<PlayerCommand> transportCommands()
{
    return {
        {Command::Stop, [](P p) { p.player.engine().StopIt(); }},
        {Command::Pause, [](P p) { p.player.engine().PauseIt(); },
         [](P p) { return p.player.engine().IsPaused(); }},
        {Command::Play, [](P p) { p.player.engine().PlayIt(); }},
        {Command::Previous, [](P p) { p.player.engine().PrevTrack(); }},
        {Command::Next, [](P p) { p.player.engine().NextTrack(); }},
        {Command::LoopStart, [](P p) { p.player.engine().pressAB(); }},
        {Command::LoopEnd, [](P p) { p.player.engine().setLoopEnd(); }},
        {Command::Back, [](P p) { p.player.engine().Reverse(); }},
        {Command::Forward, [](P p) { p.player.engine().Forward(); }},
        {Command::PlayOrPause, [](P p) { p.player.engine().PlayPause(); }},
    };
}

std::vector<PlayerCommand> modeCommands()
{
    return {
        {Command::Intro, [](P p) { p.player.toggle(&Engine::IntroMode); },
         [](P p) { return p.player.engine().IntroMode; }},
        {Command::StopAfterTrack, [](P p) { p.player.toggle(&Engine::StopAfterTrack); },
         [](P p) { return p.player.engine().StopAfterTrack; }},
        {Command::RepeatTrack, [](P p) { p.player.toggle(&Engine::RepeatMode); },
         [](P p) { return p.player.engine().RepeatMode; }},
        {Command::Shuffle, [](P p) { p.player.toggle(&Engine::ShuffleMode); },
         [](P p) { return p.player.engine().ShuffleMode; }},
        {Command::RemainingTime, [](P p) { p.player.toggleTime(); },
         [](P p) { return p.player.engine().ShowRemaining; }},
    };
}

std::vector<PlayerCommand> playlistCommands()
{
    return {
        {Command::OpenFile, [](P p) { p.player.EjectDirect(); }},
        {Command::RemoveEntry, [](P p) { p.player.removeSelected(); }},
        {Command::MoveEntryDown, [](P p) { p.player.list().PlMoveEntry(+1); }},
        {Command::MoveEntryUp, [](P p) { p.player.list().PlMoveEntry(-1); }},
        {Command::ClearPlaylist, [](P p) { p.player.PlClear(); }},
        {Command::LoadPlaylist, [](P p) { p.player.loadPlaylist(); }},
        {Command::SavePlaylist, [](P p) { p.player.savePlaylist(); }},
        {Command::AddFile, [](P p) { p.player.addFile(); }},
        {Command::AddDirectory, [](P p) { p.player.addDirectory(); }},
    };
}

std::vector<PlayerCommand> allCommands()
{
    std::vector<PlayerCommand> all;
    for (const auto& part :
         {windowCommands(), volumeCommands(), transportCommands(), modeCommands(), playlistCommands()})
        all.insert(all.end(), part.begin(), part.end());
    std::sort(all.begin(), all.end(),
              [](const PlayerCommand& a, const PlayerCommand& b) { return a.command < b.command; });
    return all;
}

} // namespace

// They stand in the order of their codes.
const std::vector<PlayerCommand>& PlayerCommand::table()
{
    static const std::vector<PlayerCommand> commands = allCommands();
    return commands;
}

const PlayerCommand& PlayerCommand::of(Command command)
{
    return *std::find_if(table().begin(), table().end(),
                         [command](const PlayerCommand& row) { return row.command == command; });
}

void DoIt(const Parts& parts, Command command)
{
    if (const PlayerCommand& row = PlayerCommand::of(command); row.run)
        row.run(parts);
}

void DoIt(const Parts& parts, int code)
{
    if (const std::optional<Command> command = commandOf(code))
        DoIt(parts, *command);
}

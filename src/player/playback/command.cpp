#include "player/playback/command.h"

#include <map>

namespace {

const std::map<Command, QString>& captions()
{
    static const std::map<Command, QString> all = {
        {Command::Close, QStringLiteral("&Close")},
        {Command::Minimise, QStringLiteral("Mi&nimise")},
        {Command::NextSize, QStringLiteral("Next Si&ze")},
        {Command::TagEditor, QStringLiteral("&Tag Editor...")},
        {Command::Preferences, QStringLiteral("&Info/Prefs...")},
        {Command::SelectSkin, QStringLiteral("Select S&kin")},
        {Command::VolumeDown, QStringLiteral("Volume &Down")},
        {Command::VolumeUp, QStringLiteral("Volume &Up")},
        {Command::Mute, QStringLiteral("&Mute")},
        {Command::Stop, QStringLiteral("&Stop")},
        {Command::Pause, QStringLiteral("P&ause")},
        {Command::Play, QStringLiteral("&Play")},
        {Command::OpenFile, QStringLiteral("&Open File...")},
        {Command::Previous, QStringLiteral("Pre&vious")},
        {Command::Next, QStringLiteral("&Next")},
        {Command::CoverWindow, QStringLiteral("C&over Window")},
        {Command::RemoveEntry, QStringLiteral("&Remove Entry")},
        {Command::MoveEntryDown, QStringLiteral("Move Entry Do&wn")},
        {Command::MoveEntryUp, QStringLiteral("Move Entry &Up")},
        {Command::ClearPlaylist, QStringLiteral("Clear Playlist")},
        {Command::LoadPlaylist, QStringLiteral("&Load Playlist")},
        {Command::SavePlaylist, QStringLiteral("&Save Playlist")},
        {Command::AddFile, QStringLiteral("Add &File")},
        {Command::AddDirectory, QStringLiteral("Add &Directory")},
        {Command::Intro, QStringLiteral("&Intro")},
        {Command::StopAfterTrack, QStringLiteral("S&top After Track")},
        {Command::RepeatTrack, QStringLiteral("&Repeat Track")},
        {Command::Shuffle, QStringLiteral("S&huffle")},
        {Command::VolumeMixer, QStringLiteral("Volume Mi&xer")},
        {Command::LoopStart, QStringLiteral("Repeat from Here (&A)")},
        {Command::LoopEnd, QStringLiteral("Repeat to Here (&B)")},
        {Command::Back, QStringLiteral("Ba&ck 10 Seconds")},
        {Command::Forward, QStringLiteral("For&ward 10 Seconds")},
        {Command::RemainingTime, QStringLiteral("Remaining &Time")},
        {Command::VisualPlaylist, QStringLiteral("&Visual Playlist Selector")},
        {Command::PlayOrPause, QStringLiteral("Play or Pa&use")},
        {Command::PreviousSkin, QStringLiteral("Pre&vious Skin")},
        {Command::NextSkin, QStringLiteral("&Next Skin")},
    };
    return all;
}

} // namespace

std::optional<Command> commandOf(int code)
{
    const auto command = static_cast<Command>(code);
    return captions().contains(command) ? std::optional(command) : std::nullopt;
}

QString captionOf(Command command)
{
    return captions().at(command);
}

#include "commands.h"

#include <array>

namespace {

// The five transport keys lie beside each other on most keyboards, as players have had them for decades.
const std::array<Command, 50> kCommands = {{
    {u"Q"_qs, u"Close"_qs, Icon::Close},
    {u"N"_qs, u"Minimise"_qs, Icon::Minimise},
    {u"F"_qs, u"Fold or unfold"_qs, Icon::Fold},
    {u"T"_qs, u"Edit tag"_qs, Icon::Tag},
    {u"P"_qs, u"Preferences"_qs, Icon::Preferences},
    {u"K"_qs, u"Select skin"_qs, Icon::Palette},
    {u"-"_qs, u"Volume down"_qs, Icon::Quieter},
    {u"+"_qs, u"Volume up"_qs, Icon::Louder},
    {u"M"_qs, u"Mute"_qs, Icon::Speaker},
    {u"V"_qs, u"Stop"_qs, Icon::Stop},
    {u"C"_qs, u"Pause"_qs, Icon::Pause},
    {u"X"_qs, u"Play"_qs, Icon::Play},
    {u"E"_qs, u"Open a file"_qs, Icon::Eject},
    {u"Z"_qs, u"Previous track"_qs, Icon::Previous},
    {u"B"_qs, u"Next track"_qs, Icon::Next},
    {u"W"_qs, u"Cover window"_qs, Icon::Picture},
    {u"D"_qs, u"Remove from playlist"_qs, Icon::Remove},
    {u"]"_qs, u"Move entry down"_qs, Icon::Down},
    {u"["_qs, u"Move entry up"_qs, Icon::Up},
    {u"#"_qs, u"Clear playlist"_qs, Icon::Clear},
    {u"L"_qs, u"Load playlist"_qs, Icon::Load},
    {u"U"_qs, u"Save playlist"_qs, Icon::Save},
    {u"O"_qs, u"Add files"_qs, Icon::AddFile},
    {u"A"_qs, u"Add directory"_qs, Icon::AddDirectory},
    {u"I"_qs, u"Intro: ten seconds of each track"_qs, Icon::Intro},
    {u"H"_qs, u"Stop after this track"_qs, Icon::StopAfter},
    {u"R"_qs, u"Repeat track"_qs, Icon::Repeat},
    {u"S"_qs, u"Shuffle"_qs, Icon::Shuffle},
    {u"G"_qs, u"Volume mixer"_qs, Icon::Mixer},
    {u"("_qs, u"Repeat from here (A)"_qs, Icon::PointA},
    {u")"_qs, u"Repeat to here (B)"_qs, Icon::PointB},
    {u"<"_qs, u"Back 10 seconds"_qs, Icon::Back},
    {u">"_qs, u"Forward 10 seconds"_qs, Icon::Forward},
    {u"/"_qs, u"Elapsed or remaining time"_qs, Icon::Clock},
    {u"Y"_qs, u"Visual playlist selector"_qs, Icon::Tiles},
    {u" "_qs, u"Play or pause"_qs, Icon::PlayPause},
    {u"6"_qs, u"~"_qs, Icon::None},
    {u"7"_qs, u"~"_qs, Icon::None},
    {u"8"_qs, u"~"_qs, Icon::None},
    {u"9"_qs, u"~"_qs, Icon::None},
    {u"{"_qs, u"~"_qs, Icon::None},
    {u"}"_qs, u"~"_qs, Icon::None},
    {u"|"_qs, u"~"_qs, Icon::None},
    {u"$"_qs, u"~"_qs, Icon::None},
    {u"%"_qs, u"~"_qs, Icon::None},
    {u"&"_qs, u"~"_qs, Icon::None},
    {u"="_qs, u"~"_qs, Icon::None},
    {u"@"_qs, u"~"_qs, Icon::None},
    {u"4"_qs, u"Previous skin"_qs, Icon::Before},
    {u"5"_qs, u"Next skin"_qs, Icon::After},
}};

} // namespace

const Command& command(int code)
{
    return kCommands.at(static_cast<std::size_t>(code - 1));
}

#include "commands.h"

#include <array>

namespace {

// The five transport keys lie beside each other on most keyboards, as players have had them for decades.
const std::array<Command, 50> kCommands = {{
    {u"Q"_qs, u"Close"_qs},
    {u"N"_qs, u"Minimise"_qs},
    {u"F"_qs, u"Fold or unfold"_qs},
    {u"T"_qs, u"Edit tag"_qs},
    {u"P"_qs, u"Preferences"_qs},
    {u"K"_qs, u"Select skin"_qs},
    {u"-"_qs, u"Volume down"_qs},
    {u"+"_qs, u"Volume up"_qs},
    {u"M"_qs, u"Mute"_qs},
    {u"V"_qs, u"Stop"_qs},
    {u"C"_qs, u"Pause"_qs},
    {u"X"_qs, u"Play"_qs},
    {u"E"_qs, u"Open a file"_qs},
    {u"Z"_qs, u"Previous track"_qs},
    {u"B"_qs, u"Next track"_qs},
    {u"W"_qs, u"Cover window"_qs},
    {u"D"_qs, u"Remove from playlist"_qs},
    {u"]"_qs, u"Move entry down"_qs},
    {u"["_qs, u"Move entry up"_qs},
    {u"#"_qs, u"Clear playlist"_qs},
    {u"L"_qs, u"Load playlist"_qs},
    {u"U"_qs, u"Save playlist"_qs},
    {u"O"_qs, u"Add files"_qs},
    {u"A"_qs, u"Add directory"_qs},
    {u"I"_qs, u"Intro: ten seconds of each track"_qs},
    {u"H"_qs, u"Stop after this track"_qs},
    {u"R"_qs, u"Repeat track"_qs},
    {u"S"_qs, u"Shuffle"_qs},
    {u"G"_qs, u"Volume mixer"_qs},
    {u"("_qs, u"Repeat from here (A)"_qs},
    {u")"_qs, u"Repeat to here (B)"_qs},
    {u"<"_qs, u"Back 10 seconds"_qs},
    {u">"_qs, u"Forward 10 seconds"_qs},
    {u"/"_qs, u"Elapsed or remaining time"_qs},
    {u"Y"_qs, u"Visual playlist selector"_qs},
    {u" "_qs, u"Play or pause"_qs},
    {u"6"_qs, u"~"_qs},
    {u"7"_qs, u"~"_qs},
    {u"8"_qs, u"~"_qs},
    {u"9"_qs, u"~"_qs},
    {u"{"_qs, u"~"_qs},
    {u"}"_qs, u"~"_qs},
    {u"|"_qs, u"~"_qs},
    {u"$"_qs, u"~"_qs},
    {u"%"_qs, u"~"_qs},
    {u"&"_qs, u"~"_qs},
    {u"="_qs, u"~"_qs},
    {u"@"_qs, u"~"_qs},
    {u"4"_qs, u"Previous skin"_qs},
    {u"5"_qs, u"Next skin"_qs},
}};

} // namespace

const Command& command(int code)
{
    return kCommands.at(static_cast<std::size_t>(code - 1));
}

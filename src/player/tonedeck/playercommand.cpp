#include "player/tonedeck/playercommand.h"

#include "platform/launcher.h"
#include "player/tonedeck/frmtonedeck.h"

#include <algorithm>

namespace {

constexpr int kVolumeStep = 5; // percent

} // namespace

// The codes from 37 to 48 do nothing.
const std::vector<PlayerCommand>& PlayerCommand::table()
{
    using W = frmTonedeck;
    static const auto text = [](const char16_t* caption) { return QString::fromUtf16(caption); };
    static const std::vector<PlayerCommand> commands = {
        {1, text(u"&Close"), [](W& w) { w.unload(); }},
        {2, text(u"Mi&nimise"), [](W& w) { w.showMinimized(); }},
        {3, text(u"Next Si&ze"), [](W& w) { w.nextSizeMode(); }},
        {4, text(u"&Tag Editor...")},
        {5, text(u"&Info/Prefs...")},
        {6, text(u"Select S&kin"), [](W& w) { w.SelectSkin(); }},
        {7, text(u"Volume &Down"), [](W& w) { w.changeVolumeBy(-kVolumeStep); }},
        {8, text(u"Volume &Up"), [](W& w) { w.changeVolumeBy(kVolumeStep); }},
        {9, text(u"&Mute"), [](W& w) { w.toggleMute(); }, [](W& w) { return w.muted(); }},
        {10, text(u"&Stop"), [](W& w) { w.m_engine.StopIt(); }},
        {11, text(u"P&ause"), [](W& w) { w.m_engine.PauseIt(); }, [](W& w) { return w.m_engine.IsPaused(); }},
        {12, text(u"&Play"), [](W& w) { w.m_engine.PlayIt(); }},
        {13, text(u"&Open File..."), [](W& w) { w.EjectDirect(); }},
        {14, text(u"Pre&vious"), [](W& w) { w.m_engine.PrevTrack(); }},
        {15, text(u"&Next"), [](W& w) { w.m_engine.NextTrack(); }},
        {16, text(u"C&over Window")},
        {17, text(u"&Remove Entry"), [](W& w) { w.m_playlist.remove(w.m_playlist.selected()); }},
        {18, text(u"Move Entry Do&wn"), [](W& w) { w.m_playlist.PlMoveEntry(+1); }},
        {19, text(u"Move Entry &Up"), [](W& w) { w.m_playlist.PlMoveEntry(-1); }},
        {20, text(u"Clear Playlist"), [](W& w) { w.PlClear(); }},
        {21, text(u"&Load Playlist"), [](W& w) { w.loadPlaylist(); }},
        {22, text(u"&Save Playlist"),
         [](W& w) { w.withPlaylist([](PlaylistCommands& list) { list.save(); }); }},
        {23, text(u"Add &File"),
         [](W& w) { w.withPlaylist([](PlaylistCommands& list) { list.openMedia(); }); }},
        {24, text(u"Add &Directory"),
         [](W& w) { w.withPlaylist([](PlaylistCommands& list) { list.AddFromDir(); }); }},
        {25, text(u"&Intro"), [](W& w) { w.toggle(w.m_engine.IntroMode); },
         [](W& w) { return w.m_engine.IntroMode; }},
        {26, text(u"S&top After Track"), [](W& w) { w.toggle(w.m_engine.StopAfterTrack); },
         [](W& w) { return w.m_engine.StopAfterTrack; }},
        {27, text(u"&Repeat Track"), [](W& w) { w.toggle(w.m_engine.RepeatMode); },
         [](W& w) { return w.m_engine.RepeatMode; }},
        {28, text(u"S&huffle"), [](W& w) { w.toggle(w.m_engine.ShuffleMode); },
         [](W& w) { return w.m_engine.ShuffleMode; }},
        {29, text(u"Volume Mi&xer"), [](W& w) { w.ShowMixer(); }},
        {30, text(u"Repeat from Here (&A)"), [](W& w) { w.m_engine.pressAB(); }},
        {31, text(u"Repeat to Here (&B)"), [](W& w) { w.m_engine.setLoopEnd(); }},
        {32, text(u"Ba&ck 10 Seconds"), [](W& w) { w.m_engine.Reverse(); }},
        {33, text(u"For&ward 10 Seconds"), [](W& w) { w.m_engine.Forward(); }},
        {34, text(u"Remaining &Time"), [](W& w) { w.toggleTime(); },
         [](W& w) { return w.m_engine.ShowRemaining; }},
        {35, text(u"&Visual Playlist Selector")},
        {36, text(u"Play or Pa&use"), [](W& w) { w.m_engine.PlayPause(); }},
        {49, text(u"Pre&vious Skin"), [](W& w) { w.switchSkin(49); }},
        {50, text(u"&Next Skin"), [](W& w) { w.switchSkin(50); }},
    };
    return commands;
}

const PlayerCommand* PlayerCommand::find(int code)
{
    const auto& commands = table();
    const auto found =
        std::lower_bound(commands.begin(), commands.end(), code,
                         [](const PlayerCommand& command, int wanted) { return command.code < wanted; });
    return found != commands.end() && found->code == code ? &*found : nullptr;
}

// --- what the window does for them ----------------------------------------------------------------

void frmTonedeck::DoIt(int code)
{
    if (const PlayerCommand* command = PlayerCommand::find(code); command && command->run)
        command->run(*this);
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

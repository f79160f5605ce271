// The commands of the window's buttons, by their codes.
#include "skin/frmtonedeck.h"

struct frmTonedeck::Command {
    int code;
    void (*run)(frmTonedeck&);
};

const std::vector<frmTonedeck::Command>& frmTonedeck::commands()
{
    using W = frmTonedeck;
    static const std::vector<Command> table = {
        {1, [](W& w) { w.unload(); }},
        {2, [](W& w) { w.showMinimized(); }},
        {3, [](W& w) { w.nextSizeMode(); }},
        {6, [](W& w) { w.SelectSkin(); }},
        {18, [](W& w) { w.m_playlist.PlMoveEntry(+1); }},
        {19, [](W& w) { w.m_playlist.PlMoveEntry(-1); }},
        {20, [](W& w) { w.m_playlist.PlClear(); }},
        {21, [](W& w) { w.withPlaylist([](PlaylistCommands& list) { list.PlLoad(); }); }},
        {22, [](W& w) { w.withPlaylist([](PlaylistCommands& list) { list.save(); }); }},
        {23, [](W& w) { w.withPlaylist([](PlaylistCommands& list) { list.openMedia(); }); }},
        {49, [](W& w) { w.switchSkin(49); }},
        {50, [](W& w) { w.switchSkin(50); }},
    };
    return table;
}

void frmTonedeck::DoIt(int code)
{
    for (const Command& command : commands())
        if (command.code == code)
            command.run(*this);
}

void frmTonedeck::switchSkin(int button)
{
    if (const QString name = m_loader.switchName(button); !name.isEmpty())
        LoadSkin(name, false);
}

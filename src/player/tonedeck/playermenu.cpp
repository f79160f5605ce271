#include "player/tonedeck/playermenu.h"

#include "player/tonedeck/frmtonedeck.h"
#include "player/tonedeck/playercommand.h"
#include "player/tonedeck/playerkeys.h"

#include <QMenu>

namespace {

using Entry = std::optional<Command>;
constexpr Entry kSeparator;

struct Group {
    const char* name;
    QString caption;
    std::vector<Entry> entries;
};

const std::vector<Group>& groups()
{
    static const std::vector<Group> all = {
        {"mnuTrack",
         QStringLiteral("&Track"),
         {Command::PlayOrPause, Command::Previous, Command::Next, Command::Back, Command::Forward, kSeparator,
          Command::LoopStart, Command::LoopEnd, kSeparator, Command::RemainingTime}},
        {"mnuMode",
         QStringLiteral("&Mode"),
         {Command::Intro, Command::StopAfterTrack, Command::RepeatTrack, Command::Shuffle}},
        {"mnuPlaylist",
         QStringLiteral("Play&list"),
         {Command::OpenFile, Command::AddFile, Command::AddDirectory, kSeparator, Command::LoadPlaylist,
          Command::SavePlaylist, Command::ClearPlaylist, kSeparator, Command::RemoveEntry,
          Command::MoveEntryDown, Command::MoveEntryUp, kSeparator, Command::VisualPlaylist}},
        {"mnuVolume",
         QStringLiteral("&Volume"),
         {Command::VolumeUp, Command::VolumeDown, Command::Mute, kSeparator, Command::VolumeMixer}},
        {"mnuSkin",
         QStringLiteral("S&kin"),
         {Command::SelectSkin, Command::PreviousSkin, Command::NextSkin, kSeparator, Command::NextSize}},
        {"mnuInfo",
         QStringLiteral("&Info"),
         {Command::TagEditor, Command::CoverWindow, Command::Preferences}},
    };
    return all;
}

bool isOffered(const frmTonedeck& player, const PlayerCommand& command)
{
    const bool switchesSkin =
        command.command == Command::PreviousSkin || command.command == Command::NextSkin;
    return command.run && !(switchesSkin && player.skinLoader().switchName(command.command).isEmpty());
}

void addCommand(QMenu& menu, frmTonedeck& player, Entry entry)
{
    if (!entry) {
        menu.addSeparator();
        return;
    }
    const Command command = *entry;
    const PlayerCommand& row = PlayerCommand::of(command);
    QString caption = captionOf(command);
    if (QString key = keyText(player.skin(), command); !key.isEmpty())
        caption += u'\t' + key.replace(u'&', QStringLiteral("&&"));
    QAction* action = menu.addAction(caption);
    action->setObjectName(QStringLiteral("mnuDoIt(%1)").arg(codeOf(command)));
    action->setEnabled(isOffered(player, row));
    action->setCheckable(row.isOn);
    action->setChecked(row.isOn && row.isOn(player));
    // When the menu is done with it: a command may yield, and the menu be made anew meanwhile.
    QObject::connect(
        action, &QAction::triggered, &player,
        [&player, command] { player.guard([&] { player.DoIt(command); }); }, Qt::QueuedConnection);
}

} // namespace

void fillPlayerMenu(QMenu& menu, frmTonedeck& player)
{
    menu.clear();
    qDeleteAll(menu.findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly));
    for (const Entry& entry :
         std::initializer_list<Entry>{Command::Play, Command::Pause, Command::Stop, kSeparator})
        addCommand(menu, player, entry);
    for (const Group& group : groups()) {
        QMenu* part = menu.addMenu(group.caption);
        part->setObjectName(QLatin1String(group.name));
        for (const Entry& entry : group.entries)
            addCommand(*part, player, entry);
    }
    for (const Entry& entry : std::initializer_list<Entry>{kSeparator, Command::Minimise, Command::Close})
        addCommand(menu, player, entry);
}

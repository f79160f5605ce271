#include "player/tonedeck/playermenu.h"

#include "player/face/face.h"
#include "player/face/playerkeys.h"
#include "player/tonedeck/playercommand.h"
#include "player/tonedeck/playerwindow.h"
#include "player/tonedeck/skinloader.h"

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

bool isOffered(const PlayerCommand& row, const SkinLoader& loader)
{
    const bool switchesSkin = row.command == Command::PreviousSkin || row.command == Command::NextSkin;
    return row.run && !(switchesSkin && loader.switchName(row.command).isEmpty());
}

QString textOf(Command command, const SkinState& skin)
{
    QString key = keyText(skin, command);
    if (key.isEmpty())
        return captionOf(command);
    return captionOf(command) + u'\t' + key.replace(u'&', QStringLiteral("&&"));
}

class Filling {
public:
    Filling(QMenu& menu, const Parts& parts) : m_menu(menu), m_parts(parts) {}

    void add(QMenu& menu, const std::vector<Entry>& entries) const
    {
        for (const Entry& entry : entries)
            entry ? addCommand(menu, *entry) : static_cast<void>(menu.addSeparator());
    }

private:
    void addCommand(QMenu& menu, Command command) const
    {
        const PlayerCommand& row = PlayerCommand::of(command);
        QAction* action = menu.addAction(textOf(command, m_parts.face.skin()));
        action->setObjectName(QStringLiteral("mnuDoIt(%1)").arg(codeOf(command)));
        action->setEnabled(isOffered(row, m_parts.loader));
        action->setCheckable(row.isOn);
        action->setChecked(row.isOn && row.isOn(m_parts));
        // It runs when the menu is done with it: a command may yield, and the menu be made anew meanwhile.
        QObject::connect(
            action, &QAction::triggered, &m_menu,
            [parts = m_parts, command] { parts.window.guard([&] { DoIt(parts, command); }); },
            Qt::QueuedConnection);
    }

    QMenu& m_menu; // it stays; those in it are made anew
    const Parts& m_parts;
};

} // namespace

void fillPlayerMenu(QMenu& menu, const Parts& parts)
{
    menu.clear();
    qDeleteAll(menu.findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly));
    const Filling filling(menu, parts);
    filling.add(menu, {Command::Play, Command::Pause, Command::Stop, kSeparator});
    for (const Group& group : groups()) {
        QMenu* part = menu.addMenu(group.caption);
        part->setObjectName(QLatin1String(group.name));
        filling.add(*part, group.entries);
    }
    filling.add(menu, {kSeparator, Command::Minimise, Command::Close});
}

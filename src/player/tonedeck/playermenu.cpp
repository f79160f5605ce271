#include "player/tonedeck/playermenu.h"

#include "player/tonedeck/frmtonedeck.h"
#include "player/tonedeck/playercommand.h"
#include "player/tonedeck/playerkeys.h"

#include <QMenu>

namespace {

constexpr int kSeparator = 0;

struct Group {
    const char* name;
    QString caption;
    std::vector<int> codes;
};

const std::vector<Group>& groups()
{
    static const std::vector<Group> all = {
        {"mnuTrack", QStringLiteral("&Track"), {36, 14, 15, 32, 33, kSeparator, 30, 31, kSeparator, 34}},
        {"mnuMode", QStringLiteral("&Mode"), {25, 26, 27, 28}},
        {"mnuPlaylist",
         QStringLiteral("Play&list"),
         {13, 23, 24, kSeparator, 21, 22, 20, kSeparator, 17, 18, 19, kSeparator, 35}},
        {"mnuVolume", QStringLiteral("&Volume"), {8, 7, 9, kSeparator, 29}},
        {"mnuSkin", QStringLiteral("S&kin"), {6, 49, 50, kSeparator, 3}},
        {"mnuInfo", QStringLiteral("&Info"), {4, 16, 5}},
    };
    return all;
}

bool isOffered(const frmTonedeck& player, const PlayerCommand& command)
{
    const bool switchesSkin = command.code == 49 || command.code == 50;
    return command.run && !(switchesSkin && player.skinLoader().switchName(command.code).isEmpty());
}

void addCommand(QMenu& menu, frmTonedeck& player, int code)
{
    const PlayerCommand* command = PlayerCommand::find(code);
    if (!command) {
        menu.addSeparator();
        return;
    }
    QString caption = command->caption;
    if (QString key = keyText(player.skin(), code); !key.isEmpty())
        caption += u'\t' + key.replace(u'&', QStringLiteral("&&"));
    QAction* action = menu.addAction(caption);
    action->setObjectName(QStringLiteral("mnuDoIt(%1)").arg(code));
    action->setEnabled(isOffered(player, *command));
    action->setCheckable(command->isOn);
    action->setChecked(command->isOn && command->isOn(player));
    // When the menu is done with it: a command may yield, and the menu be made anew meanwhile.
    QObject::connect(
        action, &QAction::triggered, &player, [&player, code] { player.guard([&] { player.DoIt(code); }); },
        Qt::QueuedConnection);
}

} // namespace

void fillPlayerMenu(QMenu& menu, frmTonedeck& player)
{
    menu.clear();
    qDeleteAll(menu.findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly));
    for (const int code : {12, 11, 10, kSeparator})
        addCommand(menu, player, code);
    for (const Group& group : groups()) {
        QMenu* part = menu.addMenu(group.caption);
        part->setObjectName(QLatin1String(group.name));
        for (const int code : group.codes)
            addCommand(*part, player, code);
    }
    for (const int code : {kSeparator, 2, 1})
        addCommand(menu, player, code);
}

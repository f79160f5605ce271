// Opens the player's menu.
#include "player/tonedeck/playercommand.h"
#include "player/tonedeck/playermenu.h"
#include "tests/player/tonedeck/playertest.h"

#include <QSet>

#include <set>

namespace {

// Stands between the commands of a menu.
constexpr auto kLine = static_cast<Command>(0);
constexpr auto kMenu = static_cast<Command>(-1);

struct Menu : PlayerTest {
    Menu()
    {
        writeSkin("B12,10,10,20,16,0,0,P,Play\nB10,40,10,20,16,0,0,\" \",Stop\nB11,70,10,20,16,0,0,&,Pause\n"
                  "B26,10,40,20,16,0,0,s,Stop after\nB27,10,40,20,16,0,0,P,Repeat\n"
                  "B28,10,40,20,16,0,0,~,Shuffle\nB45,40,40,20,16,0,0,Z,nothing\n");
        startWith({u"a.mp3"_qs, u"b.mp3"_qs});
        shown();
    }
    QMenu& menu()
    {
        fillPlayerMenu(*w().mnuPopup, w().parts());
        return *w().mnuPopup;
    }
    QAction* action(Command command)
    {
        return menu().findChild<QAction*>(u"mnuDoIt(%1)"_qs.arg(codeOf(command)));
    }
    void trigger(Command command)
    {
        action(command)->trigger();
        QCoreApplication::processEvents();
    }
    static QList<Command> commands(const QMenu& menu)
    {
        QList<Command> commands;
        for (const QAction* action : menu.actions())
            commands += action->isSeparator() ? kLine : action->menu() ? kMenu : commandOfEntry(*action);
        return commands;
    }
    static Command commandOfEntry(const QAction& action)
    {
        return static_cast<Command>(action.objectName().mid(8).chopped(1).toInt());
    }
    QMenu& part(const char* name) { return *menu().findChild<QMenu*>(QLatin1String(name)); }
};

} // namespace

TEST_F(Menu, holdsEachCommandOnce)
{
    QMultiMap<Command, QString> found;
    for (const QAction* action : menu().findChildren<QAction*>())
        if (action->objectName().startsWith(u"mnuDoIt"))
            found.insert(commandOfEntry(*action), action->text());
    QList<Command> expected;
    for (const PlayerCommand& row : PlayerCommand::table())
        expected += row.command;
    EXPECT_EQ(found.keys(), expected);
}

TEST_F(Menu, hasItsCommandsByWhatTheyAreAbout)
{
    EXPECT_EQ(commands(menu()),
              (QList<Command>{Command::Play, Command::Pause, Command::Stop, kLine, kMenu, kMenu, kMenu, kMenu,
                              kMenu, kMenu, kLine, Command::Minimise, Command::Close}));
    EXPECT_EQ(commands(part("mnuTrack")),
              (QList<Command>{Command::PlayOrPause, Command::Previous, Command::Next, Command::Back,
                              Command::Forward, kLine, Command::LoopStart, Command::LoopEnd, kLine,
                              Command::RemainingTime}));
    EXPECT_EQ(commands(part("mnuMode")), (QList<Command>{Command::Intro, Command::StopAfterTrack,
                                                         Command::RepeatTrack, Command::Shuffle}));
    EXPECT_EQ(commands(part("mnuPlaylist")),
              (QList<Command>{Command::OpenFile, Command::AddFile, Command::AddDirectory, kLine,
                              Command::LoadPlaylist, Command::SavePlaylist, Command::ClearPlaylist, kLine,
                              Command::RemoveEntry, Command::MoveEntryDown, Command::MoveEntryUp, kLine,
                              Command::VisualPlaylist}));
    EXPECT_EQ(commands(part("mnuVolume")), (QList<Command>{Command::VolumeUp, Command::VolumeDown,
                                                           Command::Mute, kLine, Command::VolumeMixer}));
    EXPECT_EQ(commands(part("mnuSkin")), (QList<Command>{Command::SelectSkin, Command::PreviousSkin,
                                                         Command::NextSkin, kLine, Command::NextSize}));
    EXPECT_EQ(commands(part("mnuInfo")),
              (QList<Command>{Command::TagEditor, Command::CoverWindow, Command::Preferences}));
}

TEST_F(Menu, hasOneAccessKeyForEachEntryOfAMenu)
{
    QList<QMenu*> menus{&menu()};
    menus += w().mnuPopup->findChildren<QMenu*>();
    for (const QMenu* one : menus) {
        QSet<QChar> keys;
        for (const QAction* entry : one->actions()) {
            const qsizetype mark = entry->text().indexOf(u'&');
            if (mark < 0)
                continue;
            const QChar key = entry->text()[mark + 1].toLower();
            EXPECT_FALSE(keys.contains(key)) << qPrintable(entry->text());
            keys.insert(key);
        }
    }
}

TEST_F(Menu, disablesWhatHasNoWindowYetAndSkinsThatAreNotNamed)
{
    std::set<Command> disabled;
    for (const PlayerCommand& row : PlayerCommand::table())
        if (!action(row.command)->isEnabled())
            disabled.insert(row.command);
    EXPECT_EQ(disabled,
              (std::set<Command>{Command::TagEditor, Command::Preferences, Command::CoverWindow,
                                 Command::VisualPlaylist, Command::PreviousSkin, Command::NextSkin}));
}

TEST_F(Menu, enablesTheSkinsThatAreNamed)
{
    writeSkin("B49,1,2,30,20,0,0,Q,before,second.skin\n", "second.skin");
    w().LoadSkin(u"second.skin"_qs, true);
    EXPECT_TRUE(action(Command::PreviousSkin)->isEnabled());
    EXPECT_FALSE(action(Command::NextSkin)->isEnabled());
}

TEST_F(Menu, checksWhatIsOn)
{
    const QList<Command> checkable{Command::Mute,           Command::Pause,       Command::Intro,
                                   Command::StopAfterTrack, Command::RepeatTrack, Command::Shuffle,
                                   Command::RemainingTime};
    for (const PlayerCommand& row : PlayerCommand::table())
        EXPECT_EQ(action(row.command)->isCheckable(), checkable.contains(row.command)) << codeOf(row.command);
    trigger(Command::Play);
    for (const Command command : checkable) {
        EXPECT_FALSE(action(command)->isChecked()) << codeOf(command);
        trigger(command);
        EXPECT_TRUE(action(command)->isChecked()) << codeOf(command);
        trigger(command);
        EXPECT_FALSE(action(command)->isChecked()) << codeOf(command);
    }
}

TEST_F(Menu, tellsTheKeyOfEachCommand)
{
    EXPECT_EQ(action(Command::Play)->text(), u"&Play\tP"_qs);
    EXPECT_EQ(action(Command::Stop)->text(), u"&Stop\tSpace"_qs);
    EXPECT_EQ(action(Command::Pause)->text(), u"P&ause\t&&"_qs) << "no access key of its own";
    EXPECT_EQ(action(Command::Intro)->text(), u"&Intro"_qs);
}

TEST_F(Menu, tellsNoKeyThatNeverAnswersForIt)
{
    EXPECT_EQ(action(Command::StopAfterTrack)->text(), u"S&top After Track"_qs) << "in lower case";
    EXPECT_EQ(action(Command::RepeatTrack)->text(), u"&Repeat Track"_qs) << "the key of an earlier button";
    EXPECT_EQ(action(Command::Shuffle)->text(), u"S&huffle"_qs) << "an aid's";
    writeSkin("B49,1,2,30,20,0,0,Q,before,second.skin\n", "second.skin");
    w().LoadSkin(u"second.skin"_qs, true);
    EXPECT_EQ(action(Command::PreviousSkin)->text(), u"Pre&vious Skin"_qs) << "beyond the fortieth";
}

TEST_F(Menu, runsWhatIsTriggered)
{
    trigger(Command::Play);
    EXPECT_EQ(notes(), kStarts);
    trigger(Command::Next);
    EXPECT_EQ(w().playlist().CurTrack(), 2);
    trigger(Command::ClearPlaylist);
    EXPECT_EQ(w().playlist().count(), 0);
    trigger(Command::VolumeDown);
    EXPECT_EQ(label(Label::Volume), u"95%"_qs);
}

TEST_F(Menu, showsTheErrorOfACommandInTheSystemsBox)
{
    world.dialogs.onMessage = [](const Message&) { throw RunTimeError(ErrorNumber::FileNotFound); };
    device().errorNumber = MediaError::kDamaged;
    trigger(Command::Play);
    EXPECT_EQ(world.dialogs.errors, std::vector<int>{numberOf(ErrorNumber::FileNotFound)});
}

TEST_F(Menu, comesUpWhereThePointerIs)
{
    moveTo(33, 70);
    pressAt(33, 70, Qt::RightButton);
    ASSERT_TRUE(w().mnuPopup->isVisible());
    EXPECT_EQ(w().mnuPopup->pos(), w().mapToGlobal(QPoint(33, 70)));
    EXPECT_FALSE(w().mnuPopup->actions().isEmpty());
    w().mnuPopup->close();
    releaseAt(33, 70, Qt::RightButton);
}

TEST_F(Menu, comesUpOverEverythingOnTheFace)
{
    writeSkin(
        "B12,10,10,20,16,0,0,P,Play\nL1,40,10,30,12,0,0,0,8,Sans Serif,Time\nS1,80,10,20,0,0,0,8,6,Position\n"
        "C,10,40,20,20,Cover\nX1,40,40,30,30,1,2,3,250,240,230,8,Sans Serif,List\n");
    w().LoadSkin(u"default.skin"_qs, true);
    for (const QPoint place :
         {QPoint(15, 15), QPoint(45, 15), QPoint(82, 12), QPoint(15, 45), QPoint(45, 45)}) {
        moveTo(place.x(), place.y());
        pressAt(place.x(), place.y(), Qt::RightButton);
        EXPECT_TRUE(w().mnuPopup->isVisible()) << place.x() << ' ' << place.y();
        w().mnuPopup->close();
        releaseAt(place.x(), place.y(), Qt::RightButton);
    }
    EXPECT_FALSE(w().engine().IsPlaying());
}

TEST_F(Menu, isMadeAnewEachTime)
{
    trigger(Command::Intro);
    moveTo(33, 70);
    for (int time = 0; time < 3; ++time) {
        pressAt(33, 70, Qt::RightButton);
        w().mnuPopup->close();
        releaseAt(33, 70, Qt::RightButton);
    }
    EXPECT_EQ(w().mnuPopup->findChildren<QMenu*>().size(), 6);
    EXPECT_EQ(commands(*w().mnuPopup).size(), 13);
    EXPECT_TRUE(
        w().mnuPopup->findChild<QAction*>(u"mnuDoIt(%1)"_qs.arg(codeOf(Command::Intro)))->isChecked());
}

TEST_F(Menu, closesTheWindow)
{
    trigger(Command::Close);
    expectGone();
}

// It may be made anew while its command runs, so nothing of it may wait for the command's end.
TEST_F(Menu, runsACommandWhenItIsDoneWithIt)
{
    world.dialogs.onAskFile = [this] {
        QContextMenuEvent wish(QContextMenuEvent::Mouse, {33, 70}, w().mapToGlobal(QPoint(33, 70)));
        QCoreApplication::sendEvent(&w(), &wish);
        w().mnuPopup->close();
    };
    menu().popup(w().mapToGlobal(QPoint(0, 0)));
    QMenu& list = *w().mnuPopup->findChild<QMenu*>(u"mnuPlaylist"_qs);
    list.popup(w().mapToGlobal(QPoint(20, 20)));
    auto* add = list.findChild<QAction*>(u"mnuDoIt(%1)"_qs.arg(codeOf(Command::AddDirectory)));
    QTest::mouseClick(&list, Qt::LeftButton, {}, list.actionGeometry(add).center());
    EXPECT_TRUE(world.dialogs.asked.isEmpty());
    QCoreApplication::processEvents();
    EXPECT_EQ(world.dialogs.asked.size(), 1);
}

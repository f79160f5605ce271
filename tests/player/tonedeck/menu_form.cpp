// The player's menu.
#include "player/tonedeck/playercommand.h"
#include "player/tonedeck/playermenu.h"
#include "tests/player/tonedeck/playertest.h"

#include <QSet>

namespace {

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
        fillPlayerMenu(*w().mnuPopup, w());
        return *w().mnuPopup;
    }
    QAction* action(int code) { return menu().findChild<QAction*>(u"mnuDoIt(%1)"_qs.arg(code)); }
    void trigger(int code)
    {
        action(code)->trigger();
        QCoreApplication::processEvents();
    }
    // The codes of a menu's own commands, 0 for what parts them, -1 for a menu in it.
    static QList<int> codes(const QMenu& menu)
    {
        QList<int> codes;
        for (const QAction* action : menu.actions())
            codes += action->isSeparator() ? 0
                     : action->menu()      ? -1
                                           : action->objectName().mid(8).chopped(1).toInt();
        return codes;
    }
    QMenu& part(const char* name) { return *menu().findChild<QMenu*>(QLatin1String(name)); }
};

} // namespace

TEST_F(Menu, holdsEachCommandOnce)
{
    QMultiMap<int, QString> found;
    for (const QAction* action : menu().findChildren<QAction*>())
        if (action->objectName().startsWith(u"mnuDoIt"))
            found.insert(action->objectName().mid(8).chopped(1).toInt(), action->text());
    QList<int> expected;
    for (const PlayerCommand& command : PlayerCommand::table())
        expected += command.code;
    EXPECT_EQ(found.keys(), expected);
}

TEST_F(Menu, hasItsCommandsByWhatTheyAreAbout)
{
    EXPECT_EQ(codes(menu()), (QList<int>{12, 11, 10, 0, -1, -1, -1, -1, -1, -1, 0, 2, 1}));
    EXPECT_EQ(codes(part("mnuTrack")), (QList<int>{36, 14, 15, 32, 33, 0, 30, 31, 0, 34}));
    EXPECT_EQ(codes(part("mnuMode")), (QList<int>{25, 26, 27, 28}));
    EXPECT_EQ(codes(part("mnuPlaylist")), (QList<int>{13, 23, 24, 0, 21, 22, 20, 0, 17, 18, 19, 0, 35}));
    EXPECT_EQ(codes(part("mnuVolume")), (QList<int>{8, 7, 9, 0, 29}));
    EXPECT_EQ(codes(part("mnuSkin")), (QList<int>{6, 49, 50, 0, 3}));
    EXPECT_EQ(codes(part("mnuInfo")), (QList<int>{4, 16, 5}));
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
    QSet<int> disabled;
    for (const PlayerCommand& command : PlayerCommand::table())
        if (!action(command.code)->isEnabled())
            disabled += command.code;
    EXPECT_EQ(disabled, (QSet<int>{4, 5, 16, 35, 49, 50}));
}

TEST_F(Menu, enablesTheSkinsThatAreNamed)
{
    writeSkin("B49,1,2,30,20,0,0,Q,before,second.skin\n", "second.skin");
    w().LoadSkin(u"second.skin"_qs, true);
    EXPECT_TRUE(action(49)->isEnabled());
    EXPECT_FALSE(action(50)->isEnabled());
}

TEST_F(Menu, checksWhatIsOn)
{
    const QList<int> checkable{9, 11, 25, 26, 27, 28, 34};
    for (const PlayerCommand& command : PlayerCommand::table())
        EXPECT_EQ(action(command.code)->isCheckable(), checkable.contains(command.code)) << command.code;
    trigger(12);
    for (const int code : checkable) {
        EXPECT_FALSE(action(code)->isChecked()) << code;
        trigger(code);
        EXPECT_TRUE(action(code)->isChecked()) << code;
        trigger(code);
        EXPECT_FALSE(action(code)->isChecked()) << code;
    }
}

TEST_F(Menu, tellsTheKeyOfEachCommand)
{
    EXPECT_EQ(action(12)->text(), u"&Play\tP"_qs);
    EXPECT_EQ(action(10)->text(), u"&Stop\tSpace"_qs);
    EXPECT_EQ(action(11)->text(), u"P&ause\t&&"_qs) << "no access key of its own";
    EXPECT_EQ(action(25)->text(), u"&Intro"_qs);
}

TEST_F(Menu, tellsNoKeyThatNeverAnswersForIt)
{
    EXPECT_EQ(action(26)->text(), u"S&top After Track"_qs) << "in lower case";
    EXPECT_EQ(action(27)->text(), u"&Repeat Track"_qs) << "the key of an earlier button";
    EXPECT_EQ(action(28)->text(), u"S&huffle"_qs) << "an aid's";
    writeSkin("B49,1,2,30,20,0,0,Q,before,second.skin\n", "second.skin");
    w().LoadSkin(u"second.skin"_qs, true);
    EXPECT_EQ(action(49)->text(), u"Pre&vious Skin"_qs) << "beyond the fortieth";
}

TEST_F(Menu, runsWhatIsTriggered)
{
    trigger(12);
    EXPECT_EQ(notes(), kStarts);
    trigger(15);
    EXPECT_EQ(w().playlist().CurTrack(), 2);
    trigger(20);
    EXPECT_EQ(w().playlist().count(), 0);
    trigger(7);
    EXPECT_EQ(label(18), u"95%"_qs);
}

TEST_F(Menu, showsTheErrorOfACommandInTheSystemsBox)
{
    world.dialogs.onMessage = [](const Message&) { throw RunTimeError(ErrorNumber::FileNotFound); };
    device().errorNumber = 277;
    trigger(12);
    EXPECT_EQ(world.dialogs.errors, std::vector<int>{53});
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
    trigger(25);
    moveTo(33, 70);
    for (int time = 0; time < 3; ++time) {
        pressAt(33, 70, Qt::RightButton);
        w().mnuPopup->close();
        releaseAt(33, 70, Qt::RightButton);
    }
    EXPECT_EQ(w().mnuPopup->findChildren<QMenu*>().size(), 6);
    EXPECT_EQ(codes(*w().mnuPopup).size(), 13);
    EXPECT_TRUE(w().mnuPopup->findChild<QAction*>(u"mnuDoIt(25)"_qs)->isChecked());
}

TEST_F(Menu, closesTheWindow)
{
    trigger(1);
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
    auto* add = list.findChild<QAction*>(u"mnuDoIt(24)"_qs);
    QTest::mouseClick(&list, Qt::LeftButton, {}, list.actionGeometry(add).center());
    EXPECT_TRUE(world.dialogs.asked.isEmpty());
    QCoreApplication::processEvents();
    EXPECT_EQ(world.dialogs.asked.size(), 1);
}

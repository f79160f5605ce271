#include "archive/mainwindow/frmmain.h"

#include "archive/core/registryaccess.h"
#include "archive/core/settings.h"
#include "archive/mainwindow/frmoptions.h"
#include "tests/support/find.h"
#include "tests/support/world.h"
#include "toolkit/widgets/windowing.h"

#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QToolButton>

#include <gtest/gtest.h>

namespace {

struct MainTest : testing::Test {
    World world;
    frmOptions options{world.context};
    std::unique_ptr<frmMain> form;

    MainTest()
    {
        world.directory.write("program/Songbin.dat", "template");
        world.windows.optionsWindow = &options;
    }
    frmMain& start()
    {
        form = std::make_unique<frmMain>(world.context);
        form->showForm();
        return *form;
    }
    QString stored(const QString& name)
    {
        return GetRegString(world.registry, RootKey::LocalMachine, settings::kKeyForReading, name);
    }
    void store(const QString& name, const QString& text)
    {
        SaveRegValue(world.registry, RootKey::LocalMachine, settings::kKeyForWriting, name, kRegSz, text);
    }
    QString tips()
    {
        return world.settings.get(u"Songbin"_qs, u"Options"_qs, u"Show Tips at Startup"_qs, u"?"_qs);
    }
    void close()
    {
        form->close();
        (void)form.release(); // it deletes itself
    }
};

} // namespace

TEST_F(MainTest, firstRunMakesTheArchiveAndShowsTheTip)
{
    start();
    EXPECT_EQ(world.dialogs.messages.size(), 1U);
    EXPECT_EQ(world.directory.read("program/Songbin.mdb"), "template");
    EXPECT_EQ(world.windows.shown, std::vector<WindowId>{WindowId::frmTip});
    EXPECT_TRUE(form->mnuTipSh->isChecked());
    EXPECT_EQ(form->windowTitle(), u"Songbin"_qs);
    EXPECT_TRUE(form->isVisible());
    EXPECT_GE(world.program.yields, 1);
}

TEST_F(MainTest, secondRunIsSilent)
{
    world.makeArchive();
    start();
    EXPECT_TRUE(world.dialogs.messages.empty());
}

TEST_F(MainTest, theInstalledPlayerIsChosenAtEveryStart)
{
    store(settings::kMP3player, u"0"_qs);
    start();
    EXPECT_EQ(stored(settings::kMP3player), u"1"_qs);
    EXPECT_TRUE(options.chkOwnPlayer->isChecked());
}

TEST_F(MainTest, connectionTextsOfBothEnvironmentsAreSet)
{
    start();
    EXPECT_EQ(world.store.SelectData.connectionText, world.store.sharedConnectionText());
    EXPECT_EQ(world.store.DataEnvironment1.connectionText, world.store.sharedConnectionText());
}

TEST_F(MainTest, initDriveIsLoadedOrDefaults)
{
    start();
    EXPECT_EQ(world.shared.InitDrive, u"C:\\"_qs);
    store(settings::kInitDrive, u"D:\\Music\\*.MP3"_qs);
    start();
    EXPECT_EQ(world.shared.InitDrive, u"D:\\Music\\*.MP3"_qs);
}

TEST_F(MainTest, noTipWhenItIsSwitchedOff)
{
    world.settings.save(u"Songbin"_qs, u"Options"_qs, u"Show Tips at Startup"_qs, u"0"_qs);
    start();
    EXPECT_TRUE(world.windows.shown.empty());
    EXPECT_FALSE(form->mnuTipSh->isChecked());
}

TEST_F(MainTest, theTipEntryOnlySwitchesTheTipsOn)
{
    world.settings.save(u"Songbin"_qs, u"Options"_qs, u"Show Tips at Startup"_qs, u"0"_qs);
    start();
    trigger(*form, "mnuTipSh");
    EXPECT_EQ(tips(), u"1"_qs);
    EXPECT_TRUE(form->mnuTipSh->isChecked());
    EXPECT_TRUE(world.windows.shown.empty());
    trigger(*form, "mnuTipSh");
    EXPECT_TRUE(form->mnuTipSh->isChecked());
}

TEST_F(MainTest, theWindowStateIsRestored)
{
    store(settings::kVindu, u"2"_qs);
    start();
    EXPECT_TRUE(form->isMaximized());
    store(settings::kVindu, u"1"_qs);
    start();
    EXPECT_TRUE(form->isMinimized());
    store(settings::kVindu, u"0"_qs);
    start();
    EXPECT_FALSE(form->isMinimized() || form->isMaximized());
}

TEST_F(MainTest, aWindowStateThatIsNoNumberStopsTheProgram)
{
    store(settings::kVindu, u"wide"_qs);
    start();
    EXPECT_EQ(world.dialogs.errors, std::vector<int>{numberOf(ErrorNumber::TypeMismatch)});
    EXPECT_TRUE(world.dialogs.lastError.contains(u"the setting Vindu is \"wide\"|"_qs));
    const QString file = QString::fromUtf8(world.directory.at("home/.config/Songbin/registry.conf"));
    EXPECT_TRUE(world.dialogs.lastError.contains(u"In the file %1 write Vindu=sz:0"_qs.arg(file)));
    EXPECT_EQ(world.program.status, 1);
    EXPECT_FALSE(form->isVisible());
}

TEST_F(MainTest, aWindowStateThatDoesNotExistStopsTheProgram)
{
    store(settings::kVindu, u"7"_qs);
    start();
    EXPECT_EQ(world.dialogs.errors, std::vector<int>{numberOf(ErrorNumber::InvalidPropertyValue)});
    EXPECT_TRUE(world.dialogs.lastError.contains(u"the setting Vindu is \"7\"|"_qs));
    EXPECT_TRUE(world.dialogs.lastError.contains(u"write Vindu=sz:0"_qs));
    EXPECT_EQ(world.program.status, 1);
}

TEST_F(MainTest, settingsThatCouldNotBeReadAreToldInOneLine)
{
    start();
    EXPECT_EQ(form->lblNotice, nullptr);
    const int height = form->height();
    for (const char* name : {"registry.conf", "settings.conf"}) {
        const QByteArray path = QByteArray("home/.config/Songbin/") + name;
        std::remove(world.directory.at(path).constData());
        world.directory.makeDirectory(path); // in the way
    }
    start();
    ASSERT_NE(form->lblNotice, nullptr);
    EXPECT_EQ(form->lblNotice->text(), u"The settings in registry.conf and settings.conf could not be read. "
                                       "They stay as they are; what changes is not kept."_qs);
    EXPECT_TRUE(form->lblNotice->isVisible());
    EXPECT_GE(form->lblNotice->width(), form->lblNotice->sizeHint().width());
    EXPECT_EQ(form->height() - height, form->lblNotice->parentWidget()->height());
    EXPECT_FALSE(world.program.ending());
}

TEST_F(MainTest, whatChangesInSettingsThatCouldNotBeReadIsNotKeptAsTold)
{
    store(settings::kVindu, u"2"_qs);
    const QByteArray path = world.directory.at("home/.config/Songbin/registry.conf");
    ASSERT_EQ(std::rename(path.constData(), (path + ".aside").constData()), 0);
    world.directory.makeDirectory("home/.config/Songbin/registry.conf");
    start();
    ASSERT_NE(form->lblNotice, nullptr);
    EXPECT_EQ(form->lblNotice->text(), u"The settings in registry.conf could not be read. "
                                       "They stay as they are; what changes is not kept."_qs);
    std::remove(path.constData());
    ASSERT_EQ(std::rename((path + ".aside").constData(), path.constData()), 0);
    close();
    EXPECT_EQ(stored(settings::kVindu), u"2"_qs);
    EXPECT_EQ(stored(settings::kInitDrive), kNotFound);
}

TEST_F(MainTest, aMissingTemplateStopsTheProgram)
{
    std::remove(world.directory.at("program/Songbin.dat").constData());
    start();
    EXPECT_EQ(world.dialogs.errors, std::vector<int>{numberOf(ErrorNumber::FileNotFound)});
    EXPECT_EQ(world.program.status, 1);
}

TEST_F(MainTest, closingSavesAndEnds)
{
    start();
    world.shared.InitDrive = u"D:\\x\\*.MP3"_qs;
    close();
    EXPECT_EQ(stored(settings::kInitDrive), u"D:\\x\\*.MP3"_qs);
    EXPECT_EQ(stored(settings::kVindu), u"0"_qs);
    EXPECT_EQ(world.program.status, 0);
}

TEST_F(MainTest, closingSavesTheMaximisedState)
{
    start();
    form->showMaximized();
    close();
    EXPECT_EQ(stored(settings::kVindu), u"2"_qs);
}

TEST_F(MainTest, exitAndCommand1EndWithoutSaving)
{
    start();
    world.shared.InitDrive = u"D:\\x\\*.MP3"_qs;
    trigger(*form, "Exit");
    EXPECT_EQ(world.program.status, 0);
    EXPECT_EQ(stored(settings::kInitDrive), kNotFound);
    EXPECT_EQ(stored(settings::kVindu), kNotFound);
}

TEST_F(MainTest, command1EndsToo)
{
    start();
    click(*form, "Command1");
    EXPECT_EQ(world.program.status, 0);
    EXPECT_EQ(stored(settings::kVindu), kNotFound);
}

TEST_F(MainTest, buttonsAndEntriesOpenTheirWindows)
{
    world.settings.save(u"Songbin"_qs, u"Options"_qs, u"Show Tips at Startup"_qs, u"0"_qs);
    start();
    for (const char* name :
         {"CmdScn", "CmdSearch", "CmdEdit", "CmdFullList", "CmdFullRep", "cmdArtistSong", "Image1"})
        click(*form, name);
    for (const char* name :
         {"Scan", "Edit", "Search", "mnuListe", "mnuArtistSong", "report", "mnuOptions", "mnuAbout"})
        trigger(*form, name);
    const std::vector<WindowId> expected = {
        WindowId::frmSearch,    WindowId::SearchForm, WindowId::frmEditor,   WindowId::rptListing,
        WindowId::rptFullListe, WindowId::ArtistSong, WindowId::frmTonedeck, WindowId::frmSearch,
        WindowId::frmEditor,    WindowId::SearchForm, WindowId::rptListing,  WindowId::ArtistSong,
        WindowId::rptFullListe, WindowId::frmOptions, WindowId::frmAbout};
    EXPECT_EQ(world.windows.shown, expected);
}

TEST_F(MainTest, commandsOfWindowsThatDoNotExistAreDisabled)
{
    world.windows.missing = true;
    start();
    for (const char* name : {"CmdSearch", "CmdEdit", "CmdFullList", "CmdFullRep", "cmdArtistSong", "Image1"})
        EXPECT_FALSE(find<QAbstractButton>(*form, name)->isEnabled()) << name;
    for (const char* name :
         {"Edit", "Search", "mnuListe", "mnuArtistSong", "report", "mnuUpdateHist", "mnuUpdates"})
        EXPECT_FALSE(find<QAction>(*form, name)->isEnabled()) << name;
    EXPECT_TRUE(form->CmdScn->isEnabled());
}

TEST_F(MainTest, theHelpShowsTheTextsBesideTheProgram)
{
    start();
    trigger(*form, "mnuUpdateHist");
    trigger(*form, "mnuUpdates");
    EXPECT_EQ(world.windows.texts, QStringList({u"P:\\uphist.txt"_qs, u"P:\\update.txt"_qs}));
}

TEST_F(MainTest, thePlayerCommandsOpenTheSample)
{
    start();
    click(*form, "CmdMP3Ply");
    trigger(*form, "mnyMP3Player");
    EXPECT_EQ(world.launcher.opened, QStringList({u"P:\\mp1.mp3"_qs, u"P:\\mp1.mp3"_qs}));
}

TEST_F(MainTest, aPlayerThatCannotBeStartedIsTold)
{
    start();
    world.dialogs.messages.clear();
    world.launcher.fails = true;
    click(*form, "CmdMP3Ply");
    EXPECT_EQ(world.dialogs.said(0), u"Missing program|Dette er en feil"_qs);
    EXPECT_EQ(world.dialogs.messages.at(0).icon, MessageIcon::Critical);
}

TEST_F(MainTest, theHomePageCommandsOpenTheAddressOfTheAboutBox)
{
    start();
    click(*form, "cmdWEB");
    trigger(*form, "mnuHomePage");
    EXPECT_EQ(world.launcher.opened.size(), 2);
    EXPECT_EQ(world.launcher.opened.at(0), u"https://songbin.example/"_qs);
}

TEST_F(MainTest, onlyTheFrameAndCommand1FollowTheWidth)
{
    start();
    const QPoint picture = find<QWidget>(*form, "Image1")->pos();
    form->resize(1000, 500);
    QCoreApplication::processEvents();
    const int inner = form->innerSize().width();
    EXPECT_EQ(form->Frame1->width(), inner - fromTwips(100));
    EXPECT_EQ(form->Command1->x(), inner - fromTwips(650));
    EXPECT_EQ(find<QWidget>(*form, "Image1")->pos(), picture);
}

TEST_F(MainTest, buttonsStayWhereTheyAreAndNeverCoverEachOther)
{
    start();
    const auto places = [&] {
        QList<QRect> all;
        for (const char* name : {"CmdScn", "CmdSearch", "CmdEdit", "CmdFullList", "CmdFullRep",
                                 "cmdArtistSong", "CmdMP3Ply", "cmdWEB"})
            all += find<QWidget>(*form, name)->geometry();
        return all;
    };
    const QList<QRect> before = places();
    form->resize(10, 10);
    QCoreApplication::processEvents();
    EXPECT_EQ(places(), before);
    const int end = before.last().right() + form->Frame1->x();
    EXPECT_GT(form->Command1->x(), end);
    for (int i = 1; i < before.size(); ++i)
        EXPECT_GT(before[i].left(), before[i - 1].right());
}

TEST_F(MainTest, enterPressesTheFocusedButton)
{
    start();
    form->Command1->setFocus();
    QTest::keyClick(form->Command1, Qt::Key_Return);
    EXPECT_EQ(world.program.status, 0);
}

TEST_F(MainTest, everyButtonHasItsToolTip)
{
    start();
    const std::vector<std::pair<const char*, QString>> tips = {
        {"CmdSearch", u"Search/Edit the database"_qs},
        {"CmdEdit", u"Browse/Edit content of database"_qs},
        {"CmdMP3Ply", u"Open MP3 Player"_qs},
        {"CmdScn", u"Scan disk for MP3"_qs},
        {"Command1", u"Quit Songbin"_qs},
        {"cmdArtistSong", u"Make report with only Artist and Songname"_qs},
        {"cmdWEB", u"Go to Brightmoor homepage"_qs},
        {"CmdFullRep", u"Make a detailed report"_qs},
        {"CmdFullList", u"Make a complete listout"_qs},
    };
    for (const auto& [name, tip] : tips) {
        EXPECT_EQ(find<QToolButton>(*form, name)->toolTip(), tip) << name;
        EXPECT_EQ(find<QToolButton>(*form, name)->accessibleName(), tip) << name;
    }
}

TEST_F(MainTest, menusAreCaptionedAndOrdered)
{
    start();
    QStringList seen;
    for (const QAction* menu : form->menuBar()->actions()) {
        seen += menu->objectName() + u'=' + menu->text();
        for (const QAction* entry : menu->menu()->actions())
            seen += u"  "_qs + entry->objectName() + u'=' + entry->text();
    }
    const QStringList expected = {
        u"Program=&Program"_qs,
        u"  Exit=&Exit"_qs,
        u"  mnyMP3Player=&MP3 Player"_qs,
        u"DataBase=&MP3 Database"_qs,
        u"  Scan=&Scan disk/CD for MP3's"_qs,
        u"  Edit=Browse/Edit Database"_qs,
        u"  Search=Sea&rch/Edit database"_qs,
        u"mnuReports=&Reports"_qs,
        u"  mnuListe=F&ull ListOut"_qs,
        u"  mnuArtistSong=&List of Artists/Songs"_qs,
        u"  report=&Full report"_qs,
        u"mnyTools=&Tools"_qs,
        u"  mnuOptions=&Options..."_qs,
        u"  mnuTipSh=S&how Tip Of The Day"_qs,
        u"  mnuSpace1="_qs,
        u"  mnuBck=&Backup"_qs,
        u"mnuHelp=&Help"_qs,
        u"  mnuUpdateHist=U&pdate History"_qs,
        u"  mnuUpdates=&Updates to come"_qs,
        u"  mnuHomePage=Visit homepage"_qs,
        u"  mnuSpace="_qs,
        u"  mnuAbout=&About"_qs,
    };
    EXPECT_EQ(seen, expected);
}

TEST_F(MainTest, okOfTheOptionsStoresTheChoiceAsANumber)
{
    start();
    auto* window = new frmOptions(world.context);
    window->showForm();
    EXPECT_FALSE(window->chkOwnPlayer->isChecked()); // its design default
    EXPECT_EQ(window->windowTitle(), u"Options"_qs);
    click(*window, "cmdOK");
    EXPECT_EQ(stored(settings::kMP3player), u"0"_qs);
    EXPECT_TRUE(window->isGone());
}

TEST_F(MainTest, cancelOfTheOptionsStoresNothing)
{
    start();
    auto* window = new frmOptions(world.context);
    window->showForm();
    click(*window, "cmdCancel");
    EXPECT_EQ(stored(settings::kMP3player), u"1"_qs);
    EXPECT_TRUE(window->isGone());
}

#include "app/defaultinstances.h"

#include "archive/browse/searchform.h"
#include "archive/browse/utvalg.h"
#include "archive/mainwindow/frmoptions.h"
#include "archive/mainwindow/textout.h"
#include "archive/scan/frmeditcell.h"
#include "archive/scan/frmresult.h"
#include "archive/scan/frmsearch.h"
#include "player/playback/playersettings.h"
#include "system/desktop/qtprogram.h"
#include "tests/support/fakemedia.h"
#include "tests/support/fakemodulewindow.h"
#include "tests/support/find.h"
#include "tests/support/hung.h"
#include "tests/support/world.h"
#include "toolkit/grids/flexgrid.h"
#include "toolkit/richtext/richtextbox.h"
#include "toolkit/widgets/drivelist.h"

#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QLineEdit>
#include <QPointer>
#include <QWindow>

#include <gtest/gtest.h>

namespace {

struct DefaultInstancesTest : testing::Test {
    World world;
    PlayerSettings playerOptions;
    FakeMediaMachine media;
    FakeModuleWindow moduleWindow;
    DefaultInstances windows{
        world.context.platform,
        world.fileNumbers,
        world.store,
        world.shared,
        {world.context.platform, world.fileNumbers, playerOptions, world.codePage, media, moduleWindow}};

    DefaultInstancesTest()
    {
        world.directory.write("program/Songbin.dat", "template");
        world.directory.write("program/TIPOFDAY.TXT", "a tip");
        world.program.onYield = [] { QCoreApplication::processEvents(); };
    }
    ~DefaultInstancesTest() override { runDeletions(); }

    static void runDeletions() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
    template <typename Window = QWidget>
    static Window* shown(const char* name)
    {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->objectName() == QLatin1String(name) && window->isVisible())
                return static_cast<Window*>(window);
        return nullptr;
    }
    void scan()
    {
        windows.show(WindowId::frmSearch);
        auto* search = shown<frmSearch>("frmSearch");
        search->Drive1->setCurrentIndex(search->Drive1->findText(u"D:"_qs, Qt::MatchStartsWith));
        search->ChkSub->setChecked(true);
        click(*search, "cmdScan");
    }
};

} // namespace

TEST_F(DefaultInstancesTest, startShowsTheTipOverTheMainWindow)
{
    windows.show(WindowId::frmMain);
    EXPECT_TRUE(shown("frmMain"));
    ASSERT_TRUE(shown("frmTip"));
    EXPECT_TRUE(QTest::qWaitForWindowActive(shown("frmTip")));
}

TEST_F(DefaultInstancesTest, theOptionsOpenOnceAsStartLeftThemAndThenAtTheirDesignDefault)
{
    windows.show(WindowId::frmMain);
    windows.show(WindowId::frmOptions);
    auto* options = shown<frmOptions>("frmOptions");
    ASSERT_TRUE(options);
    EXPECT_TRUE(options->chkOwnPlayer->isChecked());
    options->close();
    windows.show(WindowId::frmOptions);
    EXPECT_FALSE(shown<frmOptions>("frmOptions")->chkOwnPlayer->isChecked());
}

TEST_F(DefaultInstancesTest, theAddressIsReadWithoutShowingTheAboutBox)
{
    EXPECT_TRUE(windows.homePageAddress().startsWith(u"https://"));
    EXPECT_FALSE(shown("frmAbout"));
    windows.show(WindowId::frmAbout);
    EXPECT_TRUE(shown("frmAbout"));
}

TEST_F(DefaultInstancesTest, aWindowIsForgottenAtItsUnload)
{
    windows.show(WindowId::frmAbout);
    QWidget* first = shown("frmAbout");
    windows.show(WindowId::frmAbout);
    EXPECT_EQ(shown("frmAbout"), first);
    first->close();
    EXPECT_FALSE(shown("frmAbout"));
    windows.show(WindowId::frmAbout);
    EXPECT_TRUE(shown("frmAbout"));
    EXPECT_NE(shown("frmAbout"), first);
}

TEST_F(DefaultInstancesTest, closingTheTipShowsTheMainWindow)
{
    windows.show(WindowId::frmTip);
    shown("frmTip")->close();
    EXPECT_TRUE(shown("frmMain"));
}

TEST_F(DefaultInstancesTest, aScanRunsFromTheSearchWindowToTheResult)
{
    world.directory.write("disk/A - B.mp3");
    scan();
    auto* result = shown<frmResult>("frmResult");
    ASSERT_TRUE(result);
    EXPECT_EQ(result->MSFlexGrid1->Rows(), 1);
}

TEST_F(DefaultInstancesTest, theSearchWindowLoadsAgainHiddenWhenTheResultNeedsIt)
{
    world.directory.write("disk/A - B.mp3");
    scan();
    shown("frmSearch")->close();
    click(*shown("frmResult"), "Command1");
    EXPECT_EQ(shown<frmResult>("frmResult")->MSFlexGrid1->Rows(), 2);
    EXPECT_FALSE(shown("frmSearch"));
}

TEST_F(DefaultInstancesTest, aSecondDoubleClickIsAboutTheOtherCell)
{
    world.directory.write("disk/A - B.mp3");
    scan();
    FlexGrid& grid = *shown<frmResult>("frmResult")->MSFlexGrid1;
    grid.setRow(0);
    grid.setCol(2);
    Q_EMIT grid.cellActivated();
    shown<frmEditCell>("frmEditCell")->txtEditCell->setText(u"dropped"_qs);
    grid.setCol(3);
    Q_EMIT grid.cellActivated();
    ASSERT_TRUE(shown("frmEditCell"));
    EXPECT_EQ(shown<frmEditCell>("frmEditCell")->txtEditCell->text(), u"B.mp3"_qs);
    EXPECT_EQ(grid.textAt(0, 2), u"A "_qs);
}

namespace {

// Notes the owner that a window has at the moment in which it is shown.
class OwnerAtShow : public QObject {
public:
    explicit OwnerAtShow(QString window) : m_window(std::move(window))
    {
        QCoreApplication::instance()->installEventFilter(this);
    }

    const QWindow* owner = nullptr;
    Qt::WindowType type = Qt::Widget;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const auto* window = qobject_cast<QWidget*>(watched);
        if (window && event->type() == QEvent::Show && window->objectName() == m_window) {
            owner = window->windowHandle()->transientParent();
            type = window->windowType();
        }
        return false;
    }

private:
    QString m_window;
};

} // namespace

TEST_F(DefaultInstancesTest, theTipAndTheCellEditorHaveTheirOwnersBeforeTheyAreShown)
{
    const OwnerAtShow tip(u"frmTip"_qs);
    windows.show(WindowId::frmMain);
    EXPECT_EQ(tip.owner, shown("frmMain")->windowHandle());
    EXPECT_EQ(tip.type, Qt::Dialog) << "of no other window is the window manager told the owner";
    world.directory.write("disk/A - B.mp3");
    scan();
    const OwnerAtShow editor(u"frmEditCell"_qs);
    Q_EMIT shown<frmResult>("frmResult")->MSFlexGrid1->cellActivated();
    EXPECT_EQ(editor.owner, shown("frmResult")->windowHandle());
    EXPECT_EQ(editor.type, Qt::Dialog);
}

TEST_F(DefaultInstancesTest, reportsAreOpenedAndComeToTheFrontAsTheyStand)
{
    world.makeArchive();
    world.execute(u"INSERT INTO MP3 VALUES ('ROCK_01', 'D:\\a.mp3', 'a', 'one', ' ', ' ', ' ')"_qs);
    windows.show(WindowId::frmMain);
    for (const auto& [window, name] :
         {std::pair(WindowId::rptListing, "rptListing"), std::pair(WindowId::rptFullListe, "rptFullListe"),
          std::pair(WindowId::ArtistSong, "ArtistSong")}) {
        EXPECT_TRUE(windows.offers(window)) << name;
        windows.show(window);
        const QPointer<QWidget> opened = shown(name);
        ASSERT_TRUE(opened) << name;
        EXPECT_STREQ(opened->metaObject()->className(), name);
        shown("frmMain")->activateWindow();
        windows.show(window);
        EXPECT_EQ(shown(name), opened);
        QCoreApplication::processEvents();
        EXPECT_TRUE(opened->isActiveWindow()) << name;
    }
}

TEST_F(DefaultInstancesTest, aReportOverADamagedOrMissingArchiveIsToldAndCanBeOpenedLater)
{
    windows.show(WindowId::frmMain); // it copies the template, which is no archive here
    const std::vector<std::pair<WindowId, const char*>> reports{{WindowId::rptListing, "rptListing"},
                                                                {WindowId::rptFullListe, "rptFullListe"},
                                                                {WindowId::ArtistSong, "ArtistSong"}};
    const auto isRefused = [&](const QString& text) {
        for (const auto& [window, name] : reports) {
            const auto before = world.dialogs.errors.size();
            windows.show(window);
            runDeletions();
            EXPECT_EQ(world.dialogs.errors.size(), before + 1) << name;
            EXPECT_TRUE(world.dialogs.lastError.contains(text)) << world.dialogs.lastError.toStdString();
            EXPECT_FALSE(shown(name)) << name;
        }
    };
    isRefused(u"file is not a database"_qs);
    QFile::remove(QString::fromUtf8(world.directory.at("program/Songbin.mdb")));
    isRefused(u"The archive cannot be opened"_qs);
    world.makeArchive();
    for (const auto& [window, name] : reports) {
        windows.show(window);
        EXPECT_TRUE(shown(name)) << name;
    }
}

TEST_F(DefaultInstancesTest, theHelpOpensTheTextsBesideTheProgramInOneWindow)
{
    world.directory.write("program/uphist.txt", "what was");
    windows.show(WindowId::frmMain);
    trigger(*shown("frmMain"), "mnuUpdateHist");
    auto* text = shown<Textout>("Textout");
    ASSERT_TRUE(text);
    EXPECT_EQ(text->windowTitle(), u"uphist.txt"_qs);
    trigger(*shown("frmMain"), "mnuUpdates");
    EXPECT_EQ(world.dialogs.errors, std::vector<int>{numberOf(ErrorNumber::FileNotFound)});
    EXPECT_EQ(text->windowTitle(), u"uphist.txt"_qs);
    world.directory.write("program/update.txt", "what comes");
    trigger(*shown("frmMain"), "mnuUpdates");
    EXPECT_EQ(shown("Textout"), text);
    EXPECT_EQ(text->windowTitle(), u"update.txt"_qs);
    EXPECT_EQ(text->RTFREG->toPlainText(), u"what comes"_qs);
    EXPECT_TRUE(QTest::qWaitForWindowActive(text));
}

TEST_F(DefaultInstancesTest, aTextThatIsMissingLeavesNoWindowAndTheNextOneOpens)
{
    windows.show(WindowId::frmMain);
    trigger(*shown("frmMain"), "mnuUpdateHist");
    EXPECT_EQ(world.dialogs.errors, std::vector<int>{numberOf(ErrorNumber::FileNotFound)});
    runDeletions();
    for (QWidget* window : QApplication::topLevelWidgets())
        EXPECT_NE(window->objectName(), u"Textout");
    world.directory.write("program/uphist.txt", "what was");
    trigger(*shown("frmMain"), "mnuUpdateHist");
    EXPECT_TRUE(shown("Textout"));
}

TEST_F(DefaultInstancesTest, searchOpensTheResultAndOnlyBringsAnOpenOneToTheFront)
{
    world.makeArchive();
    world.execute(u"INSERT INTO MP3 VALUES ('ROCK_01', 'D:\\a.mp3', 'a', 'one', ' ', ' ', ' ')"_qs);
    windows.show(WindowId::SearchForm);
    auto* search = shown<SearchForm>("SearchForm");
    ASSERT_TRUE(search);
    click(*search, "cmdSearch");
    auto* result = shown<Utvalg>("Utvalg");
    ASSERT_TRUE(result);
    EXPECT_EQ(result->records().recordCount(), 1);
    search->txtArtist->setText(u"nobody"_qs);
    click(*search, "cmdSearch");
    EXPECT_EQ(shown<Utvalg>("Utvalg"), result);
    EXPECT_EQ(result->records().recordCount(), 1);
    click(*result, "cmdFilter");
    runDeletions();
    click(*search, "cmdSearch");
    result = shown<Utvalg>("Utvalg");
    EXPECT_EQ(result->records().recordCount(), 0);
    click(*result, "cmdClose");
    EXPECT_FALSE(shown("Utvalg"));
    EXPECT_FALSE(shown("SearchForm"));
}

TEST_F(DefaultInstancesTest, playFromTheResultChecksTheEditorsRecordAndShowsNoEditor)
{
    world.makeArchive();
    world.execute(u"INSERT INTO MP3 VALUES ('ROCK_01', 'D:\\b.mp3', 'b', 'two', ' ', ' ', ' '),"
                  " ('OTHER', 'D:\\a.mp3', 'a', 'one', ' ', ' ', ' ')"_qs);
    windows.show(WindowId::SearchForm);
    click(*shown("SearchForm"), "cmdSearch");
    click(*shown("Utvalg"), "Command2");
    EXPECT_FALSE(shown("frmEditor"));
    EXPECT_EQ(world.launcher.opened, QStringList(u"D:\\b.mp3"_qs));
    ASSERT_EQ(world.dialogs.messages.size(), 1U); // the editor shows the first artist's record, of disk OTHER
    EXPECT_EQ(world.dialogs.messages[0].title, u"IMPORTANT");
    windows.show(WindowId::frmEditor);
    click(*shown("frmEditor"), "cmdNext");
    click(*shown("Utvalg"), "Command2");
    EXPECT_EQ(world.dialogs.messages.size(), 1U);
    EXPECT_EQ(world.launcher.opened.size(), 2);
}

TEST_F(DefaultInstancesTest, closingTheResultDoesNotLoadAFormThatWasClosed)
{
    world.makeArchive();
    windows.show(WindowId::SearchForm);
    click(*shown("SearchForm"), "cmdSearch");
    click(*shown("SearchForm"), "cmdCancel");
    runDeletions();
    click(*shown("Utvalg"), "cmdClose");
    runDeletions();
    for (QWidget* window : QApplication::topLevelWidgets())
        EXPECT_NE(window->objectName(), u"SearchForm");
}

TEST_F(DefaultInstancesTest, aSearchThatFailsLeavesNoResultAndTheNextOneOpens)
{
    world.makeArchive();
    windows.show(WindowId::SearchForm);
    auto* search = shown<SearchForm>("SearchForm");
    search->txtArtist->setText(u"o'brien"_qs);
    click(*search, "cmdSearch");
    EXPECT_FALSE(shown("Utvalg"));
    EXPECT_EQ(world.dialogs.messages.size(), 1U);
    search->txtArtist->clear();
    click(*search, "cmdSearch");
    EXPECT_TRUE(shown("Utvalg"));
}

TEST_F(DefaultInstancesTest, theMainWindowsPictureOpensThePlayer)
{
    world.directory.write(
        "program/default.skin",
        "Tonedeck Skin\n90,40\n90,40\n90,40\n,\n0,0,0,0,0,0,0,0\nB1,1,1,9,9,1,1,Q,Close\nE\n");
    windows.show(WindowId::frmMain);
    click(*shown("frmMain"), "Image1");
    auto* player = shown<QWidget>("frmTonedeck");
    ASSERT_TRUE(player);
    EXPECT_EQ(player->size(), QSize(90, 40));
    click(*player, "Btn(1)");
    runDeletions();
    EXPECT_FALSE(shown("frmTonedeck"));
    EXPECT_TRUE(world.directory.exists("program/playlist.m3u")) << "its unload code has run";
    EXPECT_TRUE(shown("frmMain"));
}

TEST_F(DefaultInstancesTest, aFileOpensThePlayerAndPlays)
{
    world.directory.write("disk/a.mp3", QByteArray(300, 'x'));
    world.directory.write("disk/b c.mp3", QByteArray(300, 'x'));
    windows.openFile(world.directory.at("disk/a.mp3"));
    ASSERT_TRUE(shown("frmTonedeck"));
    const auto playing = [this] {
        for (const auto& device : media.devices)
            if (device->notes.contains(u"play"_qs))
                return device->fileName;
        return u"nothing"_qs;
    };
    EXPECT_TRUE(QTest::qWaitFor([&] { return playing() == u"D:\\a.mp3"; }, kHung)) << qPrintable(playing());
    for (const auto& device : media.devices)
        device->taken();
    windows.openFile("file://" + world.directory.at("disk/b%20c.mp3"));
    EXPECT_EQ(playing(), u"D:\\b c.mp3"_qs);
}

TEST_F(DefaultInstancesTest, aFileWhoseNameIsNoTextIsPlayedToo)
{
    world.directory.write("disk/\xe9.mp3", QByteArray(300, 'x'));
    windows.openFile("file://" + world.directory.at("disk/\xe9.mp3"));
    ASSERT_FALSE(media.devices.empty());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !media.devices[0]->fileName.isEmpty(); }, kHung));
    const QString path = media.devices[0]->fileName;
    EXPECT_EQ(world.drives.machinePath(path), world.directory.at("disk/\xe9.mp3")) << qPrintable(path);
}

TEST_F(DefaultInstancesTest, aFileThatIsNotThereLeavesThePlayerOpen)
{
    windows.openFile(world.directory.at("disk/none.mp3"));
    EXPECT_TRUE(shown("frmTonedeck"));
    windows.openFile("/\xff/none.mp3");
    windows.openFile("file://%");
    EXPECT_TRUE(shown("frmTonedeck"));
}

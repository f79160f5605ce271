#include "app/defaultinstances.h"

#include "platform/drivelist.h"
#include "platform/flexgrid.h"
#include "platform/program_qt.h"
#include "scan/frmeditcell.h"
#include "scan/frmresult.h"
#include "scan/frmsearch.h"
#include "shell/frmoptions.h"
#include "tests/support/find.h"
#include "tests/support/world.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>

#include <gtest/gtest.h>

namespace {

struct DefaultInstancesTest : testing::Test {
    World world;
    DefaultInstances windows{world.context.platform, world.fileNumbers, world.store, world.shared,
                             world.codePage};

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

TEST_F(DefaultInstancesTest, windowsThatAreNotThereYetAreNotOffered)
{
    for (const WindowId window : {WindowId::rptListing, WindowId::rptFullListe, WindowId::ArtistSong,
                                  WindowId::Textout, WindowId::frmTonedeck}) {
        EXPECT_FALSE(windows.offers(window));
        windows.show(window);
    }
    EXPECT_FALSE(QApplication::activeWindow());
}

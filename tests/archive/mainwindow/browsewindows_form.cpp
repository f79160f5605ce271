#include "archive/mainwindow/frmabout.h"
#include "archive/mainwindow/frmtip.h"
#include "tests/support/find.h"
#include "tests/support/world.h"
#include "toolkit/widgets/linklabel.h"

#include <QCheckBox>
#include <QLabel>
#include <QPointer>
#include <QPushButton>

#include <gtest/gtest.h>

namespace {

struct TipTest : testing::Test {
    World world;
    QPointer<frmTip> tip;

    ~TipTest() override { delete tip; }
    frmTip& open()
    {
        tip = new frmTip(world.context);
        tip->showForm();
        return *tip;
    }
    void tips(const QByteArray& text) { world.directory.write("program/TIPOFDAY.TXT", text); }
    QString setting()
    {
        return world.settings.get(u"Songbin"_qs, u"Options"_qs, u"Show Tips at Startup"_qs, u"?"_qs);
    }
};

struct AboutTest : testing::Test {
    World world;
    QPointer<frmAbout> about;

    ~AboutTest() override { delete about; }
    frmAbout& open()
    {
        about = new frmAbout(world.context);
        about->showForm();
        return *about;
    }
    void registered(const QString& key, const QString& name, const QString& text)
    {
        world.registry.set(RootKey::LocalMachine, key, name, {kRegSz, text, {}});
    }
};

} // namespace

TEST_F(TipTest, showsARandomTip)
{
    tips("one\r\ntwo\r\nthree\r\n");
    world.program.nextRandom = 0.5;
    open();
    EXPECT_EQ(tip->windowTitle(), u"Tip of the Day"_qs);
    EXPECT_EQ(tip->lblTipText->text(), u"two"_qs);
    EXPECT_EQ(tip->lblHeading->text(), u"Did you know..."_qs);
    EXPECT_EQ(world.program.seeded, 1);
    EXPECT_TRUE(tip->chkLoadTipsAtStartup->isChecked());
}

TEST_F(TipTest, theNextTipMayBeAnyTip)
{
    tips("one\ntwo\nthree");
    open();
    world.program.nextRandom = 0.99;
    click(*tip, "cmdNextTip");
    EXPECT_EQ(tip->lblTipText->text(), u"three"_qs);
    click(*tip, "cmdNextTip");
    EXPECT_EQ(tip->lblTipText->text(), u"three"_qs);
}

TEST_F(TipTest, oneLineIsAlwaysThatLine)
{
    tips("only");
    for (const double random : {0.0, 0.5, 0.999}) {
        world.program.nextRandom = random;
        open();
        EXPECT_EQ(tip->lblTipText->text(), u"only"_qs);
        delete tip;
    }
}

TEST_F(TipTest, anEmptyLineIsAnEmptyTip)
{
    tips("one\n\nthree");
    open();
    world.program.nextRandom = 0.5;
    click(*tip, "cmdNextTip");
    EXPECT_EQ(tip->lblTipText->text(), QString());
}

TEST_F(TipTest, aTipIsShownAsItIsWritten)
{
    tips("<b>not bold</b> & \"quoted\"");
    open();
    EXPECT_EQ(tip->lblTipText->textFormat(), Qt::PlainText);
}

TEST_F(TipTest, aMissingFileIsExplainedAndNextDoesNothing)
{
    open();
    const QString text = tip->lblTipText->text();
    EXPECT_EQ(
        text,
        u"That the TIPOFDAY.TXT file was not found? \r\n\r\nCreate a text file named TIPOFDAY.TXT using "
        "NotePad with 1 tip per line. Then place it in the same directory as the application. "_qs);
    click(*tip, "cmdNextTip");
    EXPECT_EQ(tip->lblTipText->text(), text);
}

TEST_F(TipTest, theCheckBoxIsStoredAtOnce)
{
    tips("one");
    open();
    click(*tip, "chkLoadTipsAtStartup");
    EXPECT_EQ(setting(), u"0"_qs);
    click(*tip, "chkLoadTipsAtStartup");
    EXPECT_EQ(setting(), u"1"_qs);
}

TEST_F(TipTest, switchedOffItUnloadsAtOnce)
{
    world.settings.save(u"Songbin"_qs, u"Options"_qs, u"Show Tips at Startup"_qs, u"0"_qs);
    open();
    EXPECT_TRUE(tip->isGone());
    EXPECT_FALSE(tip->isVisible());
}

TEST_F(TipTest, okClosesAndShowsTheMainWindow)
{
    tips("one");
    open();
    click(*tip, "cmdOK");
    EXPECT_TRUE(tip->isGone());
    EXPECT_EQ(world.windows.shown, std::vector<WindowId>{WindowId::frmMain});
}

TEST_F(TipTest, theCloseBoxKeepsWhatWasUnchecked)
{
    tips("one");
    open();
    click(*tip, "chkLoadTipsAtStartup");
    tip->close();
    EXPECT_EQ(setting(), u"0"_qs);
    EXPECT_EQ(world.windows.shown, std::vector<WindowId>{WindowId::frmMain});
}

TEST_F(TipTest, anEmptyFileIsAnEmptyTip)
{
    tips("");
    open();
    click(*tip, "cmdNextTip");
    EXPECT_EQ(tip->lblTipText->text(), QString());
    EXPECT_TRUE(world.dialogs.errors.empty());
}

TEST_F(TipTest, captionsAreRight)
{
    tips("one");
    open();
    EXPECT_EQ(tip->chkLoadTipsAtStartup->text(), u"&Show Tips at Startup"_qs);
    EXPECT_EQ(tip->cmdNextTip->text(), u"&Next Tip"_qs);
}

TEST_F(AboutTest, tellsTitleVersionAndAddress)
{
    open();
    EXPECT_EQ(about->windowTitle(), u"About Songbin"_qs);
    EXPECT_EQ(about->lblTitle->text(), u"Songbin"_qs);
    EXPECT_EQ(about->lblVersion->text(), u"Version 1.2.3"_qs);
    EXPECT_TRUE(about->lblDescription->text().startsWith(u"Songbin is a program for archiving your disks"));
    EXPECT_TRUE(about->Label1->text().startsWith(u"https://"));
    EXPECT_EQ(about->cmdSysInfo->text(), u"&System Info..."_qs);
}

TEST_F(AboutTest, theAddressOpens)
{
    open();
    QTest::mouseClick(about->Label1, Qt::LeftButton);
    about->Label1->setFocus();
    QTest::keyClick(about->Label1, Qt::Key_Return);
    EXPECT_EQ(world.launcher.opened, QStringList({about->Label1->text(), about->Label1->text()}));
    EXPECT_FALSE(about->isGone());
}

TEST_F(AboutTest, startsTheSystemInformationThatIsRegistered)
{
    registered(u"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO"_qs, u"PATH"_qs, u"Z:\\usr\\bin\\anything"_qs);
    open();
    click(*about, "cmdSysInfo");
    EXPECT_EQ(world.launcher.started, QStringList({u"Z:\\usr\\bin\\anything"_qs}));
}

TEST_F(AboutTest, theSecondPlaceCountsOnlyWhenItsFileExists)
{
    registered(u"SOFTWARE\\Microsoft\\Shared Tools Location"_qs, u"MSINFO"_qs, u"P:\\info"_qs);
    open();
    click(*about, "cmdSysInfo");
    EXPECT_EQ(world.dialogs.said(0), u"|System Information Is Unavailable At This Time"_qs);
    EXPECT_TRUE(world.launcher.started.isEmpty());

    world.directory.write("program/info/MSINFO32.EXE", "x");
    click(*about, "cmdSysInfo");
    EXPECT_EQ(world.launcher.started, QStringList({u"P:\\info\\MSINFO32.EXE"_qs}));
}

TEST_F(AboutTest, aRegisteredProgramThatCannotBeStartedIsAsGoodAsNone)
{
    registered(u"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO"_qs, u"PATH"_qs, u"Z:\\gone"_qs);
    world.launcher.fails = true;
    open();
    click(*about, "cmdSysInfo");
    EXPECT_EQ(world.dialogs.said(0), u"|System Information Is Unavailable At This Time"_qs);
    EXPECT_TRUE(world.dialogs.errors.empty());
}

TEST_F(AboutTest, enterMeansOk)
{
    open();
    QTest::keyClick(about->focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(about->isGone());
    EXPECT_TRUE(world.launcher.opened.isEmpty());
}

TEST_F(AboutTest, okCloses)
{
    open();
    click(*about, "cmdOK");
    EXPECT_TRUE(about->isGone());
}

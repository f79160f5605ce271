#include "archive/scan/frmeditcell.h"
#include "archive/scan/frmresult.h"
#include "archive/scan/frmsearch.h"
#include "tests/support/find.h"
#include "tests/support/rights.h"
#include "tests/support/world.h"
#include "toolkit/grids/flexgrid.h"
#include "toolkit/pages/pageview.h"
#include "toolkit/widgets/directorylist.h"
#include "toolkit/widgets/drivelist.h"
#include "toolkit/widgets/progresslabel.h"
#include "toolkit/widgets/windowing.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QWindow>

#include <sys/stat.h>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

struct ScanWindows : testing::Test {
    World world;
    int resultsShown = 0;
    QPointer<frmSearch> search;
    QPointer<frmResult> result;
    QPointer<frmEditCell> editor;

    ScanWindows()
    {
        world.shared.InitDrive = QStringLiteral("D:\\Old\\*.MP3");
        world.program.onYield = [] { QCoreApplication::processEvents(); };
    }
    ~ScanWindows() override
    {
        delete editor;
        delete result;
        delete search;
    }

    void write(const QByteArray& name, const QByteArray& content = {})
    {
        world.directory.write("disk/" + name, content);
    }

    frmSearch& openSearch()
    {
        search = new frmSearch(world.context, [this] { ++resultsShown; });
        search->showForm();
        return *search;
    }
    frmResult& openResult(bool subdirectories = true)
    {
        if (!search)
            openSearch();
        search->ChkSub->setChecked(subdirectories);
        result = new frmResult(world.context, [this]() -> ScanSetup& { return *search; },
                               {.open =
                                    [this] {
                                        editor = new frmEditCell(world.dialogs, world.program, [this] {
                                            return result ? result->MSFlexGrid1 : nullptr;
                                        });
                                        editor->showForm();
                                    },
                                .close =
                                    [this] {
                                        if (editor)
                                            editor->unload();
                                    }});
        result->showForm();
        return *result;
    }
    QString searchString() { return search->txtSearchString->text(); }
    void editCell(int row, int col)
    {
        result->MSFlexGrid1->setRow(row);
        result->MSFlexGrid1->setCol(col);
        Q_EMIT result->MSFlexGrid1->cellActivated();
    }
};

} // namespace

TEST_F(ScanWindows, theSearchBeginsAtTheRootOfTheLastDrive)
{
    openSearch();
    EXPECT_EQ(search->windowTitle(), u"Search"_qs);
    EXPECT_EQ(search->Drive1->drive(), u"D: [ROCK_01]"_qs);
    EXPECT_EQ(world.shared.SearchRoot, u"D:\\"_qs);
    EXPECT_EQ(search->Dir1->path(), u"D:\\"_qs);
    EXPECT_EQ(searchString(), u"D:\\*.MP3"_qs);
    EXPECT_FALSE(search->CustomExt->isVisible());
    EXPECT_FALSE(search->Label13->isVisible());
    EXPECT_EQ(search->CustomExt->text(), u"MP3"_qs);
    EXPECT_TRUE(search->ChkSub->isChecked());
}

TEST_F(ScanWindows, whetherSubdirectoriesAreIncludedIsRemembered)
{
    openSearch();
    search->ChkSub->click();
    delete search;
    EXPECT_FALSE(openSearch().ChkSub->isChecked());
    search->ChkSub->click();
    delete search;
    EXPECT_TRUE(openSearch().ChkSub->isChecked());
}

TEST_F(ScanWindows, aLastDriveWithoutRightsIsLoadedInSilence)
{
    for (const char* name : {"home", "program"})
        chmod(world.directory.at(name).constData(), 0755);
    chmod(world.directory.path().constData(), 0755);
    chmod(world.directory.at("disk").constData(), 0000);
    {
        const Unprivileged user;
        openSearch();
        QCoreApplication::processEvents();
        EXPECT_TRUE(world.dialogs.errors.empty());
        EXPECT_EQ(search->Drive1->drive(), u"D: [ROCK_01]"_qs);
        EXPECT_EQ(world.shared.SearchRoot, u"D:\\"_qs);
        EXPECT_EQ(searchString(), u"D:\\*.MP3"_qs);
        search->CustomExt->setText(u"WAV"_qs);
        EXPECT_EQ(searchString(), u"D:\\*.WAV"_qs);
    }
    chmod(world.directory.at("disk").constData(), 0755);
}

TEST_F(ScanWindows, aLastDriveThatIsGoneLeavesTheFirst)
{
    world.shared.InitDrive = u"Q:\\*.MP3"_qs;
    openSearch();
    EXPECT_TRUE(world.dialogs.errors.empty());
    EXPECT_EQ(world.shared.SearchRoot, u"C:\\"_qs);
    EXPECT_EQ(searchString(), u"C:\\*.MP3"_qs);
}

TEST_F(ScanWindows, theTypesStandInTheirOrder)
{
    openSearch();
    QStringList types;
    for (int i = 0; i < search->Combo1->count(); ++i)
        types += search->Combo1->itemText(i);
    EXPECT_EQ(types.join(u' '), u"MP3 MP2 WAV MID VQF AAC LQT WMA ASF Custom"_qs);
}

TEST_F(ScanWindows, aChosenDirectoryMakesTheSearchString)
{
    world.directory.makeDirectory("disk/Music");
    openSearch();
    search->Dir1->setPath(u"D:\\Music"_qs);
    EXPECT_EQ(searchString(), u"D:\\Music\\*.MP3"_qs);
    search->Dir1->setPath(u"D:\\"_qs);
    EXPECT_EQ(searchString(), u"D:\\*.MP3"_qs);
}

TEST_F(ScanWindows, aChosenDriveStartsAtItsRoot)
{
    openSearch();
    search->Drive1->setDrive(u"P:"_qs);
    EXPECT_EQ(world.shared.SearchRoot, u"P:\\"_qs);
    EXPECT_EQ(search->Dir1->path(), u"P:\\"_qs);
    EXPECT_EQ(searchString(), u"P:\\*.MP3"_qs);
}

TEST_F(ScanWindows, aDriveThatIsNotReadyIsToldAndTheProgramGoesOn)
{
    openSearch();
    std::rename(world.directory.at("program").constData(), world.directory.at("gone").constData());
    search->Drive1->setCurrentIndex(search->Drive1->findText(u"P:"_qs));
    QCoreApplication::processEvents();
    EXPECT_EQ(world.dialogs.errors, std::vector<int>{numberOf(ErrorNumber::DeviceUnavailable)});
    EXPECT_FALSE(world.program.ending());
    // Everything is still about the drive before.
    EXPECT_EQ(search->Drive1->drive(), u"D: [ROCK_01]"_qs);
    EXPECT_EQ(search->Dir1->path(), u"D:\\"_qs);
    EXPECT_EQ(world.shared.SearchRoot, u"D:\\"_qs);
    EXPECT_EQ(searchString(), u"D:\\*.MP3"_qs);
}

TEST_F(ScanWindows, aDriveThatMayNotBeReadIsToldAndNotTaken)
{
    openSearch();
    ASSERT_EQ(chmod(world.directory.path().constData(), 0755), 0);
    ASSERT_EQ(chmod(world.directory.at("program").constData(), 0311), 0);
    {
        const Unprivileged user;
        search->Drive1->setCurrentIndex(search->Drive1->findText(u"P:"_qs));
    }
    EXPECT_EQ(world.dialogs.errors.size(), 1);
    EXPECT_FALSE(world.program.ending());
    EXPECT_EQ(search->Drive1->drive(), u"D: [ROCK_01]"_qs);
    EXPECT_EQ(search->Dir1->path(), u"D:\\"_qs);
    EXPECT_EQ(world.shared.SearchRoot, u"D:\\"_qs);
    EXPECT_EQ(searchString(), u"D:\\*.MP3"_qs);
    ASSERT_EQ(chmod(world.directory.at("program").constData(), 0755), 0);
    search->Drive1->setCurrentIndex(search->Drive1->findText(u"P:"_qs));
    EXPECT_EQ(searchString(), u"P:\\*.MP3"_qs) << "it can be chosen again";
}

TEST_F(ScanWindows, aLastDriveThatIsNotReadyIsPassedOverInSilence)
{
    world.shared.InitDrive = u"P:\\*.MP3"_qs;
    std::rename(world.directory.at("program").constData(), world.directory.at("gone").constData());
    openSearch();
    QCoreApplication::processEvents();
    EXPECT_TRUE(world.dialogs.errors.empty());
    EXPECT_EQ(searchString(), u"C:\\*.MP3"_qs);
    EXPECT_EQ(search->Dir1->path(), u"C:\\"_qs);
}

TEST_F(ScanWindows, enterInTheDirectoryListOpensTheDirectoryAndStartsNoScan)
{
    world.directory.makeDirectory("disk/Music");
    openSearch();
    search->Dir1->setFocus();
    search->Dir1->setCurrentRow(1);
    QTest::keyClick(search->Dir1, Qt::Key_Return);
    EXPECT_EQ(search->Dir1->path(), u"D:\\Music"_qs);
    EXPECT_EQ(resultsShown, 0);
}

TEST_F(ScanWindows, paddedValuesAndControlCharactersAreShownPlainly)
{
    write("a.mp3", QByteArray(300, '.') + "TAG" + QByteArray("Title\nx").leftJustified(125, ' '));
    openResult();
    const QModelIndex song = result->MSFlexGrid1->model()->index(0, 3);
    EXPECT_EQ(song.data().toString(), u"Title x"_qs);
    EXPECT_EQ(result->MSFlexGrid1->textAt(0, 3).size(), 30);
}

TEST_F(ScanWindows, aTypeBecomesTheExtension)
{
    openSearch();
    QTest::keyClicks(search->Combo1, u"WMA"_qs);
    EXPECT_EQ(search->CustomExt->text(), u"WMA"_qs);
    EXPECT_EQ(searchString(), u"D:\\*.WMA"_qs);
    EXPECT_FALSE(search->CustomExt->isVisible());
}

TEST_F(ScanWindows, customBeginsWithMp3AndTakesTheFocus)
{
    openSearch();
    search->activateWindow();
    search->Combo1->setCurrentText(u"WAV"_qs);
    Q_EMIT search->Combo1->activated(2);
    search->Combo1->setCurrentText(u"Custom"_qs);
    Q_EMIT search->Combo1->activated(9);
    EXPECT_EQ(search->CustomExt->text(), u"MP3"_qs);
    EXPECT_TRUE(search->CustomExt->isVisible());
    EXPECT_TRUE(search->Label13->isVisible());
    EXPECT_EQ(search->focusWidget(), search->CustomExt);
    QTest::keyClicks(search->CustomExt, u"OGG"_qs);
    EXPECT_EQ(searchString(), u"D:\\*.OGG"_qs);
    search->Combo1->setCurrentText(u"MP2"_qs);
    Q_EMIT search->Combo1->activated(1);
    EXPECT_FALSE(search->CustomExt->isVisible());
    EXPECT_EQ(searchString(), u"D:\\*.MP2"_qs);
}

TEST_F(ScanWindows, closingRemembersTheSearchString)
{
    openSearch();
    search->txtSearchString->setText(u"D:\\by hand\\*.MP3"_qs);
    click(*search, "cmdCancel");
    EXPECT_EQ(world.shared.InitDrive, u"D:\\by hand\\*.MP3"_qs);
    EXPECT_TRUE(search->isGone());
}

TEST_F(ScanWindows, scanShowsTheResultAndStaysOpen)
{
    openSearch();
    click(*search, "cmdScan");
    EXPECT_EQ(resultsShown, 1);
    EXPECT_TRUE(search->isVisible());
}

TEST_F(ScanWindows, controlsKeepTheirDistanceFromBottomAndRight)
{
    openSearch();
    for (const QSize size : {QSize(700, 600), QSize(900, 500)}) {
        search->resize(size);
        QCoreApplication::processEvents();
        const QSize inner = search->innerSize();
        EXPECT_EQ(search->Dir1->height(), inner.height() - 4300 / 15);
        EXPECT_EQ(search->txtSearchString->y(), inner.height() - 2040 / 15);
        EXPECT_EQ(search->cmdScan->x(), inner.width() - 1875 / 15);
    }
    search->resize(50, 50); // too small for the rules
    EXPECT_TRUE(world.dialogs.errors.empty());
}

TEST_F(ScanWindows, theResultIsTheWholeTree)
{
    write("A - B.mp3");
    write("x/C - D.mp3");
    openResult();
    EXPECT_EQ(result->windowTitle(), u"Result"_qs);
    EXPECT_EQ(result->MSFlexGrid1->Rows(), 2);
    EXPECT_EQ(result->MSFlexGrid1->model()->rowCount(), 2);
    EXPECT_EQ(result->MSFlexGrid1->textAt(1, 2), u"C "_qs);
    EXPECT_EQ(result->lstfiles->model()->rowCount(), 2);
    EXPECT_EQ(result->Label1->caption(), u"2 Items was found in this search."_qs);
    EXPECT_EQ(result->Label1->text(), result->Label1->caption());
    EXPECT_EQ(result->Label5->text(), u"Time taken: 43.2 seconds"_qs);
    EXPECT_TRUE(world.program.wasBusy);
    EXPECT_FALSE(world.program.busyPointer);
}

TEST_F(ScanWindows, aSingleDirectoryLeavesListAndLabelAlone)
{
    write("A - B.mp3");
    write("x/C - D.mp3");
    openResult(false);
    EXPECT_EQ(result->MSFlexGrid1->Rows(), 1);
    EXPECT_EQ(result->MSFlexGrid1->textAt(0, 1), u"D:\\\\A - B.mp3"_qs);
    EXPECT_EQ(result->lstfiles->model()->rowCount(), 0);
    EXPECT_EQ(result->Label1->caption(), QString());
    EXPECT_TRUE(result->isVisible());
}

TEST_F(ScanWindows, inASingleDirectoryAnUnreadableFileStopsTheProgram)
{
    write("a.mp3");
    world.directory.makeDirectory("disk/gone");
    openSearch();
    search->Dir1->setPath(u"D:\\gone"_qs);
    // The listing still has the name; its directory is another by the time the file is opened.
    search->txtSearchString->setText(u"D:\\*.MP3"_qs);
    openResult(false);
    EXPECT_EQ(world.dialogs.errors, std::vector<int>{numberOf(ErrorNumber::FileNotFound)});
    EXPECT_EQ(world.program.status, 1);
}

TEST_F(ScanWindows, headingsStandOverTheColumns)
{
    openResult();
    const char* names[] = {"Label1x", "Label2", "Label3", "Label4", "Label6", "Label7", "Label8"};
    QStringList captions;
    for (const char* name : names)
        captions += find<QLabel>(*result, name)->text();
    EXPECT_EQ(captions.join(u' '), u"DiskName Path Artist Song Album Year Comment"_qs);
    EXPECT_EQ(result->MSFlexGrid1->toolTip(), u"Double Click to edit cell"_qs);
    EXPECT_EQ(result->Command1->text(), u"Command1"_qs);
    EXPECT_EQ(result->cmdCancel->text(), u"Cancel"_qs);
}

TEST_F(ScanWindows, command1ScansAgainIntoTheGridAsItStands)
{
    write("A - B.mp3");
    openResult();
    click(*result, "Command1");
    EXPECT_EQ(result->MSFlexGrid1->Rows(), 2);
    EXPECT_EQ(result->lstfiles->model()->rowCount(), 1);
}

TEST_F(ScanWindows, aCellIsCorrected)
{
    write("A - B.mp3");
    openResult();
    editCell(0, 2);
    ASSERT_TRUE(editor);
    EXPECT_EQ(editor->txtEditCell->text(), u"A "_qs);
    editor->txtEditCell->setText(u"Corrected"_qs);
    click(*editor, "CmdEdit");
    EXPECT_EQ(result->MSFlexGrid1->textAt(0, 2), u"Corrected"_qs);
    EXPECT_TRUE(editor->isGone());
}

TEST_F(ScanWindows, theCellEditorTellsOfAnApostropheWhileItIsTypedAndPutsAnother)
{
    write("A - B.mp3");
    openResult();
    editCell(0, 2);
    auto* label = find<QLabel>(*editor, "lblApostrophe");
    EXPECT_EQ(label->text(), u"An apostrophe stops the update at this row."_qs);
    EXPECT_FALSE(label->isVisible());
    const QSize before = editor->size();
    QTest::keyClicks(editor->txtEditCell, u"it's 'o"_qs);
    EXPECT_TRUE(label->isVisible());
    EXPECT_EQ(editor->size(), before);
    click(*editor, "cmdApostrophe");
    EXPECT_EQ(editor->txtEditCell->text(), u"it\u2019s \u2019o"_qs);
    EXPECT_EQ(editor->txtEditCell->cursorPosition(), 7);
    EXPECT_FALSE(label->isVisible());
    EXPECT_FALSE(editor->cmdApostrophe->isVisible());
    click(*editor, "CmdEdit");
    EXPECT_EQ(result->MSFlexGrid1->textAt(0, 2), u"it\u2019s \u2019o"_qs);
}

TEST_F(ScanWindows, aCorrectionKeepsTheColumnsWidths)
{
    write("A - B.mp3");
    openResult();
    const int before = result->MSFlexGrid1->columnWidth(2);
    editCell(0, 2);
    editor->txtEditCell->setText(QString(60, u'W'));
    click(*editor, "CmdEdit");
    EXPECT_EQ(result->MSFlexGrid1->columnWidth(2), before);
}

TEST_F(ScanWindows, anEmptyGridSaysWhyUntilRowsCome)
{
    openResult();
    auto* reason = find<QLabel>(*result, "lblEmpty");
    EXPECT_TRUE(reason->isVisible());
    EXPECT_EQ(reason->text(), u"There is no file in D:\\."_qs);
    write("A - B.mp3");
    click(*result, "Command1");
    EXPECT_EQ(result->MSFlexGrid1->Rows(), 1);
    EXPECT_FALSE(reason->isVisible());
}

TEST_F(ScanWindows, aDisksNameWithAnApostropheIsToldAndItsRowsAreStored)
{
    world.makeArchive();
    world.directory.write("home/.config/Songbin/drives.conf",
                          "[Drives]\nE=" + world.directory.at("disk") + ",DJ's MIX\n");
    write("A - B.mp3");
    world.shared.InitDrive = u"E:"_qs;
    openResult();
    EXPECT_TRUE(find<QLabel>(*result, "lblNote")->isVisible());
    click(*result, "cmdUpdate");
    EXPECT_EQ(world.archiveRows(), QStringList({u"DJ-s MIX|E:\\A - B.mp3|A |B.mp3| | | "_qs}));
}

TEST_F(ScanWindows, betweenFilesAClickOnCancelIsObeyedAndNothingElseRuns)
{
    for (int i = 0; i < 200; ++i)
        write("d/" + QByteArray::number(i) + ".mp3");
    openSearch();
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] { ++ticks; });
    timer.start(0);
    int ticksAtYield = -1;
    world.program.onYield = [&] {
        QCoreApplication::processEvents();
        ticksAtYield = ticks;
        if (world.program.yields != 2)
            return;
        const QPointF other = search->cmdScan->mapTo(search, QPoint(5, 5));
        const QPointF cancel = result->cmdCancel->mapTo(result, QPoint(5, 5));
        const auto post = [](QWidget& window, QEvent::Type type, QPointF place) {
            const auto held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
            const auto send = [&window, type, place, held] {
                QMouseEvent event(type, place, window.mapToGlobal(place), Qt::LeftButton, held,
                                  Qt::NoModifier);
                QCoreApplication::sendEvent(window.windowHandle(), &event);
            };
            QMetaObject::invokeMethod(QCoreApplication::instance(), send, Qt::QueuedConnection);
        };
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
            post(*search, type, other);
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
            post(*result, type, cancel);
    };
    openResult();
    EXPECT_EQ(world.program.yields, 2);
    EXPECT_TRUE(result->isGone());
    EXPECT_EQ(result->MSFlexGrid1->Rows(), 0) << "at the next file";
    EXPECT_EQ(ticks, ticksAtYield) << "no timer has run";
    EXPECT_EQ(resultsShown, 0) << "no other button has";
    QCoreApplication::processEvents();
    EXPECT_EQ(resultsShown, 1) << "it has its turn afterwards";
}

TEST_F(ScanWindows, inASingleDirectoryEscapeEndsTheScanAndClosesNothingElse)
{
    for (int i = 0; i < 200; ++i)
        write(QByteArray::number(i) + ".mp3");
    openSearch();
    const auto escape = [this] {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(search->windowHandle(), &event);
    };
    QMetaObject::invokeMethod(QCoreApplication::instance(), escape, Qt::QueuedConnection);
    openResult(false);
    QCoreApplication::processEvents();
    EXPECT_TRUE(!result || result->isGone());
    EXPECT_FALSE(search->isGone());
    EXPECT_TRUE(search->isVisible());
}

TEST_F(ScanWindows, cancelLeavesTheCell)
{
    write("A - B.mp3");
    openResult();
    editCell(0, 2);
    editor->txtEditCell->setText(u"Corrected"_qs);
    click(*editor, "cmdAvbryt");
    EXPECT_EQ(result->MSFlexGrid1->textAt(0, 2), u"A "_qs);
}

TEST_F(ScanWindows, theCorrectionGoesIntoTheCellThatWasLoaded)
{
    write("1.mp3");
    write("2.mp3");
    openResult();
    editCell(0, 2);
    result->MSFlexGrid1->setRow(1);
    editor->txtEditCell->setText(u"first"_qs);
    click(*editor, "CmdEdit");
    EXPECT_EQ(result->MSFlexGrid1->textAt(0, 2), u"first"_qs);
    EXPECT_EQ(result->MSFlexGrid1->textAt(1, 2), u"2.mp3"_qs);
}

TEST_F(ScanWindows, closingTheResultClosesTheCellEditor)
{
    write("1.mp3");
    openResult();
    editCell(0, 2);
    result->close();
    EXPECT_TRUE(editor->isGone());
}

TEST_F(ScanWindows, updateStoresTheRowsAndCloses)
{
    world.makeArchive();
    write("A - B.mp3");
    openResult();
    click(*result, "cmdUpdate");
    EXPECT_EQ(world.archiveRows(), QStringList({u"ROCK_01|D:\\A - B.mp3|A |B.mp3| | | "_qs}));
    EXPECT_TRUE(result->isGone());
    EXPECT_FALSE(world.program.busyPointer);
}

TEST_F(ScanWindows, aFailedUpdateClosesToo)
{
    write("A - B.mp3");
    openResult();
    click(*result, "cmdUpdate");
    EXPECT_EQ(world.dialogs.said(0), u"error|error "_qs);
    EXPECT_TRUE(result->isGone());
}

TEST_F(ScanWindows, cancelStoresNothing)
{
    world.makeArchive();
    write("A - B.mp3");
    openResult();
    click(*result, "cmdCancel");
    EXPECT_TRUE(world.archiveRows().isEmpty());
    EXPECT_TRUE(result->isGone());
}

TEST_F(ScanWindows, printTakesTheGridsTextWithTabs)
{
    write("A - B.mp3");
    openResult();
    click(*result, "cmd_Print");
    EXPECT_EQ(world.printer.printed, QStringList({u"ROCK_01\tD:\\A - B.mp3\tA \tB.mp3\t\t\t\n"_qs}));
    EXPECT_EQ(world.printer.ended, 0);
}

TEST_F(ScanWindows, thePreviewShowsTheGridAndGoesWithTheWindow)
{
    write("A - B.mp3");
    openResult();
    const auto preview = [] {
        const auto windows = QApplication::topLevelWidgets();
        const auto found = std::ranges::find_if(windows, [](const QWidget* window) {
            return window->objectName() == u"frmResultPreview" && window->isVisible();
        });
        return qobject_cast<PreviewForm*>(found == windows.end() ? nullptr : *found);
    };
    click(*result, "cmdPreview");
    ASSERT_NE(preview(), nullptr);
    QStringList texts;
    for (const PageItem& item : preview()->pageView->items(1))
        texts += item.text.trimmed();
    for (const QString& text : {u"Result"_qs, u"DiskName"_qs, u"ROCK_01"_qs, u"B.mp3"_qs})
        EXPECT_TRUE(texts.contains(text)) << text.toStdString();
    EXPECT_TRUE(preview()->lblStatus->text().endsWith(u"1 record"));
    EXPECT_TRUE(world.printer.printed.isEmpty());
    click(*result, "cmdCancel");
    EXPECT_EQ(preview(), nullptr);
}

TEST_F(ScanWindows, pagesThatWaitAreToldAndCanBePrintedNow)
{
    write("A - B.mp3");
    openResult();
    const auto* line = find<QLabel>(*result, "lblWaitingPages");
    EXPECT_FALSE(line->isVisible());
    click(*result, "cmd_Print");
    EXPECT_TRUE(line->isVisible());
    EXPECT_EQ(line->text(), u"The printed pages wait until Songbin ends."_qs);
    click(*result, "cmdCancel");
    openResult(); // they still wait
    EXPECT_TRUE(find<QLabel>(*result, "lblWaitingPages")->isVisible());
    click(*result, "cmdPrintNow");
    EXPECT_EQ(world.printer.ended, 1);
    EXPECT_FALSE(find<QLabel>(*result, "lblWaitingPages")->isVisible());
}

TEST_F(ScanWindows, closedInTheMiddleOfAScanItEnds)
{
    for (int i = 0; i < 20; ++i)
        write("d" + QByteArray::number(i) + "/a.mp3");
    world.program.onYield = [this] {
        if (world.program.yields == 5)
            result->close();
    };
    openResult();
    EXPECT_EQ(world.program.yields, 5);
    EXPECT_TRUE(result->isGone());
    EXPECT_FALSE(result->isVisible());
    EXPECT_FALSE(world.program.busyPointer);
}

TEST_F(ScanWindows, duringAScanUpdateAndASecondScanAreRefusedEditingIsNot)
{
    write("1.mp3");
    write("d/2.mp3");
    int looked = 0;
    world.program.onYield = [&] {
        ++looked;
        EXPECT_FALSE(result->cmdUpdate->isEnabled());
        EXPECT_FALSE(result->Command1->isEnabled());
        EXPECT_TRUE(result->cmdCancel->isEnabled());
        if (result->MSFlexGrid1->Rows() == 1)
            editCell(0, 2);
    };
    openResult();
    EXPECT_EQ(looked, 2);
    EXPECT_FALSE(editor.isNull());
    EXPECT_TRUE(result->cmdUpdate->isEnabled());
}

TEST_F(ScanWindows, duringAnImportEverythingIsRefusedOrPutOff)
{
    world.makeArchive();
    for (int i = 0; i < 5; ++i)
        write(QByteArray::number(i) + ".mp3");
    openResult();
    int looked = 0;
    world.program.onYield = [&] {
        ++looked;
        EXPECT_FALSE(result->cmdUpdate->isEnabled());
        EXPECT_FALSE(result->cmdCancel->isEnabled());
        EXPECT_FALSE(result->Command1->isEnabled());
        result->close();
        EXPECT_FALSE(result->isGone());
        result->MSFlexGrid1_DblClick();
        EXPECT_TRUE(editor.isNull());
    };
    click(*result, "cmdUpdate");
    EXPECT_EQ(looked, 5);
    EXPECT_EQ(world.archiveRows().size(), 5);
    EXPECT_TRUE(result->isGone());
}

TEST_F(ScanWindows, aScanGoesOnWhenTheSearchWindowIsClosed)
{
    write("a/1.mp3");
    write("b/2.mp3");
    openSearch();
    world.program.onYield = [this] {
        if (world.program.yields != 1)
            return;
        delete search;
        openSearch(); // as the default instance does
    };
    openResult();
    EXPECT_EQ(result->MSFlexGrid1->Rows(), 2);
}

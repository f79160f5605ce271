#include "archive/browse/utvalg.h"

#include "archive/browse/searchform.h"
#include "database/cursor/rowwriter.h"
#include "tests/support/find.h"
#include "tests/support/hung.h"
#include "tests/support/world.h"
#include "toolkit/grids/datagrid.h"
#include "toolkit/pages/pageview.h"
#include "toolkit/pages/reportlayout.h"
#include "toolkit/widgets/choicebox.h"
#include "toolkit/widgets/picturebutton.h"
#include "toolkit/widgets/recordbar.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

struct UtvalgTest : testing::Test {
    World world;
    QPointer<SearchForm> search;
    QPointer<Utvalg> grid;
    int played = 0;

    UtvalgTest() { world.makeArchive(); }
    ~UtvalgTest() override
    {
        delete grid;
        delete search;
    }

    void add(const QString& artist, const QString& song, const QString& path = u"D:\\%1.mp3"_qs)
    {
        world.execute(u"INSERT INTO MP3 VALUES ('ROCK_01', '%1', '%2', '%3', 'Album', '1999', ' ')"_qs.arg(
            path.contains(u"%1") ? path.arg(song) : path, artist, song));
    }
    // Adds a row with nulls for all the rest, as a tool of somebody else's may.
    void addWithNulls(const QString& path, const QString& song)
    {
        world.execute(
            u"INSERT INTO MP3 VALUES (NULL, '%1', NULL, '%2', NULL, NULL, NULL)"_qs.arg(path, song));
    }
    void addNumbered(int rows)
    {
        world.execute(
            u"WITH RECURSIVE n(i) AS (VALUES(1) UNION ALL SELECT i + 1 FROM n WHERE i < %1) INSERT INTO MP3 "
            "SELECT 'V', 'D:\\' || i || '.mp3', 'A', 'song ' || i, 'L', '2000', ' ' FROM n"_qs.arg(rows));
    }
    SearchForm& criteria()
    {
        if (!search) {
            search = new SearchForm(world.context, [] {});
            search->showForm();
        }
        return *search;
    }
    Utvalg* open()
    {
        delete grid;
        grid = new Utvalg(world.context, {.search = [this]() -> SearchCriteria& { return criteria(); },
                                          .closeSearch =
                                              [this] {
                                                  if (search)
                                                      search->unload();
                                              },
                                          .SpillMusikk = [this] { ++played; }});
        grid->showForm();
        return grid;
    }
    bool isShown() const { return grid && grid->isVisible() && !grid->isGone(); }
    QStringList songs()
    {
        QStringList found;
        for (int row = 0; row < grid->records().recordCount(); ++row)
            found += grid->records().valueAt(row, 2).value_or(u"null"_qs);
        return found;
    }
    QString status() const { return grid->picStatBox->lblStatus->text(); }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(grid->grdDataGrid, key, modifiers);
    }
};

} // namespace

TEST_F(UtvalgTest, showsWhatFitsAllCriteriaInNaturalOrder)
{
    add(u"Beat Boys"_qs, u"two"_qs);
    add(u"The BEAT"_qs, u"one"_qs);
    add(u"Others"_qs, u"beat"_qs);
    add(u"Beat Boys"_qs, u"three"_qs, u"D:\\three.wav"_qs);
    add(u"Beat Boys"_qs, u"four"_qs, u"D:\\a.mp3s"_qs);
    criteria().txtArtist->setText(u"beat"_qs);
    open();
    EXPECT_TRUE(isShown());
    EXPECT_EQ(songs().join(u' '), u"two one four");
    EXPECT_EQ(status(), u"Record: 1");
    EXPECT_EQ(grid->records().fieldNames().join(u' '),
              u"fldArtist fldPath fldSong fldVolum fldAlbum fldYear fldComment");
    EXPECT_EQ(grid->grdDataGrid->model()->rowCount(), 3);
    EXPECT_EQ(grid->grdDataGrid->currentIndex().row(), 0);
}

TEST_F(UtvalgTest, allBoxesEmptyWithAndFindsEveryRowThatHasAllValues)
{
    add(u"a"_qs, u"one"_qs);
    add(u"b"_qs, u"two"_qs, u"D:\\X.MP3"_qs);
    add(u"c"_qs, u"three"_qs, u"D:\\noextension"_qs);
    addWithNulls(u"D:\\z.mp3"_qs, u"null row"_qs);
    open();
    EXPECT_EQ(songs().join(u' '), u"one two");
}

TEST_F(UtvalgTest, orFindsARowByAnyCriterionAlsoOneWithoutSomeValues)
{
    add(u"beat"_qs, u"one"_qs);
    add(u"x"_qs, u"beat it"_qs);
    add(u"x"_qs, u"none"_qs);
    addWithNulls(u"D:\\z.mp3"_qs, u"a heartbeat"_qs);
    criteria().txtArtist->setText(u"BEAT"_qs);
    search->txtSong->setText(u"beat"_qs);
    search->Option1[2]->setChecked(true);
    int yieldedWithSigns = 0;
    world.program.onYield = [&] { yieldedWithSigns += search->txtAlbum->text() == u"¤" ? 1 : 0; };
    open();
    EXPECT_EQ(songs().join(u'|'), u"one|beat it|a heartbeat");
    EXPECT_EQ(yieldedWithSigns, 1);
    EXPECT_EQ(search->txtArtist->text(), u"BEAT");
    EXPECT_EQ(search->txtAlbum->text(), u"");
}

TEST_F(UtvalgTest, orWithAllBoxesEmptyFindsNothingAndLeavesThemEmpty)
{
    add(u"a"_qs, u"one"_qs);
    criteria().Option1[2]->setChecked(true);
    open();
    EXPECT_TRUE(isShown());
    EXPECT_TRUE(songs().isEmpty());
    EXPECT_EQ(status(), u"Record: 0");
    for (QLineEdit* box : {search->txtArtist, search->txtSong, search->txtAlbum, search->txtYear,
                           search->txtComment, search->txtVolum, search->txtPath})
        EXPECT_EQ(box->text(), u"");
}

TEST_F(UtvalgTest, aBoxWithTheSignAloneIsEmptiedAfterAnOr)
{
    add(u"a"_qs, u"one"_qs);
    criteria().Option1[2]->setChecked(true);
    search->txtSong->setText(u"¤"_qs);
    open();
    EXPECT_EQ(search->txtSong->text(), u"");
    search->txtSong->setText(u"¤"_qs);
    search->Option1[1]->setChecked(true);
    open();
    EXPECT_EQ(search->txtSong->text(), u"¤");
}

TEST_F(UtvalgTest, wildcardsOfTheUserWork)
{
    add(u"abc"_qs, u"one"_qs);
    add(u"aXc"_qs, u"two"_qs);
    add(u"ab"_qs, u"three"_qs);
    criteria().txtArtist->setText(u"a_c"_qs);
    open();
    EXPECT_EQ(songs().join(u' '), u"one two");
    search->txtArtist->setText(u"a%C"_qs);
    open();
    EXPECT_EQ(songs().join(u' '), u"one two");
}

TEST_F(UtvalgTest, caseIsIgnoredForEveryLetter)
{
    add(u"SJØEN"_qs, u"one"_qs);
    add(u"Ямайка"_qs, u"two"_qs);
    criteria().txtArtist->setText(u"sjøen"_qs);
    open();
    EXPECT_EQ(songs().join(u' '), u"one");
    search->txtArtist->setText(u"яМАЙ"_qs);
    open();
    EXPECT_EQ(songs().join(u' '), u"two");
}

TEST_F(UtvalgTest, anApostropheIsExplainedAndTheGridStaysClosed)
{
    add(u"obrien"_qs, u"one"_qs);
    criteria().txtArtist->setText(u"o'brien"_qs);
    open();
    EXPECT_FALSE(isShown());
    ASSERT_EQ(world.dialogs.messages.size(), 1U);
    EXPECT_TRUE(world.dialogs.messages[0].text.contains(u"apostrophe"));
    EXPECT_TRUE(world.dialogs.messages[0].text.contains(u"brien"));
    EXPECT_EQ(search->txtSong->text(), u"");
}

TEST_F(UtvalgTest, afterAFailedOrTheSignsStayInTheBoxes)
{
    criteria().txtArtist->setText(u"o'brien"_qs);
    search->Option1[2]->setChecked(true);
    open();
    EXPECT_FALSE(isShown());
    EXPECT_EQ(search->txtSong->text(), u"¤");
    EXPECT_EQ(search->txtArtist->text(), u"o'brien");
}

TEST_F(UtvalgTest, textBehindTheStatementIsRefusedAndNotRun)
{
    add(u"a"_qs, u"one"_qs);
    criteria().txtArtist->setText(u"'; DELETE FROM MP3; --"_qs);
    open();
    EXPECT_FALSE(isShown());
    EXPECT_EQ(world.dialogs.messages.size(), 1U);
    EXPECT_EQ(world.archiveRows().size(), 1);
}

TEST_F(UtvalgTest, aMissingOrDamagedArchiveIsExplained)
{
    std::remove(world.directory.at("program/Songbin.mdb").constData());
    open();
    EXPECT_FALSE(isShown());
    world.directory.write("program/Songbin.mdb", QByteArray(5000, 'x'));
    open();
    EXPECT_FALSE(isShown());
    ASSERT_EQ(world.dialogs.messages.size(), 2U);
    EXPECT_TRUE(world.dialogs.messages[0].text.contains(u"cannot be opened"));
    EXPECT_TRUE(world.dialogs.messages[1].text.contains(u"no archive"));
}

TEST_F(UtvalgTest, aSearchThatRunsAwayIsEndedByEscape)
{
    addNumbered(2000);
    for (const bool isOr : {false, true}) {
        criteria().txtComment->setText(
            u"x%' or (select count(*) from MP3 a, MP3 b, MP3 c, MP3 d where a.fldSong > d.fldSong) > 1 or "
            "fldSong like '%"_qs);
        find<QRadioButton>(criteria(), isOr ? "Option1(2)" : "Option1(1)")->setChecked(true);
        QElapsedTimer timer;
        timer.start();
        QString told;
        world.program.onYield = [&] {
            QCoreApplication::processEvents();
            QWidget* box = QApplication::activeModalWidget();
            if (!box || timer.elapsed() < 700)
                return;
            told = box->findChild<QLabel*>()->text();
            QTest::keyClick(box, Qt::Key_Escape);
        };
        open();
        EXPECT_LT(timer.elapsed(), kHung);
        EXPECT_TRUE(told.contains(u"Press Escape to stop")) << told.toStdString();
        EXPECT_FALSE(isShown());
        EXPECT_TRUE(world.dialogs.messages.empty());
        EXPECT_TRUE(criteria().isVisible());
        EXPECT_EQ(criteria().txtArtist->text(), QString());
        EXPECT_FALSE(world.program.busyPointer);
    }
    world.program.onYield = {};
    criteria().txtComment->clear();
    find<QRadioButton>(criteria(), "Option1(1)")->setChecked(true);
    open();
    EXPECT_EQ(songs().size(), 2000);
}

TEST_F(UtvalgTest, theEndOfTheProgramEndsASearchThatRunsAway)
{
    addNumbered(2000);
    criteria().txtComment->setText(
        u"x%' or (select count(*) from MP3 a, MP3 b, MP3 c, MP3 d where a.fldSong > d.fldSong) > 1 or fldSong like '%"_qs);
    world.program.onYield = [&] { world.program.end(0); };
    QElapsedTimer timer;
    timer.start();
    open();
    EXPECT_LT(timer.elapsed(), kHung);
    EXPECT_FALSE(isShown());
}

TEST_F(UtvalgTest, theNavigationButtonsWalkThroughTheRows)
{
    addNumbered(5);
    open();
    click(*grid, "cmdLast");
    EXPECT_EQ(status(), u"Record: 5");
    EXPECT_EQ(grid->grdDataGrid->currentIndex().row(), 4);
    click(*grid, "cmdNext");
    EXPECT_EQ(status(), u"Record: 5");
    EXPECT_EQ(world.program.beeps, 1);
    click(*grid, "cmdPrevious");
    EXPECT_EQ(status(), u"Record: 4");
    click(*grid, "cmdFirst");
    click(*grid, "cmdPrevious");
    EXPECT_EQ(status(), u"Record: 1");
    EXPECT_EQ(world.program.beeps, 2);
    click(*grid, "cmdNext");
    EXPECT_EQ(status(), u"Record: 2");
    EXPECT_EQ(grid->grdDataGrid->currentIndex().row(), 1);
}

TEST_F(UtvalgTest, eachKeyMovesExactlyOnce)
{
    addNumbered(50);
    open();
    key(Qt::Key_Down);
    EXPECT_EQ(status(), u"Record: 2");
    key(Qt::Key_PageDown);
    EXPECT_EQ(status(), u"Record: 3");
    key(Qt::Key_PageUp);
    EXPECT_EQ(status(), u"Record: 2");
    key(Qt::Key_End);
    EXPECT_EQ(status(), u"Record: 50");
    key(Qt::Key_Up);
    EXPECT_EQ(status(), u"Record: 49");
    key(Qt::Key_Home);
    EXPECT_EQ(status(), u"Record: 1");
    key(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(status(), u"Record: 50");
    key(Qt::Key_Up, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(status(), u"Record: 49");
    key(Qt::Key_PageUp, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(status(), u"Record: 48");
    key(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(status(), u"Record: 1");
    key(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(status(), u"Record: 50");
    key(Qt::Key_Down);
    EXPECT_EQ(world.program.beeps, 1);
    QTest::keyClick(find<QPushButton>(*grid, "cmdFilter"), Qt::Key_Up);
    EXPECT_EQ(status(), u"Record: 49");
}

TEST_F(UtvalgTest, aRowThatIsClickedBecomesTheCurrentOne)
{
    addNumbered(10);
    open();
    DataGrid& view = *grid->grdDataGrid;
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {},
                      view.visualRect(view.model()->index(6, 2)).center());
    EXPECT_EQ(status(), u"Record: 7");
    EXPECT_EQ(grid->records().value(u"fldSong"_qs), u"song 7");
}

TEST_F(UtvalgTest, deletingTakesTheRowFromTheArchiveAtOnce)
{
    addNumbered(3);
    open();
    click(*grid, "cmdDelete");
    EXPECT_EQ(songs().join(u'|'), u"song 2|song 3");
    EXPECT_EQ(status(), u"Record: 1");
    EXPECT_EQ(grid->grdDataGrid->currentIndex().row(), 0);
    click(*grid, "cmdLast");
    click(*grid, "cmdDelete");
    EXPECT_EQ(status(), u"Record: 1");
    EXPECT_EQ(songs().join(u'|'), u"song 2");
    click(*grid, "cmdDelete");
    EXPECT_TRUE(songs().isEmpty());
    EXPECT_EQ(grid->grdDataGrid->model()->rowCount(), 0);
    EXPECT_TRUE(world.archiveRows().isEmpty());
    EXPECT_TRUE(world.dialogs.messages.empty());
    EXPECT_TRUE(world.dialogs.errors.empty());
}

TEST_F(UtvalgTest, deletingInAnEmptyResultIsTheSystemsErrorAndTheProgramGoesOn)
{
    open();
    click(*grid, "cmdDelete");
    EXPECT_EQ(world.dialogs.errors, std::vector<int>{kNoCurrentRecord});
    click(*grid, "cmdNext");
    click(*grid, "cmdPrevious");
    EXPECT_EQ(world.program.beeps, 0);
    EXPECT_EQ(world.dialogs.errors.size(), 1U);
    EXPECT_TRUE(isShown());
}

TEST_F(UtvalgTest, aRowThatSomebodyElseChangedIsNotDeleted)
{
    addNumbered(2);
    open();
    world.execute(u"UPDATE MP3 SET fldSong = 'theirs' WHERE rowid = 1"_qs);
    click(*grid, "cmdDelete");
    EXPECT_EQ(world.dialogs.errors, std::vector<int>{kRowNotFound});
    EXPECT_EQ(world.archiveRows().size(), 2);
}

TEST_F(UtvalgTest, playHandsOverTheCurrentRowAndTheFileType)
{
    addNumbered(3);
    open();
    click(*grid, "cmdLast");
    search->CustomExt->setText(u"OGG"_qs);
    click(*grid, "Command2");
    EXPECT_EQ(played, 1);
    EXPECT_EQ(world.shared.PlayPath, u"D:\\3.mp3");
    EXPECT_EQ(world.shared.PlayDiskName, u"V");
    EXPECT_EQ(world.shared.PlayFileType, u"OGG");
    DataGrid& view = *grid->grdDataGrid;
    const QPoint second = view.visualRect(view.model()->index(1, 0)).center();
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, second);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, second);
    EXPECT_EQ(played, 2);
    EXPECT_EQ(world.shared.PlayPath, u"D:\\2.mp3");
    key(Qt::Key_Return);
    EXPECT_EQ(played, 3);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, {5, view.viewport()->height() - 5});
    EXPECT_EQ(played, 3);
}

TEST_F(UtvalgTest, playInAnEmptyResultFailsAndPlaysNothing)
{
    open();
    click(*grid, "Command2");
    EXPECT_EQ(world.dialogs.errors, std::vector<int>{kNoCurrentRecord});
    EXPECT_EQ(played, 0);
}

TEST_F(UtvalgTest, theFormThatWasClosedStillTellsTheFileType)
{
    addNumbered(1);
    criteria().txtSong->setText(u"song"_qs);
    open();
    delete search;
    click(*grid, "Command2");
    EXPECT_EQ(world.shared.PlayFileType, u"MP3");
    EXPECT_EQ(played, 1);
}

TEST_F(UtvalgTest, theListPrintsWhatIsInView)
{
    addNumbered(200);
    open();
    DataGrid& view = *grid->grdDataGrid;
    const int rows = view.VisibleRows();
    ASSERT_GT(rows, 5);
    ASSERT_LT(rows, 100);
    click(*grid, "Command1");
    EXPECT_EQ(world.printer.orientation(), Orientation::Landscape);
    ASSERT_EQ(world.printer.jobs.size(), 1);
    const QStringList printed = world.printer.jobs[0];
    ASSERT_EQ(printed.size(), rows);
    EXPECT_EQ(printed[0], u"A  D:\\1.mp3  song 1  V  L  2000     ");
    EXPECT_EQ(printed[rows - 1].section(u"  "_qs, 2, 2), u"song %1"_qs.arg(rows));
    EXPECT_TRUE(world.printer.printed.isEmpty());
    EXPECT_EQ(world.printer.ended, 0); // another window's pages go on waiting
    EXPECT_EQ(status(), u"Record: %1"_qs.arg(rows));

    click(*grid, "Command1"); // printing itself scrolls nothing
    EXPECT_EQ(world.printer.jobs.value(1), printed);

    view.verticalScrollBar()->setValue(100);
    const int first = view.FirstRow();
    EXPECT_EQ(first, 100);
    click(*grid, "Command1");
    EXPECT_EQ(world.printer.jobs.value(2).value(0).section(u"  "_qs, 2, 2), u"song 101");
}

TEST_F(UtvalgTest, columnsOutOfViewAreNotPrinted)
{
    addNumbered(1);
    open();
    DataGrid& view = *grid->grdDataGrid;
    view.setColumnWidth(0, 5000);
    click(*grid, "Command1");
    EXPECT_EQ(world.printer.jobs.value(0), QStringList(u"A  "_qs));
    view.setColumnWidth(0, 100);
    view.setColumnWidth(1, 5000);
    QCoreApplication::processEvents();
    view.horizontalScrollBar()->setValue(150);
    click(*grid, "Command1");
    EXPECT_EQ(world.printer.jobs.value(1), QStringList(u"D:\\1.mp3  "_qs));
}

TEST_F(UtvalgTest, aPrintedRowIsOneLineAndANullIsEmpty)
{
    addWithNulls(u"D:\\a.mp3"_qs, u"two\r\nlines"_qs);
    criteria().txtSong->setText(u"lines"_qs);
    search->Option1[2]->setChecked(true);
    open();
    click(*grid, "Command1");
    EXPECT_EQ(world.printer.jobs.value(0), QStringList(u"  D:\\a.mp3  two  lines          "_qs));
    world.printer.jobs.clear();
    search->txtSong->setText(u"nothing"_qs);
    open();
    click(*grid, "Command1");
    EXPECT_EQ(world.printer.jobs.value(0), QStringList());
}

TEST_F(UtvalgTest, filterClosesTheGridAloneAndCloseTheFormToo)
{
    addNumbered(1);
    criteria().txtSong->setText(u"song"_qs);
    open();
    click(*grid, "cmdFilter");
    EXPECT_FALSE(isShown());
    EXPECT_TRUE(search->isVisible());
    EXPECT_EQ(search->txtSong->text(), u"song");
    open();
    click(*grid, "cmdClose");
    EXPECT_FALSE(isShown());
    EXPECT_FALSE(search->isVisible());
}

TEST_F(UtvalgTest, escapeClosesBoth)
{
    open();
    key(Qt::Key_Escape, Qt::ShiftModifier);
    EXPECT_FALSE(isShown());
    EXPECT_FALSE(search->isVisible());
    EXPECT_FALSE(world.program.busyPointer);
}

TEST_F(UtvalgTest, controlsStandAsTheWindowIsWide)
{
    open();
    grid->resize(1000, 500);
    QCoreApplication::processEvents();
    RecordBar& bar = *grid->picStatBox;
    EXPECT_EQ(grid->grdDataGrid->height(), 500 - 2 - grid->picButtons->height() - bar.height());
    EXPECT_EQ(bar.lblStatus->width(), 900);
    EXPECT_EQ(bar.cmdNext->x(), 900 + 46);
    EXPECT_EQ(bar.cmdLast->x(), 900 + 46 + 22);
    EXPECT_EQ(find<QPushButton>(*grid, "Command2")->text(), u"Play Song");
    EXPECT_EQ(find<QPushButton>(*grid, "Command1")->text(), u"Print List");
    EXPECT_EQ(find<QPushButton>(*grid, "cmdFilter")->text(), u"Filter");
    EXPECT_EQ(find<QPushButton>(*grid, "cmdClose")->text(), u"&Close");
    EXPECT_EQ(find<QPushButton>(*grid, "cmdDelete")->text(), u"&Delete");
    for (const char* name : {"cmdFirst", "cmdPrevious", "cmdNext", "cmdLast"})
        EXPECT_FALSE(find<PictureButton>(*grid, name)->accessibleName().isEmpty());
    EXPECT_TRUE(find<QWidget>(*grid, "grdDataGrid"));
    EXPECT_TRUE(find<QLabel>(*grid, "lblStatus"));
}

TEST_F(UtvalgTest, theTotalStandsBesideThePositionAndAnEmptyResultSaysSo)
{
    const auto text = [&](const char* name) { return find<QLabel>(*grid, name)->text(); };
    addNumbered(12'345);
    open();
    EXPECT_EQ(status(), u"Record: 1");
    EXPECT_EQ(text("lblTotal"), QLocale().toString(12'345) + u" records"_qs);
    EXPECT_EQ(text("lblFound"), QString());
    click(*grid, "cmdDelete");
    EXPECT_EQ(text("lblTotal"), QLocale().toString(12'344) + u" records"_qs);
    criteria().txtArtist->setText(u"nobody"_qs);
    open();
    EXPECT_EQ(status(), u"Record: 0");
    EXPECT_EQ(text("lblTotal"), u"0 records");
    EXPECT_EQ(text("lblFound"), u"Nothing found");
    for (const char* step : {"cmdNext", "cmdPrevious", "cmdFirst", "cmdLast"})
        click(*grid, step);
    EXPECT_EQ(text("lblFound"), u"Nothing found");
    criteria().txtArtist->clear();
    criteria().txtSong->setText(u"song 77"_qs);
    criteria().txtPath->setText(u"\\77.mp3"_qs);
    open();
    EXPECT_EQ(text("lblTotal"), u"1 record");
    click(*grid, "cmdDelete");
    EXPECT_EQ(text("lblTotal"), u"0 records");
    EXPECT_EQ(text("lblFound"), QString());
}

TEST_F(UtvalgTest, valuesOfAHundredThousandCharactersAreShownAndPrintedWhole)
{
    const QString large(100'000, u'å');
    add(u"a"_qs, large, u"D:\\a.mp3"_qs);
    criteria().txtSong->setText(u"ÅÅÅ"_qs);
    open();
    ASSERT_EQ(songs().size(), 1);
    EXPECT_TRUE(songs()[0] == large);
    click(*grid, "Command1");
    EXPECT_TRUE(world.printer.jobs.value(0).value(0).contains(large));
}

TEST_F(UtvalgTest, thePreviewShowsAllRowsUnderTheirHeadingsAndGoesWithTheWindow)
{
    addNumbered(300);
    open();
    const auto preview = [] {
        const auto windows = QApplication::topLevelWidgets();
        const auto found = std::ranges::find_if(windows, [](const QWidget* window) {
            return window->objectName() == u"UtvalgPreview" && window->isVisible();
        });
        return qobject_cast<PreviewForm*>(found == windows.end() ? nullptr : *found);
    };
    EXPECT_EQ(preview(), nullptr);
    click(*grid, "cmdPreview");
    ASSERT_NE(preview(), nullptr);
    EXPECT_TRUE(preview()->lblStatus->text().endsWith(u"300 records"));
    QStringList texts;
    for (const PageItem& item : preview()->pageView->items(preview()->pageView->layout()->pages()))
        texts += item.text;
    EXPECT_TRUE(texts.contains(u"Disk Name"_qs));
    EXPECT_TRUE(texts.contains(u"song 300"_qs));
    EXPECT_GT(preview()->pageView->layout()->paper().size.width(),
              preview()->pageView->layout()->paper().size.height());
    EXPECT_TRUE(world.printer.jobs.isEmpty());
    EXPECT_EQ(world.printer.orientation(), Orientation::Portrait);
    grid->cmdFilter_Click();
    EXPECT_EQ(preview(), nullptr);
}

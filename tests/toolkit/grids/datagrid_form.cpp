#include "toolkit/grids/datagrid.h"

#include "database/connection/connection.h"
#include "database/cursor/recordset.h"
#include "tests/support/testarchive.h"
#include "toolkit/widgets/menustyle.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace {

struct DataGridTest : testing::Test {
    TestArchive archive;
    Connection connection{archive.drives()};
    Recordset records;
    DataGrid grid;

    DataGridTest()
    {
        archive.run(
            "WITH RECURSIVE n(i) AS (VALUES(1) UNION ALL SELECT i + 1 FROM n WHERE i < 100)"
            " INSERT INTO MP3 (fldSong, fldArtist, fldAlbum) SELECT 'song ' || i, 'artist', NULL FROM n");
        connection.open(TestArchive::connectionText());
        records.open(u"select fldSong, fldArtist, fldAlbum from MP3"_qs, connection);
        grid.resize(600, 300);
        grid.show();
    }

    void attach() { grid.setDataSource(&records, {u"Song"_qs, u"Artist"_qs}); }
    QString shown(int row, int column) const { return grid.model()->index(row, column).data().toString(); }
    QPoint placeOf(int row) const { return grid.visualRect(grid.model()->index(row, 0)).center(); }
};

} // namespace

TEST_F(DataGridTest, showsTheRowsUnderTheirHeadings)
{
    attach();
    EXPECT_EQ(grid.model()->rowCount(), 100);
    EXPECT_EQ(shown(0, 0), u"song 1");
    EXPECT_EQ(shown(99, 0), u"song 100");
    EXPECT_EQ(shown(0, 2), u"");
    QStringList headings;
    for (int column = 0; column < 3; ++column)
        headings += grid.model()->headerData(column, Qt::Horizontal).toString();
    EXPECT_EQ(headings.join(u' '), u"Song Artist fldAlbum");
    EXPECT_EQ(grid.currentIndex().row(), 0);
}

TEST_F(DataGridTest, followsTheRecordsetAndTellsOnlyWhatTheUserChooses)
{
    attach();
    QSignalSpy chosen(&grid, &DataGrid::rowChosen);
    records.moveLast();
    EXPECT_EQ(grid.currentIndex().row(), 99);
    EXPECT_TRUE(grid.viewport()->rect().contains(placeOf(99)));
    records.moveNext();
    EXPECT_FALSE(grid.currentIndex().isValid());
    records.moveFirst();
    records.deleteRecord();
    records.moveNext();
    records.addNew();
    records.setValue(u"fldSong"_qs, u"new"_qs);
    records.update();
    EXPECT_EQ(shown(99, 0), u"new");
    records.setValue(u"fldSong"_qs, u"newer"_qs);
    records.update();
    EXPECT_EQ(shown(99, 0), u"newer");
    records.requery();
    EXPECT_EQ(chosen.count(), 0);
    EXPECT_EQ(grid.model()->rowCount(), 100);
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, placeOf(3));
    ASSERT_EQ(chosen.count(), 1);
    EXPECT_EQ(chosen[0][0].toInt(), 3);
}

TEST_F(DataGridTest, tellsWhatIsInView)
{
    attach();
    EXPECT_EQ(grid.FirstRow(), 0);
    const int rowHeight = grid.verticalHeader()->defaultSectionSize();
    EXPECT_EQ(grid.VisibleRows(), (grid.viewport()->height() + rowHeight - 1) / rowHeight);
    grid.verticalScrollBar()->setValue(grid.verticalScrollBar()->maximum());
    EXPECT_EQ(grid.FirstRow() + grid.VisibleRows(), 100);
    EXPECT_EQ(grid.FirstCol(), 0);
    EXPECT_EQ(grid.VisibleCols(), 3);
    grid.setColumnWidth(0, 2000);
    EXPECT_EQ(grid.VisibleCols(), 1);
    records.open(u"select fldSong from MP3 where fldSong = 'none'"_qs, connection);
    EXPECT_EQ(grid.VisibleRows(), 0);
    records.open(u"select fldSong from MP3 where fldSong like 'song 1_'"_qs, connection);
    EXPECT_EQ(grid.VisibleRows(), 10);
    EXPECT_EQ(grid.VisibleCols(), 1);
}

TEST_F(DataGridTest, walkingThroughTheRowsNeverScrollsSideways)
{
    attach();
    for (int column = 0; column < 3; ++column)
        grid.setColumnWidth(column, 500);
    QCoreApplication::processEvents();
    grid.horizontalScrollBar()->setValue(900);
    records.moveNext();
    records.moveLast();
    EXPECT_EQ(grid.horizontalScrollBar()->value(), 900);
}

TEST_F(DataGridTest, aRowIsActivatedByDoubleClickAndByEnter)
{
    attach();
    QSignalSpy activated(&grid, &DataGrid::rowActivated);
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, placeOf(2));
    QTest::mouseDClick(grid.viewport(), Qt::RightButton, {}, placeOf(2));
    QTest::keyClick(&grid, Qt::Key_Return);
    QTest::keyClick(&grid, Qt::Key_Enter);
    EXPECT_EQ(activated.count(), 3);
}

TEST_F(DataGridTest, aGridWithoutRecordsetIsEmpty)
{
    attach();
    grid.setDataSource(nullptr);
    EXPECT_EQ(grid.model()->rowCount(), 0);
    EXPECT_EQ(grid.VisibleRows(), 0);
    EXPECT_EQ(grid.VisibleCols(), 0);
    records.moveNext();
}

TEST_F(DataGridTest, hostileTextsAreShownOnOneLineAndNoLongerThanAColumn)
{
    archive.run("UPDATE MP3 SET fldSong = 'a' || char(10) || 'b' || char(8232) || char(0) || 'c   '");
    records.requery();
    attach();
    EXPECT_EQ(shown(0, 0).left(3), u"a b");
    EXPECT_EQ(grid.lineText(0, 0).left(4), u"a b ");
    EXPECT_FALSE(grid.lineText(0, 0).contains(QChar::LineSeparator));
    archive.run("UPDATE MP3 SET fldSong = printf('%.1000000c', 'x')");
    records.requery();
    EXPECT_EQ(shown(0, 0).size(), 1000);
    EXPECT_EQ(grid.textAt(0, 0).size(), 1'000'000);
    grid.grab();
}

TEST_F(DataGridTest, theCurrentRowShowsThatTheGridHasTheKeyboard)
{
    MenuStyle style;
    attach();
    grid.setStyle(&style);
    grid.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&grid));
    const QRect row(0, grid.rowViewportPosition(0), grid.viewport()->width(), grid.rowHeight(0));
    grid.setFocus();
    const QImage with = grid.viewport()->grab(row).toImage();
    grid.clearFocus();
    const QImage without = grid.viewport()->grab(row).toImage();
    const QRgb ground = grid.palette().color(QPalette::Highlight).rgb();
    const int middle = with.width() / 2; // of a column without text
    EXPECT_NE(with.pixel(middle, 1), ground);
    EXPECT_EQ(without.pixel(middle, 1), ground);
    EXPECT_EQ(with.pixel(middle, with.height() / 2), ground);
    grid.setStyle(nullptr);
}

#include "toolkit/grids/flexgrid.h"

#include "toolkit/grids/headinglabels.h"
#include "toolkit/widgets/progresslabel.h"

#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

namespace {

struct FlexGridTest : testing::Test {
    FlexGrid grid{3};
    int activated = 0;

    FlexGridTest()
    {
        grid.resize(600, 300);
        QObject::connect(&grid, &FlexGrid::cellActivated, &grid, [this] { ++activated; });
        for (int i = 0; i < 5; ++i)
            grid.addItem({QString::number(i), QStringLiteral("name %1").arg(i), QStringLiteral("x")});
        grid.show();
        grid.showGrowth();
    }
    QPoint centre(int row, int col) const { return grid.visualRect(grid.model()->index(row, col)).center(); }
    void doubleClick(int row, int col)
    {
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, centre(row, col));
        QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, centre(row, col));
    }
};

} // namespace

TEST_F(FlexGridTest, countsRowsBeforeTheyAreShown)
{
    grid.addItem({u"new"_qs});
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_EQ(grid.model()->rowCount(), 5);
    grid.showGrowth();
    EXPECT_EQ(grid.model()->rowCount(), 6);
}

TEST_F(FlexGridTest, hasNoFixedRowsOrColumns)
{
    EXPECT_TRUE(grid.verticalHeader()->isHidden());
    EXPECT_EQ(FlexGrid(7).Rows(), 0);
    EXPECT_EQ(FlexGrid(7).Cols(), 7);
}

TEST_F(FlexGridTest, readsAndWritesTheCurrentCell)
{
    grid.setRow(2);
    grid.setCol(1);
    EXPECT_EQ(grid.Text(), u"name 2"_qs);
    grid.setText(u"changed"_qs);
    EXPECT_EQ(grid.textAt(2, 1), u"changed"_qs);
    EXPECT_EQ(grid.currentIndex().row(), 2);
}

TEST_F(FlexGridTest, aClickMovesTheCurrentCellAndADoubleClickActivatesIt)
{
    doubleClick(3, 2);
    EXPECT_EQ(grid.Row(), 3);
    EXPECT_EQ(grid.Col(), 2);
    EXPECT_EQ(activated, 1);
}

TEST_F(FlexGridTest, enterAndF2ActivateTheCurrentCell)
{
    grid.setRow(1);
    grid.setCol(0);
    QTest::keyClick(&grid, Qt::Key_Return);
    QTest::keyClick(&grid, Qt::Key_F2);
    EXPECT_EQ(activated, 2);
}

TEST_F(FlexGridTest, aDoubleClickBesideTheCellsActivatesNothing)
{
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, QPoint(590, 290));
    EXPECT_EQ(activated, 0);
}

TEST_F(FlexGridTest, whileRedrawIsOffTheUserCannotMoveTheCurrentCell)
{
    grid.setRow(1);
    grid.setCol(1);
    grid.setRedraw(false);
    grid.setRow(4);
    doubleClick(2, 0);
    QTest::keyClick(&grid, Qt::Key_Up);
    EXPECT_EQ(grid.Row(), 4);
    EXPECT_EQ(activated, 0);
    grid.setRedraw(true);
    EXPECT_EQ(grid.currentIndex().row(), 4);
}

TEST_F(FlexGridTest, columnsFollowTheirContentUntilTheUserSizesThem)
{
    const int before = grid.columnWidth(1);
    grid.addItem({QString(), QString(30, u'W'), QString()});
    grid.showGrowth();
    EXPECT_GT(grid.columnWidth(1), before);

    FlexGrid sized(2);
    sized.setHeadings(new HeadingLabels({{"Label1x", u"DiskName"_qs}, {"Label2", u"Path"_qs}}, &sized),
                      {u"DiskName"_qs, u"Path"_qs});
    sized.addItem({u"a"_qs});
    sized.showGrowth();
    sized.setColumnWidth(0, 50);
    sized.addItem({QString(30, u'W')});
    sized.showGrowth();
    EXPECT_EQ(sized.columnWidth(0), 50);
}

TEST_F(FlexGridTest, correctingACellKeepsTheWidthOfEveryColumn)
{
    grid.addItem({u"6"_qs, QString(40, u'W'), u"x"_qs});
    grid.showGrowth();
    const auto widths = [this] {
        return std::vector<int>{grid.columnWidth(0), grid.columnWidth(1), grid.columnWidth(2)};
    };
    const std::vector<int> before = widths();
    for (const int row : {0, 5}) {
        grid.setRow(row);
        for (const int column : {0, 1, 2}) {
            grid.setCol(column);
            grid.setText(column == 1 ? u"narrow"_qs : QString(40, u'W'));
        }
    }
    EXPECT_EQ(widths(), before);
}

TEST_F(FlexGridTest, oneLongValueDoesNotMakeAColumnEndless)
{
    grid.addItem({QString(100'000, u'W')});
    grid.showGrowth();
    EXPECT_LT(grid.columnWidth(0), 500);
}

TEST(HeadingLabels, standOverTheirColumnsAndScrollWithThem)
{
    FlexGrid grid(2);
    auto* headings = new HeadingLabels({{"Label1x", u"DiskName"_qs}, {"Label2", u"Path"_qs}}, &grid);
    grid.setHeadings(headings, {u"DiskName"_qs, u"Path"_qs});
    grid.resize(200, 200);
    grid.addItem({QString(40, u'W'), QString(40, u'W')});
    grid.show();
    grid.showGrowth();
    QCoreApplication::processEvents();
    auto* label = grid.findChild<QLabel*>(u"Label2"_qs);
    ASSERT_TRUE(label);
    EXPECT_EQ(label->text(), u"Path"_qs);
    EXPECT_EQ(label->x(), headings->sectionViewportPosition(1));
    grid.horizontalScrollBar()->setValue(60);
    QCoreApplication::processEvents();
    EXPECT_EQ(label->x(), headings->sectionViewportPosition(1));
    grid.setColumnWidth(0, 80);
    EXPECT_EQ(label->x(), headings->sectionViewportPosition(1));
}

TEST(ProgressLabel, isRightAtOnceAndShownWhenAsked)
{
    ProgressLabel label;
    label.setCaption(u"Searching... D:\\"_qs);
    EXPECT_EQ(label.caption(), u"Searching... D:\\"_qs);
    EXPECT_EQ(label.text(), QString());
    label.showCaption();
    EXPECT_EQ(label.text(), u"Searching... D:\\"_qs);
}

TEST(ProgressLabel, showsHostileTextsOnOneShortLine)
{
    ProgressLabel label;
    label.setCaption(u"a\nb<b>"_qs + QString(1'000'000, u'x'));
    label.showCaption();
    EXPECT_TRUE(label.text().startsWith(u"a b<b>x"));
    EXPECT_LE(label.text().size(), 500);
    EXPECT_LT(label.sizeHint().width(), 400);
}

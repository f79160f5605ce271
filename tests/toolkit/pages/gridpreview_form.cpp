#include "toolkit/pages/gridpreview.h"

#include "tests/toolkit/pages/previewtest.h"
#include "toolkit/pages/reportlayout.h"

#include <QApplication>
#include <QHeaderView>
#include <QStandardItemModel>
#include <QTableView>

#include <gtest/gtest.h>

namespace {

struct GridPreviewTest : testing::Test {
    World world;
    QStandardItemModel model{3, 2};
    QTableView grid;
    std::unique_ptr<GridPreview> preview;

    GridPreviewTest()
    {
        world.program.onYield = [] { QCoreApplication::processEvents(); };
        model.setHorizontalHeaderLabels({u"Artist"_qs, u"Song"_qs});
        for (int row = 0; row < 3; ++row)
            for (int column = 0; column < 2; ++column)
                model.setData(model.index(row, column), u"cell %1 %2"_qs.arg(row).arg(column));
        grid.setModel(&model);
        grid.setColumnWidth(0, 100);
        grid.setColumnWidth(1, 300);
        preview = std::make_unique<GridPreview>(
            world.context.platform,
            PreviewedGrid{
                .name = u"GridPreviewed"_qs,
                .title = u"Found"_qs,
                .grid = &grid,
                .textAt = [this](int row, int column) { return model.index(row, column).data().toString(); },
                .isWide = true});
    }
    // The one that is to be seen.
    static PreviewForm* shown()
    {
        PreviewForm* found = nullptr;
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->objectName() == u"GridPreviewed" && window->isVisible()) {
                EXPECT_EQ(found, nullptr) << "a second one";
                found = qobject_cast<PreviewForm*>(window);
            }
        return found;
    }
    static QStringList texts(const PreviewForm& form)
    {
        QStringList all;
        for (const PageItem& item : form.pageView->items(1))
            if (!item.text.isEmpty())
                all += item.text;
        return all;
    }
};

} // namespace

TEST_F(GridPreviewTest, showsRowsAndHeadingsOnTurnedPaper)
{
    preview->show();
    PreviewForm* form = shown();
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->windowTitle(), u"Found - Print Preview");
    const QStringList all = texts(*form);
    for (const QString& text : {u"Found"_qs, u"Artist"_qs, u"Song"_qs, u"cell 0 0"_qs, u"cell 2 1"_qs})
        EXPECT_TRUE(all.contains(text)) << text.toStdString();
    EXPECT_TRUE(all.contains(u"1 / 1"_qs));
    EXPECT_TRUE(form->lblStatus->text().contains(u"3 records"));
    const QSizeF paper = form->pageView->layout()->paper().size;
    EXPECT_GT(paper.width(), paper.height());
}

TEST_F(GridPreviewTest, shownAgainItComesAsItStandsUntilItIsRefreshed)
{
    preview->show();
    PreviewForm* form = shown();
    model.setData(model.index(0, 0), u"new"_qs);
    preview->show();
    EXPECT_EQ(shown(), form);
    EXPECT_FALSE(texts(*form).contains(u"new"_qs));
    form->actRefresh->trigger();
    EXPECT_TRUE(texts(*form).contains(u"new"_qs));
}

TEST_F(GridPreviewTest, closedItIsMadeAnew)
{
    preview->show();
    shown()->actClose->trigger();
    EXPECT_EQ(shown(), nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    model.setData(model.index(0, 0), u"new"_qs);
    preview->show();
    ASSERT_NE(shown(), nullptr);
    EXPECT_TRUE(texts(*shown()).contains(u"new"_qs));
}

TEST_F(GridPreviewTest, goesWithItsWindowAlsoWhileItExports)
{
    model.setRowCount(5000);
    preview->show();
    QPointer<PreviewForm> form = shown();
    world.dialogs.fileAnswer = u"D:\\a.html"_qs;
    world.program.onYield = [this] {
        if (preview) {
            preview->close();
            preview.reset();
        }
        QCoreApplication::processEvents();
    };
    form->actExport->trigger();
    EXPECT_EQ(preview, nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(form.isNull());
    EXPECT_FALSE(world.files.isTaken(u"D:\\a.html"_qs));
}

TEST_F(GridPreviewTest, anEmptyGridIsOnePage)
{
    model.setRowCount(0);
    preview->show();
    ASSERT_NE(shown(), nullptr);
    EXPECT_EQ(shown()->lblStatus->text(), u"Page 1 of 1 · No records");
}

// Makes the controls of the selection grid's window and says where they stand. Distances are fixed, in twips.
#include "archive/browse/utvalg.h"

#include "toolkit/grids/datagrid.h"
#include "toolkit/widgets/picturebutton.h"
#include "toolkit/widgets/recordbar.h"
#include "toolkit/widgets/windowing.h"
#include "toolkit/widgets/windowlook.h"

#include <QHBoxLayout>
#include <QPushButton>

#include <algorithm>

namespace {

constexpr int kGridLessThanRoom = 30;

} // namespace

void Utvalg::makeControls()
{
    grdDataGrid = named(new DataGrid(centralWidget()), "grdDataGrid", tr("Songs found"));
    grdDataGrid->setToolTip(tr("Double click plays the song"));
    connect(grdDataGrid, &DataGrid::rowChosen, this,
            [this](int row) { guard([this, row] { adoPrimaryRS.setAbsolutePosition(row + 1); }); });
    connect(grdDataGrid, &DataGrid::rowActivated, this,
            [this] { guard([this] { grdDataGrid_DblClick(); }); });

    picButtons = named(new QWidget(centralWidget()), "picButtons");
    makeButtons({
        {Command2, "Command2", tr("Play Song"), tr("Play the song of the current row"),
         [this] { Command2_Click(); }, QStringLiteral("play")},
        {Command1, "Command1", tr("Print List"), tr("Print the rows that are in view"),
         [this] { Command1_Click(); }, QStringLiteral("print")},
        {cmdPreview, "cmdPreview", tr("Print Pre&view..."),
         tr("Show all rows as pages, to print or export them"), [this] { m_preview->show(); },
         QStringLiteral("preview")},
        {cmdFilter, "cmdFilter", tr("Filter"), tr("Back to the search criteria"),
         [this] { cmdFilter_Click(); }, QStringLiteral("filter")},
        {cmdClose, "cmdClose", tr("&Close"), tr("Close the result and the search criteria"),
         [this] { cmdClose_Click(); }, QStringLiteral("close")},
        {cmdDelete, "cmdDelete", tr("&Delete"), tr("Delete the current row from the archive at once"),
         [this] { cmdDelete_Click(); }, QStringLiteral("delete")},
    });
    QHBoxLayout* row =
        windowlook::commandRow({Command2, Command1, cmdPreview, cmdFilter, cmdDelete}, {cmdClose});
    row->setContentsMargins(8, 8, 8, 4);
    picButtons->setLayout(row);
    makeRecordBar();
    setTabOrder(cmdDelete, cmdClose);
    setTabOrder(cmdClose, picStatBox->cmdFirst);
    grdDataGrid->setFocus();
    setMinimumSize(picButtons->sizeHint().width(), 240);
    resize(fittingSize({1240, 620}));
}

void Utvalg::Form_Resize()
{
    const int width = innerSize().width();
    const int bars = picButtons->sizeHint().height() + picStatBox->height();
    const int gridHeight = std::max(innerSize().height() - fromTwips(kGridLessThanRoom) - bars, 0);
    grdDataGrid->setGeometry(0, 0, width, gridHeight);
    picButtons->setGeometry(0, gridHeight + fromTwips(kGridLessThanRoom), width,
                            picButtons->sizeHint().height());
    picStatBox->setGeometry(0, innerSize().height() - picStatBox->height(), width, picStatBox->height());
    RecordWindow::Form_Resize();
}

#include "archive/browse/utvalg.h"

#include "archive/browse/querytext.h"
#include "archive/core/sharedvalues.h"
#include "database/connection/stoppable.h"
#include "platform/busypointer.h"
#include "platform/printer.h"
#include "platform/program.h"
#include "toolkit/grids/datagrid.h"
#include "toolkit/widgets/recordbar.h"
#include "toolkit/widgets/stopbox.h"

Utvalg::Utvalg(ArchiveContext& context, Others others)
    : RecordWindow(context, "Utvalg", tr("Search result")), m_others(std::move(others))
{
    makeControls();
    m_preview = std::make_unique<GridPreview>(
        context.platform,
        PreviewedGrid{.name = QStringLiteral("UtvalgPreview"),
                      .title = windowTitle(),
                      .grid = grdDataGrid,
                      .textAt = [this](int row, int column) { return grdDataGrid->textAt(row, column); },
                      .isWide = true});
}

Utvalg::~Utvalg()
{
    grdDataGrid->setDataSource(nullptr);
}

void Utvalg::Form_Load()
{
    const BusyPointer busy(program());
    StopBox box(program(), windowTitle(), tr("Searching the archive. Press Escape to stop."));
    try {
        openQuery(box);
    } catch (const RunTimeError& error) {
        box.hide(); // below the next box it would still ask to be stopped
        box.isStopped() ? forgetSearch() : explainFailure(error);
        unload();
    }
}

void Utvalg::openQuery(StopBox& box)
{
    connectToArchive();
    SearchCriteria& search = m_others.search();
    const bool isAnd = search.combinesWithAnd();
    if (!isAnd)
        search.markEmptyBoxes();
    const Criteria criteria = search.criteria();
    // Whoever types a text that makes the statement run for ever has to be able to end it.
    const Stoppable stoppable(m_connection, [&box] { return box.goesOn(); });
    // Kept: when this fails, the signs of an OR stay in the boxes.
    adoPrimaryRS.open(isAnd ? querytext::allOf(criteria) : querytext::anyOf(criteria), m_connection);
    if (!isAnd) {
        program().yield();
        m_others.search().emptyMarkedBoxes(); // that turn may have closed the form, and it is another one now
    }
    if (!closing())
        showResult();
}

void Utvalg::showResult()
{
    if (adoPrimaryRS.recordCount() == 0)
        picStatBox->setFound(tr("Nothing found"));
    grdDataGrid->setDataSource(&adoPrimaryRS, {tr("Artist"), tr("Path"), tr("Song"), tr("Disk Name"),
                                               tr("Album"), tr("Year"), tr("Comment")});
}

// A search that was stopped did not fail: the boxes are as the user left them.
void Utvalg::forgetSearch()
{
    if (!program().ending())
        m_others.search().emptyMarkedBoxes();
}

void Utvalg::explainFailure(const RunTimeError& error)
{
    QString why = error.text();
    if (error.number() == kStatementError && querytext::holdsApostrophe(m_others.search().criteria()))
        why += QStringLiteral("\n\n") +
               tr("An apostrophe (') ends the text that is searched for. Type _ in its place: "
                  "that stands for any one character.");
    explain(tr("The search cannot be carried out."), why);
}

void Utvalg::Form_Unload()
{
    RecordWindow::Form_Unload();
    m_preview->close();
}

void Utvalg::cmdFilter_Click()
{
    unload();
}

void Utvalg::cmdClose_Click()
{
    unload();
    m_others.closeSearch();
}

// Prints what is scrolled into view, row by row; the last of those rows is the current one then.
void Utvalg::Command1_Click()
{
    m_context.platform.printer.setOrientation(Orientation::Landscape);
    const int first = grdDataGrid->FirstRow();
    const int rows = grdDataGrid->VisibleRows();
    const int firstColumn = grdDataGrid->FirstCol();
    const int columns = grdDataGrid->VisibleCols();
    QStringList lines;
    for (int row = first; row < first + rows; ++row) {
        adoPrimaryRS.setAbsolutePosition(row + 1);
        QString line;
        for (int column = firstColumn; column < firstColumn + columns; ++column)
            line += grdDataGrid->lineText(row, column) + QStringLiteral("  ");
        lines += line;
    }
    grdDataGrid->setFirstRow(first); // the last row may have been half in view and moved into it
    m_context.platform.printer.printAtOnce(lines);
}

void Utvalg::Command2_Click()
{
    playCurrentRow();
}

void Utvalg::grdDataGrid_DblClick()
{
    playCurrentRow();
}

void Utvalg::playCurrentRow()
{
    SharedValues& shared = m_context.shared;
    shared.PlayPath = adoPrimaryRS.value(QStringLiteral("fldpath")).value_or(QString());
    shared.PlayDiskName = adoPrimaryRS.value(QStringLiteral("fldvolum")).value_or(QString());
    shared.PlayFileType = m_others.search().criteria().extension;
    m_others.SpillMusikk();
}

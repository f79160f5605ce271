#include "archive/browse/utvalg.h"

#include "archive/browse/querytext.h"
#include "archive/core/archivestore.h"
#include "archive/core/sharedvalues.h"
#include "database/connection/stoppable.h"
#include "platform/busypointer.h"
#include "platform/dialogs.h"
#include "platform/printer.h"
#include "platform/program.h"
#include "toolkit/grids/datagrid.h"
#include "toolkit/widgets/recordbar.h"
#include "toolkit/widgets/stopbox.h"

#include <QLabel>

Utvalg::Utvalg(ArchiveContext& context, Others others)
    : Form(context.platform.dialogs, context.platform.program, "Utvalg", QStringLiteral("Search result")),
      m_context(context), m_others(std::move(others)),
      m_connection(context.platform.drives, &context.store.groups)
{
    makeControls();
    m_preview = std::make_unique<GridPreview>(
        context.platform,
        PreviewedGrid{.name = QStringLiteral("UtvalgPreview"),
                      .title = windowTitle(),
                      .grid = grdDataGrid,
                      .textAt = [this](int row, int column) { return grdDataGrid->textAt(row, column); },
                      .isWide = true});
    setKeyPreview();
    connect(&adoPrimaryRS, &Recordset::moveComplete, this, [this] { adoPrimaryRS_MoveComplete(); });
    connect(&adoPrimaryRS, &Recordset::rowRemoved, this, [this] { showTotal(); });
    adoPrimaryRS.willChangeRecord = [this] { return adoPrimaryRS_WillChangeRecord(); };
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
    m_connection.setCursorLocation(CursorLocation::Client);
    m_connection.open(m_context.store.ownConnectionText());
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
        m_others.search().emptyMarkedBoxes();
    }
    if (closing())
        return;
    m_foundNothing = adoPrimaryRS.recordCount() == 0;
    showTotal();
    grdDataGrid->setDataSource(&adoPrimaryRS, {tr("Artist"), tr("Path"), tr("Song"), tr("Disk Name"),
                                               tr("Album"), tr("Year"), tr("Comment")});
    m_dataChanged = false;
}

// It did not fail: the boxes are as the user left them.
void Utvalg::forgetSearch()
{
    if (!program().ending())
        m_others.search().emptyMarkedBoxes();
}

void Utvalg::explainFailure(const RunTimeError& error)
{
    QString text = tr("The search cannot be carried out.") + QStringLiteral("\n\n") + error.text();
    if (error.number() == kStatementError && querytext::holdsApostrophe(m_others.search().criteria()))
        text += QStringLiteral("\n\n") +
                tr("An apostrophe (') ends the text that is searched for. Type _ in its place: "
                   "that stands for any one character.");
    dialogs().message({.text = text, .title = windowTitle(), .icon = MessageIcon::Warning});
}

void Utvalg::Form_Unload()
{
    program().setBusyPointer(false);
    m_preview->close();
}

void Utvalg::adoPrimaryRS_MoveComplete()
{
    picStatBox->lblStatus->setText(QStringLiteral("Record: ") +
                                   QString::number(adoPrimaryRS.absolutePosition()));
    showTotal();
}

void Utvalg::showTotal()
{
    const int records = adoPrimaryRS.recordCount();
    picStatBox->setTotal(records);
    picStatBox->setFound(records == 0 && m_foundNothing ? tr("Nothing found") : QString());
}

void Utvalg::cmdFirst_Click()
{
    navigation::goFirst(adoPrimaryRS);
    m_dataChanged = false;
}

void Utvalg::cmdLast_Click()
{
    navigation::goLast(adoPrimaryRS);
    m_dataChanged = false;
}

void Utvalg::cmdNext_Click()
{
    navigation::goNext(adoPrimaryRS, program());
    m_dataChanged = false;
}

void Utvalg::cmdPrevious_Click()
{
    navigation::goPrevious(adoPrimaryRS, program());
    m_dataChanged = false;
}

void Utvalg::cmdDelete_Click()
{
    navigation::deleteCurrent(adoPrimaryRS);
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

// What is scrolled into view, row by row; the last of those rows is the current one then.
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

bool Utvalg::Form_KeyDown(int keyCode, int shift)
{
    const navigation::Step step = navigation::stepOfKey(keyCode, shift);
    take(step);
    return step != navigation::Step::None;
}

void Utvalg::take(navigation::Step step)
{
    switch (step) {
    case navigation::Step::Close:
        return cmdClose_Click();
    case navigation::Step::First:
        return cmdFirst_Click();
    case navigation::Step::Previous:
        return cmdPrevious_Click();
    case navigation::Step::Next:
        return cmdNext_Click();
    case navigation::Step::Last:
        return cmdLast_Click();
    case navigation::Step::None:
        return;
    }
}

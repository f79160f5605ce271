#include "scan/frmeditcell.h"

#include "platform/grid.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

#include <limits>

frmEditCell::frmEditCell(Dialogs& dialogs, Program& program, GridSource grid)
    : Form(dialogs, program, "frmEditCell", tr("Edit cell")), m_grid(std::move(grid))
{
    txtEditCell = named(new QLineEdit(centralWidget()), "txtEditCell", tr("Text of the cell"));
    txtEditCell->setMaxLength(std::numeric_limits<int>::max());
    makeButtons({
        {CmdEdit, "CmdEdit", tr("OK"), {}, [this] { CmdEdit_Click(); }, QStringLiteral("ok")},
        {cmdAvbryt, "cmdAvbryt", tr("Cancel"), {}, [this] { cmdAvbryt_Click(); }, QStringLiteral("cancel")},
    });
    setKeys(CmdEdit, cmdAvbryt);
    makeDialog();

    auto* column = new QVBoxLayout(centralWidget());
    column->setContentsMargins(16, 16, 16, 14);
    column->setSpacing(14);
    column->addWidget(txtEditCell);
    column->addStretch(1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    for (QPushButton* button : inDesktopOrder(CmdEdit, cmdAvbryt))
        buttons->addWidget(button);
    column->addLayout(buttons);
    resizeFor({480, 120});
}

void frmEditCell::Form_Load()
{
    Grid* grid = m_grid();
    if (!grid)
        return;
    m_row = grid->Row();
    m_col = grid->Col();
    txtEditCell->setText(grid->Text());
    txtEditCell->selectAll();
    txtEditCell->setFocus();
}

// Into the cell whose text was loaded, wherever the grid's current cell is by now.
void frmEditCell::CmdEdit_Click()
{
    if (Grid* grid = m_grid()) {
        grid->setRow(m_row);
        grid->setCol(m_col);
        grid->setText(txtEditCell->text());
    }
    unload();
}

void frmEditCell::cmdAvbryt_Click()
{
    unload();
}

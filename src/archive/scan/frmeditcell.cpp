#include "archive/scan/frmeditcell.h"

#include "platform/grid.h"
#include "toolkit/widgets/windowlook.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <limits>

frmEditCell::frmEditCell(Dialogs& dialogs, Program& program, GridSource grid)
    : Form(dialogs, program, "frmEditCell", tr("Edit cell")), m_grid(std::move(grid))
{
    txtEditCell = named(new QLineEdit(centralWidget()), "txtEditCell", tr("Text of the cell"));
    txtEditCell->setMaxLength(std::numeric_limits<int>::max());
    makeLabels({{lblApostrophe, "lblApostrophe", tr("An apostrophe stops the update at this row.")}});
    makeButtons({
        {CmdEdit, "CmdEdit", tr("OK"), {}, [this] { CmdEdit_Click(); }, QStringLiteral("ok")},
        {cmdAvbryt, "cmdAvbryt", tr("Cancel"), {}, [this] { cmdAvbryt_Click(); }, QStringLiteral("cancel")},
        {cmdApostrophe,
         "cmdApostrophe",
         tr("&Put \u2019"),
         tr("Put \u2019 in place of each apostrophe"),
         [this] { cmdApostrophe_Click(); },
         {}},
    });
    connect(txtEditCell, &QLineEdit::textChanged, this, [this] { guard([this] { txtEditCell_Change(); }); });
    setKeys(CmdEdit, cmdAvbryt);
    makeDialog();

    auto* column = new QVBoxLayout(centralWidget());
    column->setContentsMargins(16, 16, 16, 14);
    column->setSpacing(14);
    column->addWidget(txtEditCell);
    column->addLayout(apostropheLine());
    column->addStretch(1);
    column->addLayout(windowlook::answerRow(inDesktopOrder(CmdEdit, cmdAvbryt)));
    resizeFor({480, 150});
}

// Its room is kept while it is hidden, so that nothing moves under the pointer when it comes.
QLayout* frmEditCell::apostropheLine()
{
    auto* line = new QHBoxLayout;
    line->addWidget(lblApostrophe, 1);
    line->addWidget(cmdApostrophe);
    setTabOrder(txtEditCell, cmdApostrophe);
    for (QWidget* part : {static_cast<QWidget*>(lblApostrophe), static_cast<QWidget*>(cmdApostrophe)}) {
        QSizePolicy policy = part->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        part->setSizePolicy(policy);
        part->hide();
    }
    return line;
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

// It goes into the cell whose text was loaded, wherever the grid's current cell is by now.
void frmEditCell::CmdEdit_Click()
{
    if (Grid* grid = m_grid()) {
        grid->setRow(m_row);
        grid->setCol(m_col);
        grid->setText(txtEditCell->text());
    }
    unload();
}

void frmEditCell::txtEditCell_Change()
{
    const bool stops = txtEditCell->text().contains(u'\'');
    lblApostrophe->setVisible(stops);
    cmdApostrophe->setVisible(stops);
}

void frmEditCell::cmdApostrophe_Click()
{
    const int place = txtEditCell->cursorPosition();
    txtEditCell->setText(txtEditCell->text().replace(u'\'', u'\u2019'));
    txtEditCell->setCursorPosition(place);
    txtEditCell->setFocus();
}

void frmEditCell::cmdAvbryt_Click()
{
    unload();
}

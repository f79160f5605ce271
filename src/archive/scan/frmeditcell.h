// Corrects one cell of the result.
#pragma once

#include "toolkit/widgets/form.h"

class Grid;
class QLineEdit;

class frmEditCell : public Form {
    Q_OBJECT

public:
    using GridSource = std::function<Grid*()>; // nothing when the result was closed

    frmEditCell(Dialogs& dialogs, Program& program, GridSource grid);

    QLineEdit* txtEditCell = nullptr;
    QPushButton* CmdEdit = nullptr;
    QPushButton* cmdAvbryt = nullptr;
    QLabel* lblApostrophe = nullptr;
    QPushButton* cmdApostrophe = nullptr; // puts the other sign, which can be stored

    void CmdEdit_Click();
    void cmdAvbryt_Click();
    void cmdApostrophe_Click();
    void txtEditCell_Change();

protected:
    void Form_Load() override;

private:
    QLayout* apostropheLine();

    GridSource m_grid;
    int m_row = 0;
    int m_col = 0;
};

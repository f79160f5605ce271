// Chooses which player opens an archive entry. The check box's first state is set by start-up. Kept: once
// unloaded, the window opens at its design default, whatever is stored.
#pragma once

#include "archive/core/archivecontext.h"
#include "toolkit/widgets/form.h"

class frmOptions : public Form {
    Q_OBJECT

public:
    explicit frmOptions(ArchiveContext& context);

    QCheckBox* chkOwnPlayer = nullptr;
    QLabel* Label1 = nullptr;
    QLabel* Label2 = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

    void cmdOK_Click();
    void cmdCancel_Click();

private:
    ArchiveContext& m_context;
};

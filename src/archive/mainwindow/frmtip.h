// Shows one random tip at start-up, and as many more as the user asks for.
#pragma once

#include "archive/core/archivecontext.h"
#include "toolkit/widgets/form.h"

class frmTip : public Form {
    Q_OBJECT

public:
    explicit frmTip(ArchiveContext& context);

    QLabel* lblTipText = nullptr;
    QLabel* lblHeading = nullptr;
    QCheckBox* chkLoadTipsAtStartup = nullptr;
    QPushButton* cmdNextTip = nullptr;
    QPushButton* cmdOK = nullptr;

    bool LoadTips(const QString& file);
    void DisplayCurrentTip();
    void cmdNextTip_Click();
    void chkLoadTipsAtStartup_Click();
    void cmdOK_Click();

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    void place();

    ArchiveContext& m_context;
    QStringList m_tips;
    int m_current = 0; // 1-based; 0 while there is none
};

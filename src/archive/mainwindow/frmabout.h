// Says what the program is, which version, where its home page is, and leads to the desktop's system
// information.
#pragma once

#include "archive/core/archivecontext.h"
#include "toolkit/widgets/form.h"

class LinkLabel;

class frmAbout : public Form {
    Q_OBJECT

public:
    explicit frmAbout(ArchiveContext& context);

    QLabel* lblTitle = nullptr;
    QLabel* lblVersion = nullptr;
    QLabel* lblDescription = nullptr;
    LinkLabel* Label1 = nullptr; // the home page's address; pressing it opens it
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdSysInfo = nullptr;

    void Label1_Click();
    void cmdOK_Click();
    void cmdSysInfo_Click();
    void StartSysInfo();

protected:
    void Form_Load() override;

private:
    void place();

    ArchiveContext& m_context;
};

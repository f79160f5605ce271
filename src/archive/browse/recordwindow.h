// Is the window that walks through records: what the grid of a search and the record editor have in common.
// Both have their own connection and recordset, the bar at the foot with its four steps, and the same keys.
#pragma once

#include "archive/browse/navigation.h"
#include "archive/core/archivecontext.h"
#include "database/connection/connection.h"
#include "database/cursor/recordset.h"
#include "toolkit/widgets/form.h"

class RecordBar;

class RecordWindow : public Form {
    Q_OBJECT

public:
    RecordWindow(ArchiveContext& context, const char* name, const QString& caption);

    RecordBar* picStatBox = nullptr;

    Recordset& records() { return adoPrimaryRS; }

    virtual void adoPrimaryRS_MoveComplete();
    bool adoPrimaryRS_WillChangeRecord() { return true; }
    void cmdFirst_Click();
    void cmdPrevious_Click();
    void cmdNext_Click();
    void cmdLast_Click();
    void cmdDelete_Click();
    virtual void cmdClose_Click() = 0;

protected:
    void Form_Unload() override;
    void Form_Resize() override;
    bool Form_KeyDown(int keyCode, int shift) override;

    void makeRecordBar(); // behind the other controls: Tab goes to it last
    void connectToArchive();
    void explain(const QString& what, const QString& why);
    void showPosition();

    ArchiveContext& m_context;
    Connection m_connection;
    Recordset adoPrimaryRS;

private:
    void take(navigation::Step step);
};

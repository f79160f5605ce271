// The result of a search as a grid: the user walks through it, plays, prints and deletes rows.
#pragma once

#include "archive/browse/navigation.h"
#include "archive/core/archivecontext.h"
#include "database/connection/connection.h"
#include "database/cursor/recordset.h"
#include "toolkit/pages/gridpreview.h"
#include "toolkit/widgets/form.h"

class DataGrid;
class PictureButton;
class RecordBar;
class SearchCriteria;
class StopBox;

class Utvalg : public Form {
    Q_OBJECT

public:
    // Of the other windows, each by its default instance.
    struct Others {
        std::function<SearchCriteria&()> search; // loaded, also when it was closed
        std::function<void()> closeSearch;
        std::function<void()> SpillMusikk; // of the record editor, loaded without being shown
    };

    Utvalg(ArchiveContext& context, Others others);
    ~Utvalg() override;

    DataGrid* grdDataGrid = nullptr;
    QWidget* picButtons = nullptr;
    QPushButton* Command2 = nullptr;
    QPushButton* Command1 = nullptr;
    QPushButton* cmdPreview = nullptr;
    QPushButton* cmdFilter = nullptr;
    QPushButton* cmdClose = nullptr;
    QPushButton* cmdDelete = nullptr;
    RecordBar* picStatBox = nullptr;

    Recordset& records() { return adoPrimaryRS; }

    void adoPrimaryRS_MoveComplete();
    bool adoPrimaryRS_WillChangeRecord() { return true; }
    void cmdFirst_Click();
    void cmdPrevious_Click();
    void cmdNext_Click();
    void cmdLast_Click();
    void cmdDelete_Click();
    void cmdFilter_Click();
    void cmdClose_Click();
    void Command1_Click();
    void Command2_Click();
    void grdDataGrid_DblClick();

protected:
    void Form_Load() override;
    void Form_Unload() override;
    void Form_Resize() override;
    bool Form_KeyDown(int keyCode, int shift) override;

private:
    void makeControls();
    void connectBar();
    void openQuery(StopBox& box);
    void forgetSearch();
    void showTotal();
    void explainFailure(const RunTimeError& error);
    void playCurrentRow();
    void take(navigation::Step step);

    ArchiveContext& m_context;
    Others m_others;
    Connection m_connection;
    Recordset adoPrimaryRS;
    bool m_dataChanged = false;
    bool m_foundNothing = false; // at all: deleting the only record is something else
    std::unique_ptr<GridPreview> m_preview;
};

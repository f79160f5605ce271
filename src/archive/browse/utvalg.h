// Shows the result of a search as a grid: the user walks through it, plays, prints and deletes rows.
#pragma once

#include "archive/browse/recordwindow.h"
#include "toolkit/pages/gridpreview.h"

class DataGrid;
class SearchCriteria;
class StopBox;

class Utvalg : public RecordWindow {
    Q_OBJECT

public:
    // Leads to the other windows, each by its default instance.
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

    void cmdFilter_Click();
    void cmdClose_Click() override;
    void Command1_Click();
    void Command2_Click();
    void grdDataGrid_DblClick();

protected:
    void Form_Load() override;
    void Form_Unload() override;
    void Form_Resize() override;

private:
    void makeControls();
    void openQuery(StopBox& box);
    void showResult();
    void forgetSearch();
    void explainFailure(const RunTimeError& error);
    void playCurrentRow();

    Others m_others;
    std::unique_ptr<GridPreview> m_preview;
};

// One record of the archive at a time, sorted by artist: found, added, changed, deleted, played.
#pragma once

#include "archive/browse/navigation.h"
#include "archive/core/archivecontext.h"
#include "database/connection/connection.h"
#include "database/cursor/recordset.h"
#include "toolkit/widgets/form.h"

#include <array>

class RecordBar;
class TextField;

class frmEditor : public Form {
    Q_OBJECT

public:
    explicit frmEditor(ArchiveContext& context);

    std::array<TextField*, 4> txtFields{}; // artist, path, song, disk name
    std::array<QLabel*, 4> lblLabels{};
    QLabel* Label1 = nullptr;
    QPushButton* cmdFindRec = nullptr;
    QPushButton* cmdFindSong = nullptr;
    QPushButton* cmdFindNext = nullptr;
    QPushButton* cmdPlay = nullptr;
    QPushButton* Command1 = nullptr;
    QWidget* picButtons = nullptr;
    QPushButton* cmdAdd = nullptr;
    QPushButton* cmdEdit = nullptr;
    QPushButton* cmdDelete = nullptr;
    QPushButton* cmdRefresh = nullptr;
    QPushButton* cmdClose = nullptr;
    QPushButton* cmdUpdate = nullptr;
    QPushButton* cmdCancel = nullptr;
    RecordBar* picStatBox = nullptr;

    Recordset& records() { return adoPrimaryRS; }

    void SpillMusikk(); // plays the shared PlayPath after a look at the disk of the record shown here

    void adoPrimaryRS_MoveComplete();
    bool adoPrimaryRS_WillChangeRecord() { return true; }
    void cmdFindRec_Click();
    void cmdFindSong_Click();
    void cmdFindNext_Click();
    void cmdPlay_Click();
    void txtFields_DblClick() { cmdPlay_Click(); }
    void Command1_Click();
    void cmdAdd_Click();
    void CmdEdit_Click();
    void cmdDelete_Click();
    void cmdRefresh_Click();
    void cmdClose_Click();
    void cmdUpdate_Click();
    void cmdCancel_Click();
    void cmdFirst_Click();
    void cmdPrevious_Click();
    void cmdNext_Click();
    void cmdLast_Click();
    void SetButtons(bool enabled);

protected:
    void Form_Load() override;
    void Form_Unload() override;
    void Form_Resize() override;
    bool Form_KeyDown(int keyCode, int shift) override;

private:
    void makeControls();
    void makeFields();
    void makeFindButtons();
    void makeRecordButtons();
    void connectBar();
    void place();
    void wire();
    void openRecords();
    void askAndFind(const QString& field, const QString& prompt);
    void find();
    void tellWhenNothingIsFound(const QString& text); // %1 artist or song, %2 what was looked for
    void showFields();
    void showPosition();
    void fieldEdited(std::size_t index);
    void take(navigation::Step step);

    ArchiveContext& m_context;
    Connection m_connection;
    Recordset adoPrimaryRS;
    bool editing = false;
    bool adding = false;
    bool dataChanged = false;
    Recordset::Bookmark savedBookmark = 0; // of the row that was current when Add was pressed last
    QString findField;
    QString findText;
};

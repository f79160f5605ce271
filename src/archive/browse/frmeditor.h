// Shows one record of the archive at a time, sorted by artist; the user finds, adds, changes, deletes and
// plays them.
#pragma once

#include "archive/browse/recordwindow.h"

#include <array>

class TextField;

class frmEditor : public RecordWindow {
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

    void SpillMusikk(); // plays the shared PlayPath after a look at the disk of the record shown here

    void adoPrimaryRS_MoveComplete() override;
    void cmdFindRec_Click();
    void cmdFindSong_Click();
    void cmdFindNext_Click();
    void cmdPlay_Click();
    void txtFields_DblClick() { cmdPlay_Click(); }
    void Command1_Click();
    void cmdAdd_Click();
    void CmdEdit_Click();
    void cmdRefresh_Click();
    void cmdClose_Click() override;
    void cmdUpdate_Click();
    void cmdCancel_Click();
    void SetButtons(bool enabled);

protected:
    void Form_Load() override;
    void Form_Unload() override;
    bool Form_KeyDown(int keyCode, int shift) override;

private:
    void makeControls();
    void makeFields();
    void makeFindButtons();
    void makeRecordButtons();
    void place();
    QLayout* placedFields();
    void wire();
    void openRecords();
    void askAndFind(const QString& field, const QString& prompt);
    void find();
    void tellWhenNothingIsFound(const QString& text); // %1 artist or song, %2 what was looked for
    void showFields();
    void fieldEdited(std::size_t index);

    bool editing = false;
    bool adding = false;
    Recordset::Bookmark savedBookmark = 0; // of the row that was current when Add was pressed last
    QString findField;
    QString findText;
};

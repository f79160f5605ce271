// In this window the user chooses what to scan: a drive, a directory on it, a file type, with or without
// subdirectories.
#pragma once

#include "archive/core/archivecontext.h"
#include "archive/scan/scansetup.h"
#include "toolkit/widgets/form.h"

class DirectoryList;
class DriveList;
class QComboBox;
class QLineEdit;

class frmSearch : public Form, public ScanSetup {
    Q_OBJECT

public:
    using ShowResult = std::function<void()>;

    frmSearch(ArchiveContext& context, ShowResult showResult);

    DriveList* Drive1 = nullptr;
    DirectoryList* Dir1 = nullptr;
    QComboBox* Combo1 = nullptr;
    QLineEdit* CustomExt = nullptr;
    QLabel* Label13 = nullptr;
    QLineEdit* txtSearchString = nullptr;
    QCheckBox* ChkSub = nullptr;
    QPushButton* cmdScan = nullptr;
    QPushButton* cmdCancel = nullptr;
    QLabel* Label1 = nullptr;
    QLabel* lblScan = nullptr;
    QLabel* lblType = nullptr;

    void Drive1_Change();
    void Dir1_Change();
    void CustomExt_Change();
    void Combo1_Click();
    void ChkSub_Click();
    void cmdScan_Click();
    void cmdCancel_Click();

    QString searchString() const override;
    QString directory() const override;
    bool includesSubdirectories() const override;
    QString customExt() const override;

protected:
    void Form_Load() override;
    void Form_Unload() override;
    void Form_Resize() override;

private:
    void makeControls();
    void wire();
    void showCustomExt(bool visible);
    void useDirectoryAndExtension();
    void setSearchString(const QString& text);
    bool wasIncludingSubdirectories();

    ArchiveContext& m_context;
    ShowResult m_showResult;
};

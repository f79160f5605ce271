// Runs the scan and shows what it found, a row for each file, for review before it goes into the archive.
#pragma once

#include "archive/scan/insertrows.h"
#include "archive/scan/scanner.h"
#include "archive/scan/scanview.h"
#include "base/throttle.h"
#include "toolkit/pages/gridpreview.h"
#include "toolkit/widgets/form.h"
#include "toolkit/widgets/glance.h"

class FlexGrid;
class ProgressLabel;
class QListView;
class TextTableModel;
class WaitingPages;

class frmResult : public Form, public ScanView, public ImportView {
    Q_OBJECT

public:
    // Opening the cell editor on the current cell, and closing it, belong to the owner of the windows.
    struct CellEditor {
        std::function<void()> open;
        std::function<void()> close;
    };

    frmResult(ArchiveContext& context, Scanner::SetupSource setup, CellEditor cellEditor);

    FlexGrid* MSFlexGrid1 = nullptr;
    QListView* lstfiles = nullptr;
    ProgressLabel* Label1 = nullptr;
    ProgressLabel* Label5 = nullptr;
    QLabel* lblWaiting = nullptr; // there only while an import waits
    QLabel* lblEmpty = nullptr;   // over the empty grid
    QLabel* lblNote = nullptr;
    QPushButton* Command1 = nullptr;
    QPushButton* cmd_Print = nullptr;
    QPushButton* cmdPreview = nullptr;
    QPushButton* cmdUpdate = nullptr;
    QPushButton* cmdCancel = nullptr;

    void Command1_Click();
    void cmd_Print_Click();
    void cmdPrintNow_Click();
    void cmdUpdate_Click();
    void cmdCancel_Click();
    void MSFlexGrid1_DblClick();

    void clearFiles() override;
    void addFile(const QString& path) override;
    int fileCount() const override;
    void addRow(const QStringList& values) override;
    void setLabel1(const QString& text) override;
    void setLabel5(const QString& text) override;
    void setWaiting(const QString& text) override;
    void showProgress() override;
    bool stopWished() override;
    void setNote(const QString& text) override;
    void setEmptyReason(const QString& text) override;
    bool closing() const override { return Form::closing(); }
    void showNow() override;

protected:
    void Form_Load() override;
    bool Form_QueryUnload() override;
    void Form_Unload() override;

private:
    enum class Work { None, Scan, Import, Print };
    class Working;

    void makeControls();
    void place();
    QLayout* gridWithReason();
    void showWork(Work work);
    void showLabels();
    void showGrowth();
    void showWaitingPages();
    QString gridText() const;
    bool isStop(const QWindow& window, const QEvent& event);
    bool isCancelClick(const QEvent& event);

    ArchiveContext& m_context;
    Scanner m_scanner;
    Scanner::SetupSource m_setup;
    CellEditor m_cellEditor;
    TextTableModel* m_files = nullptr;
    WaitingPages* m_waitingPages = nullptr;
    Throttle m_labelPace;
    Throttle m_growthPace{std::chrono::milliseconds(250)};
    Throttle m_glancePace;
    Glance m_glance;
    bool m_cancelPressed = false;
    Work m_work = Work::None;
    std::unique_ptr<GridPreview> m_preview;
};

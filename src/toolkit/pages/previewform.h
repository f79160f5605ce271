// Shows a report's pages on the screen, with what a reader does with them: go to a page, zoom, find a text,
// print, export, read the rows anew. The rows are those of the moment when it was opened.
#pragma once

#include "toolkit/pages/fontwidths.h"
#include "toolkit/pages/report.h"
#include "toolkit/widgets/form.h"

#include <memory>

class Files;
class FindBar;
class PageSearch;
class PageView;
class Printer;
class QLineEdit;
class ReportLayout;
class ReportRows;
class ToolStrip;
class WorkBar;
class ZoomBox;
struct OpenedReport;
struct Paper;

struct PreviewSeams {
    Dialogs& dialogs;
    Program& program;
    Files& files;
    Printer& printer;
};

class PreviewForm : public Form {
    Q_OBJECT

public:
    // The window has the design's name and caption.
    PreviewForm(const PreviewSeams& seams, ReportDesign design);
    ~PreviewForm() override;

    QAction* actPrint = nullptr;
    QAction* actExport = nullptr;
    QAction* actFirst = nullptr;
    QAction* actPrevious = nullptr;
    QAction* actNext = nullptr;
    QAction* actLast = nullptr;
    QAction* actZoomOut = nullptr;
    QAction* actZoomIn = nullptr;
    QAction* actActualSize = nullptr;
    QAction* actFind = nullptr;
    QAction* actFindNext = nullptr;
    QAction* actFindPrevious = nullptr;
    QAction* actRefresh = nullptr;
    QAction* actClose = nullptr;
    QLineEdit* txtPage = nullptr;
    QLabel* lblPages = nullptr; // "of 12"
    ZoomBox* cboZoom = nullptr;
    FindBar* findBar = nullptr;
    PageView* pageView = nullptr;
    WorkBar* workBar = nullptr;
    QLabel* lblStatus = nullptr; // "Page 3 of 1,812 · 100,000 records", and what was done last

    void actPrint_Triggered();
    void actExport_Triggered();
    void actFind_Triggered();
    void actRefresh_Triggered();
    void actClose_Triggered() { unload(); }

protected:
    // Reads the rows; what it throws is shown in the system's box, and the window is not opened, or shows
    // what it showed before.
    virtual std::unique_ptr<ReportRows> readRows() = 0;

    void Form_Load() override;
    void Form_Unload() override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    class Working;
    struct ActionRow;

    void makeActions();
    void makeActions(std::initializer_list<ActionRow> rows);
    void makeControls();
    void fillStrip(ToolStrip& strip);
    void wire();
    void place();

    std::unique_ptr<OpenedReport> open();
    Paper paper() const;
    void showReport(std::unique_ptr<OpenedReport> opened);
    void changeLayout(std::unique_ptr<ReportLayout> layout);
    void goToFirst();
    void goBack();
    void goAhead();
    void goToLast();
    void zoomOut();
    void zoomIn();
    void zoomToActualSize();
    void showPage();
    void goToTypedPage();
    void showStatus();
    void tell(const QString& message);
    QString recordsText() const;

    void find(const QString& text);
    void findTyped();
    void showHit();
    void goToHit(int direction);
    void goToNextHit() { goToHit(1); }
    void goToPreviousHit() { goToHit(-1); }
    void endFind();
    void showFound();
    bool takesEscape() const;

    Files& m_files;
    Printer& m_printer;
    const ReportDesign m_design;
    FontWidths m_widths;
    std::unique_ptr<OpenedReport> m_opened;
    PageSearch* m_search = nullptr;
    QString m_message; // in the status
};

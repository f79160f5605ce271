// Shows a report's pages on the screen, with what a reader does with them: go to a page, zoom, find a text,
// print, export, read the rows anew. The rows are those of the moment when it was opened.
#pragma once

#include "toolkit/pages/report.h"
#include "toolkit/widgets/form.h"

#include <memory>

class Files;
class PageView;
class Printer;
class QLineEdit;
class ReportRows;

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
    QAction* actFind = nullptr;
    QAction* actRefresh = nullptr;
    QAction* actClose = nullptr;
    QLineEdit* txtPage = nullptr;
    QLabel* lblPages = nullptr;  // "of 12"
    QLabel* lblStatus = nullptr; // "Page 3 of 1,812", records, hits
    PageView* pageView = nullptr;

protected:
    // Reads the rows; what it throws is shown in the system's box, and the window is not opened, or shows
    // what it showed before.
    virtual std::unique_ptr<ReportRows> readRows() = 0;

    void Form_Load() override;
};

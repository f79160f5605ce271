// Prints to the desktop's default printer, or to a PDF file in its place.
#pragma once

#include "platform/printer.h"
#include "system/desktop/printchoice.h"
#include "system/desktop/printerpaper.h"

#include <memory>
#include <optional>

class QtPrinter : public Printer {
public:
    // With a file each document replaces the one before; those that are printed at once while a document is
    // open go beside it, as NAME-2.pdf and so on. The path is the machine's.
    explicit QtPrinter(QString pdfFile = {});
    // Ends the document. One that outlives the application is lost: nothing can be painted any more.
    ~QtPrinter() override;

    // A document that the printer refuses half way is given up: what is printed next begins another. One that
    // is open when the orientation changes goes on with a new page.
    void print(const QString& text) override;
    void endDocument() override;
    bool hasOpenDocument() const override { return m_document != nullptr; }
    void printAtOnce(const QStringList& lines) override;
    Orientation orientation() const override { return m_orientation; }
    void setOrientation(Orientation orientation) override { m_orientation = orientation; }
    Paper paper() const override;
    PrintEnd printPages(PrintedPages& pages, const std::function<bool(int, int)>& progress) override;

private:
    class Document;

    QString fileBeside();
    PrintChoice intoFile(PrintedPages& pages);
    std::optional<PrintChoice> asked(PrintedPages& pages); // nothing when nobody wants to print

    Orientation m_orientation = Orientation::Portrait;
    QString m_pdfFile;
    int m_beside = 0; // documents that were printed beside the open one
    std::unique_ptr<Document> m_document;
    mutable PrinterPaper m_paper; // asks again when its answer is old
};

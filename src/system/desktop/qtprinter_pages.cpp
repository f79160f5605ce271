// Prints pages as a document of their own.
#include "base/runtimeerror.h"
#include "platform/printedpages.h"
#include "system/desktop/pagesprint.h"
#include "system/desktop/plainpointer.h"
#include "system/desktop/printerturn.h"
#include "system/desktop/qtprinter.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QPrintDialog>
#include <QPrinter>

namespace {

void setUp(QPrinter& printer, const PrintedPages& pages, const Paper& paper)
{
    printer.setDocName(pages.title());
    printer.setPageSize(QPageSize(paper.size, QPageSize::Point));
    printer.setPageOrientation(pages.isWide() ? QPageLayout::Landscape : QPageLayout::Portrait);
    printer.setPageMargins((pages.isWide() ? PrinterPaper::turned(paper) : paper).margins,
                           QPageLayout::Point);
}

// Pages and copies stand in the dialog's lower half, which is folded up at first.
void unfold(QPrintDialog& dialog)
{
    const auto* box = dialog.findChild<QDialogButtonBox*>();
    const QList<QAbstractButton*> buttons = box ? box->buttons() : QList<QAbstractButton*>();
    for (QAbstractButton* button : buttons)
        if (box->buttonRole(button) == QDialogButtonBox::ResetRole)
            button->click();
}

bool acceptedInDialog(QPrinter& printer, int pages)
{
    const PlainPointer pointer;
    QPrintDialog dialog(&printer, QApplication::activeWindow());
    dialog.setObjectName(QStringLiteral("PrintDialog"));
    dialog.setOptions(QPrintDialog::PrintToFile | QPrintDialog::PrintPageRange |
                      QPrintDialog::PrintCollateCopies | QPrintDialog::PrintShowPageSize);
    dialog.setMinMax(1, pages);
    dialog.setFromTo(1, pages);
    dialog.setPrintRange(QPrintDialog::AllPages);
    unfold(dialog);
    return dialog.exec() == QDialog::Accepted;
}

} // namespace

Paper QtPrinter::paper() const
{
    return m_pdfFile.isEmpty() ? m_paper.paper() : PrinterPaper::ofLocale();
}

PrintEnd QtPrinter::printPages(PrintedPages& pages, const std::function<bool(int, int)>& progress)
{
    const std::optional<PrintChoice> choice = m_pdfFile.isEmpty() ? asked(pages) : intoFile(pages);
    return choice ? printChosenPages(*choice, pages, progress) : PrintEnd::Cancelled;
}

PrintChoice QtPrinter::intoFile(PrintedPages& pages)
{
    const PrinterTurn turn(PrinterTurn::kPatience);
    QPrinter file(QPrinter::HighResolution);
    file.setOutputFileName(fileBeside());
    setUp(file, pages, PrinterPaper::ofLocale());
    return choiceOf(file, pages.layOut(PrinterPaper::of(file.pageLayout())));
}

std::optional<PrintChoice> QtPrinter::asked(PrintedPages& pages)
{
    if (!m_paper.isKnown(PrinterTurn::kPatience)) // the dialog would not come up
        throw RunTimeError(ErrorNumber::PrinterError);
    const PrinterTurn turn(PrinterTurn::kPatience);
    QPrinter printer(QPrinter::HighResolution);
    setUp(printer, pages, m_paper.paper());
    const Paper first = PrinterPaper::of(printer.pageLayout());
    const int count = pages.layOut(first);
    if (!acceptedInDialog(printer, count))
        return {};
    const Paper chosen = PrinterPaper::of(printer.pageLayout());
    return choiceOf(printer, chosen == first ? count : pages.layOut(chosen));
}

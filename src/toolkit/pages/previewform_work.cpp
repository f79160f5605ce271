// Prints and exports, with progress.
#include "platform/dialogs.h"
#include "platform/printer.h"
#include "toolkit/pages/exportchoice.h"
#include "toolkit/pages/openedreport.h"
#include "toolkit/pages/previewform.h"
#include "toolkit/pages/reportpages.h"
#include "toolkit/pages/workbar.h"

#include <QAction>

// While pages are printed or exported they stay as they are. What was told of former work is no more said.
class PreviewForm::Working {
public:
    Working(PreviewForm& form, const QString& text) : m_form(form)
    {
        form.tell({});
        form.workBar->begin(text);
        enable(false);
    }
    ~Working()
    {
        m_form.workBar->end();
        enable(true);
    }
    Working(const Working&) = delete;
    Working& operator=(const Working&) = delete;

    bool goesOn(double share) { return m_form.workBar->goesOn(share, m_form.program()) && !m_form.closing(); }

private:
    void enable(bool enabled)
    {
        for (QAction* action : {m_form.actPrint, m_form.actExport, m_form.actRefresh})
            action->setEnabled(enabled);
    }

    PreviewForm& m_form;
};

void PreviewForm::actPrint_Triggered()
{
    ReportPages pages(m_opened->report, m_widths);
    Working working(*this, tr("Printing"));
    const PrintEnd end = m_printer.printPages(
        pages, [&](int done, int all) { return working.goesOn(static_cast<double>(done) / all); });
    if (closing())
        return;
    if (end == PrintEnd::Printed) {
        changeLayout(pages.takeLayout());
        tell(tr("Printed"));
    } else if (workBar->isCancelled()) {
        tell(tr("Printing was cancelled"));
    }
}

void PreviewForm::actExport_Triggered()
{
    const std::optional<ExportChoice> choice = askForExport(dialogs(), m_files, m_design.fileName());
    if (!choice || closing())
        return;
    Working working(*this, tr("Exporting"));
    const bool isDone = exportReport({m_opened->report, *m_opened->layout, m_widths}, choice->kind, m_files,
                                     choice->path, [&](double share) { return working.goesOn(share); });
    if (!closing())
        tell(isDone ? tr("Exported to %1").arg(choice->path) : tr("The export was cancelled"));
}

#include "archive/reports/archivereport.h"

namespace {

ReportDesign withHint(ReportDesign design)
{
    design.hint = ArchiveReport::tr("No records. Scan a disk first, with “Scan” in the main window.");
    return design;
}

} // namespace

ArchiveReport::ArchiveReport(ArchiveContext& context, ReportDesign design, DataCommand command)
    : PreviewForm(PreviewSeams{context.platform.dialogs, context.platform.program, context.platform.files,
                               context.platform.printer},
                  withHint(std::move(design))),
      m_context(context), m_command(std::move(command))
{
}

CommandRows ArchiveReport::rowsOfNow() const
{
    return rowsOfCommand(m_command, m_context.store, m_context.platform.drives);
}

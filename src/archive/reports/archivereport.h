// Is the preview of a report over the archive: it reads the rows of a command.
#pragma once

#include "archive/core/archivecontext.h"
#include "archive/reports/datacommands.h"
#include "toolkit/pages/previewform.h"

class ArchiveReport : public PreviewForm {
    Q_OBJECT

public:
    ArchiveReport(ArchiveContext& context, ReportDesign design, DataCommand command);

protected:
    CommandRows rowsOfNow() const; // throws as rowsOfCommand does

private:
    ArchiveContext& m_context;
    DataCommand m_command;
};

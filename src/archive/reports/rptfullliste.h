// Lists the whole archive, grouped by disk and file, with album and year.
#pragma once

#include "archive/reports/archivereport.h"

class rptFullListe : public ArchiveReport {
    Q_OBJECT

public:
    explicit rptFullListe(ArchiveContext& context);

protected:
    std::unique_ptr<ReportRows> readRows() override;
};

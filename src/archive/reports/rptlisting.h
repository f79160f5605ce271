// Lists the whole archive, a line for each song.
#pragma once

#include "archive/reports/archivereport.h"

class rptListing : public ArchiveReport {
    Q_OBJECT

public:
    explicit rptListing(ArchiveContext& context);

protected:
    std::unique_ptr<ReportRows> readRows() override;
};

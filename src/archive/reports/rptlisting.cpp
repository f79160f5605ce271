#include "archive/reports/rptlisting.h"

#include "archive/reports/filerows.h"
#include "archive/reports/reportdesigns.h"

rptListing::rptListing(ArchiveContext& context)
    : ArchiveReport(context, reportdesigns::rptListing(), datacommands::FullListe_Grouping())
{
}

std::unique_ptr<ReportRows> rptListing::readRows()
{
    return std::make_unique<FileRows>(rowsOfNow());
}

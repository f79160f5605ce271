#include "archive/reports/rptfullliste.h"

#include "archive/reports/filerows.h"
#include "archive/reports/reportdesigns.h"

rptFullListe::rptFullListe(ArchiveContext& context)
    : ArchiveReport(context, reportdesigns::rptFullListe(), datacommands::FullListe_Grouping())
{
}

std::unique_ptr<ReportRows> rptFullListe::readRows()
{
    return std::make_unique<FileRows>(rowsOfNow());
}

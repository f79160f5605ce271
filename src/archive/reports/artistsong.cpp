#include "archive/reports/artistsong.h"

#include "archive/reports/artistrows.h"
#include "archive/reports/reportdesigns.h"

ArtistSong::ArtistSong(ArchiveContext& context)
    : ArchiveReport(context, reportdesigns::ArtistSong(), datacommands::SelectAllSortOnArtist())
{
}

std::unique_ptr<ReportRows> ArtistSong::readRows()
{
    return std::make_unique<ArtistRows>(rowsOfNow());
}

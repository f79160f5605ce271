// Lists artists and their songs in the order of the artists.
#pragma once

#include "archive/reports/archivereport.h"

class ArtistSong : public ArchiveReport {
    Q_OBJECT

public:
    explicit ArtistSong(ArchiveContext& context);

protected:
    std::unique_ptr<ReportRows> readRows() override;
};

// Are the rows of a list of artists, in the order of the command, with a bookmark for each first letter.
#pragma once

#include "archive/reports/storedrows.h"

class ArtistRows : public StoredRows {
public:
    // The artist is among the columns that are shown.
    ArtistRows(CommandRows rows, const QStringList& columns, int artist);

    QStringList bookmarks(int row) const override;

private:
    QString letterOf(int row) const;

    int m_artist;
};

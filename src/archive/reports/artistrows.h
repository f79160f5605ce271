// Are the rows of a list of artists, in the order of the command, with a bookmark for each first letter.
#pragma once

#include "archive/reports/storedrows.h"

#include <QCollator>

// Names the letter under which an artist is looked for: one with an accent goes with the bare one, unless the
// locale has it for a letter of its own, behind the others. All digits are one, and all other signs.
QString indexLetter(const QString& artist, const QCollator& collator);

class ArtistRows : public StoredRows {
public:
    explicit ArtistRows(CommandRows rows); // artist and song are shown

    QStringList bookmarks(int row) const override;

private:
    QCollator m_collator;
};

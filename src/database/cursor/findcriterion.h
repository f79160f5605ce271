// Reads what a cursor's find looks for, "fldSong like '*beat*'", where "*" stands for any characters, or
// "fldSong = 'Beat'".
#pragma once

#include "database/cursor/rowstore.h"

#include <QString>

#include <functional>

struct FindCriterion {
    QString field;
    std::function<bool(RowStore::Cell)> fits; // case does not count; a null never fits
};

// The text between the apostrophes stands as it is: one more apostrophe makes the criterion invalid. Throws
// RunTimeError kBadCriterion.
FindCriterion parseFindCriterion(const QString& text);

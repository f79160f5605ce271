// Knows the commands of the archive's two data environments and carries them out.
#pragma once

#include "archive/core/archivestore.h"
#include "archive/reports/storedrows.h"

class Drives;

struct DataCommand {
    QString name;
    DataEnvironment ArchiveStore::*environment; // whose connection it goes through
    QString text;
    QString blanksFirst{}; // the column by which its text orders the rows, those without a value before all
};

namespace datacommands {

DataCommand FullListe_Grouping(); // the whole table, grouped by disk and path
DataCommand SelectAll();          // the whole table
DataCommand SelectAllSortOnArtist();

} // namespace datacommands

// The rows are those of this moment. A shaped command's children follow one another parent by parent, in the
// order in which the parents first appear. Throws RunTimeError as Connection does, kStatementError for a
// shaped command that is none, kItemNotFound when it names a column that the children do not have.
CommandRows rowsOfCommand(const DataCommand& command, ArchiveStore& store, Drives& drives);

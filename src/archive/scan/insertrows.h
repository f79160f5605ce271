// Turns the rows of the reviewed result into records of the archive.
#pragma once

#include "archive/core/archivecontext.h"
#include "archive/scan/importview.h"

#include <QStringList>

class Grid;

// Runs one INSERT statement for each row of the grid, on a connection of its own, and writes one line for
// each into the trace file. Statements become durable in groups, the last of them before each progress that
// is shown; a failing row ends the import with a message, what was inserted before stays; so does another
// program's lock that lasts for ten seconds in all. It ends early, in good order and without a word, when the
// program is ending.
void InsertGridRows(ArchiveContext& context, Grid& grid, ImportView& view);

// Makes "'a', ' ', 'c'" of the current row; an empty value becomes a blank because adjacent apostrophes are
// parted. Values are not escaped.
QString valueList(const QStringList& values);

// Makes "a;b; c", values parted by ";", each at least two characters wide, with the line's end.
QString traceLine(const QStringList& values);

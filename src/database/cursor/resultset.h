// Holds the rows of one query, fetched whole, each with what it takes to find it again in the table.
#pragma once

#include "database/cursor/rowstore.h"

#include <QStringList>

#include <cstdint>
#include <vector>

class Connection;

struct ResultSet {
    QStringList names; // of the columns
    RowStore cells;
    std::vector<int> order; // the cells' rows as the statement orders them

    // Rows of a statement that takes its rows one for one from the table MP3 can be changed. Each has its row
    // number, which means the same row as long as the archive file is the same (Connection::fileNumber).
    bool changeable = false;
    std::vector<std::int64_t> rowNumbers; // by the cells' rows
    QStringList restNames;                // the table's columns that are not among the names
    std::vector<std::size_t> rests;       // what tells the values of those, by the cells' rows
    int fileNumber = 0;
};

// Is the same for the same values of the columns that are not shown, in their order.
std::size_t restOf(const std::vector<RowStore::Cell>& cells);

// Throws RunTimeError as Connection does; a second statement in the text, or one that returns no columns, is
// refused before it runs (kStatementError).
ResultSet fetchRows(Connection& connection, const QString& statement);
// Does the same for rows that are never changed, without what it takes to find them again.
ResultSet fetchRowsToRead(Connection& connection, const QString& statement);

// Reads the rows of a table straight from the archive's pages: a third of the time that SQLite takes to step
// through them.
//
// The format of the file is the one at https://www.sqlite.org/fileformat2.html. Only what a plain table of
// texts is made of is read; anything else, damage above all, is left to SQLite, which knows what to make of
// it and how to tell.
#pragma once

#include "database/sql/rowsearch.h"

#include <cstdint>
#include <functional>

struct sqlite3;

// Sees each row once, in the order of the row numbers; the cells are valid during the call only.
using RowVisitor = std::function<void(std::int64_t rowNumber, const std::vector<RowSearch::Cell>& cells)>;

class TableReader {
public:
    // The connection must have no transaction open; the table is locked against writers while it is read.
    explicit TableReader(sqlite3* database) : m_database(database) {}

    // Names the columns in their order; it is empty when the table is not one that can be read here.
    std::vector<QByteArray> columns() const;

    // Is false as soon as something is met that is not read here; what was seen up to then is to be
    // forgotten.
    bool read(const RowVisitor& visit) const;

private:
    sqlite3* m_database;
};

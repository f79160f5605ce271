// Are the rows of a report as they were when it was opened, in memory.
#pragma once

#include "database/cursor/rowstore.h"
#include "toolkit/pages/reportrows.h"

#include <vector>

// Is what a command gave, in the order of the report.
struct CommandRows {
    QStringList names; // of the columns
    RowStore cells;
    std::vector<bool> groups{}; // whether one begins with the row; empty for a command without groups
};

// Case does not count. Throws RunTimeError kItemNotFound where there is none.
int columnOf(const QStringList& names, const QString& name);

// Shows those columns of the rows.
class StoredRows : public ReportRows {
public:
    StoredRows(CommandRows rows, const QStringList& columns); // throws as columnOf does

    int count() const override { return m_rows.cells.rows(); }
    Cell cell(int row, int column) const override
    {
        return m_rows.cells.cell(row, m_columns[static_cast<std::size_t>(column)]);
    }
    bool isForThreads() const override { return true; }
    bool beginsGroup(int row) const override
    {
        return !m_rows.groups.empty() && m_rows.groups[static_cast<std::size_t>(row)];
    }
    QStringList bookmarks(int) const override { return {}; }

protected:
    QString text(int row, int column) const; // empty for a null

private:
    CommandRows m_rows;
    std::vector<int> m_columns;
};

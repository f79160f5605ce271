// Are the rows of a report in the order of the report. They stand as long as the report is open.
#pragma once

#include <QByteArrayView>
#include <QStringList>

#include <optional>

class ReportRows {
public:
    using Cell = std::optional<QByteArrayView>; // UTF-8, which may be damaged; nothing stands for a null

    virtual ~ReportRows() = default;

    // Rows and columns count from 0 and must be there.
    virtual int count() const = 0;
    virtual Cell cell(int row, int column) const = 0;
    // Is true where several threads may ask for cells at once.
    virtual bool isForThreads() const { return false; }
    // Tells whether a group begins with the row; one without groups has none.
    virtual bool beginsGroup(int row) const = 0;
    // Returns the bookmarks that begin with the row, the outermost first; empty where the one before goes on.
    // A list shorter than the one before closes the inner ones.
    virtual QStringList bookmarks(int row) const = 0;
};

// Holds what the program's grids have in common.
#pragma once

#include <QString>

#include <functional>

class QHeaderView;
class QTableView;

namespace gridlook {

// Makes a cell's text as it is painted: without the blanks that tags are padded with, control characters as
// blanks, and no longer than any column can be wide.
QString shownText(QString text);

void setUp(QTableView& view);
// The view owns them.
void setHeadings(QTableView& view, QHeaderView* headings);

// Returns a width in pixels that is enough for the heading and for the texts of these rows, within limits
// that only the user's hand exceeds.
int columnWidth(const QTableView& view, int column, int firstRow, int endRow,
                const std::function<QString(int row, int column)>& textAt);

constexpr int kMeasuredRows = 60;    // of all rows measuring would cost more than reading them
constexpr int kNarrowestColumn = 64; // pixels

} // namespace gridlook

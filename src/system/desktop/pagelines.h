// Makes lines of a page on which every character is as wide as the next.
#pragma once

#include <QString>
#include <QStringList>

namespace pagelines {

// Returns the lines with blanks in place of tabs and control characters. Neighbouring lines with the same
// number of tabs are a table: its columns line up, as narrow as they must be for the page; a cell too wide
// for its column moves what is behind it. A line with tabs of its own has a stop at every eighth character.
QStringList withoutTabs(const QStringList& lines, int pageWidth);

// Parts the line in pieces no longer than the page's width, broken at a blank where there is one.
QStringList broken(const QString& line, int pageWidth);

// Tells whether every character is Latin, so that a monospaced font has it in its own width.
bool isPlain(QStringView line);

} // namespace pagelines

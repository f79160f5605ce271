// Tells which files a file dialog offers: it makes of the program's filter text what the toolkit's dialog
// takes.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

// Is one choice of a file dialog.
struct NameFilter {
    QString text{};         // as the user sees it
    QStringList patterns{}; // with "*" and "?"; never empty, "*" for every file
};

// Takes "Pictures|*.BMP;*.GIF|All|*.*", texts and their patterns. A text without a pattern offers every file.
std::vector<NameFilter> nameFilters(const QString& filter);

// Serves QFileDialog with HideNameFilterDetails, which then shows the text alone, runs of blanks as one.
QString toolkitFilter(const NameFilter& filter);

// Returns "M3U" when the first pattern is "*.M3U", and nothing when it leaves the extension open.
QString firstExtension(const NameFilter& filter);

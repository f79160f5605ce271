// Writes a report into a file: as pages (PDF), as one page of the web (HTML), as values (CSV).
#pragma once

#include "toolkit/pages/exportedreport.h"

#include <QString>

#include <functional>

class Files;

enum class ExportKind { Pdf, Html, Csv };

// Progress is told the share that is done, 0 to 1, many times a second; false ends the work. It is false when
// the work was ended. Throws RunTimeError as Files::beginReplacement does. After both there is no new file,
// and an old one is as it was.
bool exportReport(const ExportedReport& what, ExportKind kind, Files& files, const QString& path,
                  const std::function<bool(double)>& progress);

// The first of the archive's reports over the benchmarks' archive, as a preview holds it.
#pragma once

#include "archive/reports/datacommands.h"
#include "archive/reports/filerows.h"
#include "archive/reports/reportdesigns.h"
#include "bench/support/archivedata.h"
#include "system/desktop/qtprogram.h"
#include "system/files/systemfiles.h"
#include "toolkit/pages/fontwidths.h"
#include "toolkit/pages/reportlayout.h"

#include <optional>

struct OpenReport {
    static constexpr int kAllRows = -1;

    explicit OpenReport(BenchArchive& archive, int limit = kAllRows)
        : program(QStringLiteral("P:"),
                  {QStringLiteral("Songbin"), QStringLiteral("0.0.0"), QStringLiteral("Songbin")}),
          files(archive.drives()), store(files, program, {})
    {
        DataCommand command = datacommands::FullListe_Grouping();
        if (limit != kAllRows)
            command.text.replace(QStringLiteral("`MP3`"), QStringLiteral("`MP3` LIMIT %1").arg(limit));
        store.DataEnvironment1.connectionText = archive.connectionText();
        rows.emplace(rowsOfCommand(command, store, archive.drives()));
        report.rows = &*rows;
        layOut();
    }

    void layOut() { layout.emplace(report, widths, Paper{{842, 595}}); }

    QtProgram program;
    SystemFiles files;
    ArchiveStore store;
    std::optional<FileRows> rows;
    Report report{.design = reportdesigns::rptListing(),
                  .date = QStringLiteral("Sunday, 22 November 2026"),
                  .rows = nullptr};
    FontWidths widths;
    std::optional<ReportLayout> layout;
};

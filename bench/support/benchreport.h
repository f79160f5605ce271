// A report over the benchmarks' archive, as a preview holds it.
#pragma once

#include "bench/support/archivedata.h"
#include "database/connection/connection.h"
#include "database/cursor/resultset.h"
#include "toolkit/pages/fontwidths.h"
#include "toolkit/pages/report.h"
#include "toolkit/pages/reportlayout.h"
#include "toolkit/pages/reportrows.h"

#include <optional>

class ArchiveRows : public ReportRows {
public:
    explicit ArchiveRows(ResultSet rows) : m_rows(std::move(rows)) {}

    int count() const override { return static_cast<int>(m_rows.order.size()); }
    Cell cell(int row, int column) const override
    {
        return m_rows.cells.cell(m_rows.order[static_cast<std::size_t>(row)], column);
    }
    bool beginsGroup(int) const override { return false; }
    QStringList bookmarks(int) const override { return {}; }

private:
    ResultSet m_rows;
};

inline ReportDesign benchListing()
{
    const auto column = [](int number, int left, int width) {
        return ReportField{.left = left, .width = width, .column = number};
    };
    ReportDesign design;
    design.title = QStringLiteral("Songbin");
    design.columns = {QStringLiteral("fldArtist"), QStringLiteral("fldSong"), QStringLiteral("fldVolum"),
                      QStringLiteral("fldPath")};
    design.reportHeader = {{.fields = {{.text = QStringLiteral("%D")}}}};
    design.pageHeader = {{.fields = {{.text = QStringLiteral("Content of Songbin")}}}, {.isRule = true}};
    design.detail = {
        {.fields = {column(0, 0, 200), column(1, 210, 260), column(2, 480, 110), column(3, 600, 400)}}};
    design.pageFooter = {{.fields = {{.text = QStringLiteral("%p Of %P")}}}};
    design.listed = {0, 1, 2, 3};
    return design;
}

struct OpenReport {
    OpenReport(BenchArchive& archive, const QString& statement) : connection(archive.drives())
    {
        connection.open(archive.connectionText());
        rows.emplace(fetchRows(connection, statement));
        report.rows = &*rows;
        layout.emplace(report, widths, Paper());
    }

    Connection connection;
    std::optional<ArchiveRows> rows;
    Report report{.design = benchListing(), .date = QStringLiteral("22 November 2026"), .rows = nullptr};
    FontWidths widths;
    std::optional<ReportLayout> layout;
};

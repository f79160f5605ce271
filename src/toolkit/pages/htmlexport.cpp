#include "toolkit/pages/htmlexport.h"

#include "toolkit/pages/exportprogress.h"
#include "toolkit/pages/htmltable.h"
#include "toolkit/pages/htmltext.h"
#include "toolkit/pages/piecewriter.h"
#include "toolkit/pages/reportrows.h"

#include <algorithm>

namespace {

// Nothing is fetched and nothing runs, whatever stands in the rows.
constexpr const char* kHead = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta http-equiv="Content-Security-Policy" content="default-src 'none'; style-src 'unsafe-inline'">
<meta name="viewport" content="width=device-width, initial-scale=1">
)";

constexpr const char* kStyle = R"(:root{color-scheme:light dark}
body{margin:2rem auto;padding:0 1.5rem;max-width:72rem;font-family:system-ui,"Segoe UI","DejaVu Sans",sans-serif;line-height:1.35}
header,footer{margin:0 0 1.5rem}
header div,footer div{display:flex;justify-content:space-between;align-items:baseline;gap:2rem}
footer div{justify-content:center;margin-top:1.5rem}
h1{margin:0;font-size:1.7rem}
p{margin:.2rem 0}
table{width:100%;border-collapse:collapse;table-layout:fixed;font-variant-numeric:tabular-nums}
th,td{padding:0 .8em 0 0;text-align:left;vertical-align:top;font-weight:normal;overflow-wrap:anywhere;white-space:pre-wrap}
tbody{border-bottom:1px solid #8886}
tbody tr:hover{background:#8882}
tr.rule td{height:0;border-bottom:1px solid}
.b{font-weight:bold}
.c{text-align:center}
.r{text-align:right}
)";

constexpr const char* kPaperStyle = R"(@media print{
:root{color-scheme:light}
body{margin:0;padding:0;max-width:none}
thead{display:table-header-group}
tr{break-inside:avoid}
}
)";

constexpr const char* kWidePaper = "@page{size:landscape}\n";
constexpr const char* kGroupsOnPaper = "@media print{tbody{break-inside:avoid}}\n";

class HtmlWriter {
public:
    HtmlWriter(const Report& report, PieceWriter& out)
        : m_report(report), m_values{report.date, report.design.title, {}, {}},
          m_table(report.design, m_values), m_out(out),
          m_groupHeader(m_table.rows(report.design.groupHeader, true)),
          m_detail(m_table.rows(report.design.detail, false)),
          m_groupFooter(m_table.rows(report.design.groupFooter, false))
    {
    }

    void begin()
    {
        m_out.add(kHead);
        m_out.add("<title>" + escaped(m_report.design.title) + "</title>\n<style>\n" + kStyle +
                  m_table.style() + kPaperStyle + (m_report.design.isWide ? kWidePaper : "") +
                  (m_report.design.groupHeader.empty() ? "" : kGroupsOnPaper) +
                  "</style>\n</head>\n<body>\n<header>\n");
        addStrips(m_report.design.reportHeader, largest(m_report.design.reportHeader));
        m_out.add("</header>\n<table>\n" + m_table.columns() + "<thead>\n");
        addBand(m_table.rows(m_report.design.pageHeader, true), 0);
        m_out.add("</thead>\n<tbody>\n");
    }
    void addRow(int row)
    {
        if (m_report.rows->beginsGroup(row))
            beginGroup(row);
        addBand(m_detail, row);
    }
    void end()
    {
        if (m_isInGroup)
            addBand(m_groupFooter, m_report.rows->count() - 1);
        m_out.add("</tbody>\n</table>\n<footer>\n");
        addStrips(m_report.design.reportFooter, 0);
        m_out.add("</footer>\n</body>\n</html>\n");
        m_out.flush();
    }

private:
    static QByteArray escaped(const QString& text) { return htmltext::escaped(text.toUtf8()); }
    static double largest(const ReportBand& band)
    {
        double size = 0;
        for (const ReportStrip& strip : band)
            for (const ReportField& field : strip.fields)
                size = std::max(size, field.font.size);
        return size;
    }

    // A strip's texts stand beside one another; the first text of that size is the page's heading.
    void addStrips(const ReportBand& band, double headingSize)
    {
        for (const ReportStrip& strip : band) {
            m_out.add("<div>");
            for (const ReportField& field : strip.fields) {
                const bool isHeading = headingSize > 0 && field.font.size >= headingSize;
                const QByteArray element = isHeading ? "h1>" : "p>";
                m_out.add('<' + element + escaped(fieldText(field.text, m_values)) + "</" + element);
                headingSize = isHeading ? 0 : headingSize;
            }
            m_out.add("</div>\n");
        }
    }
    void beginGroup(int row)
    {
        if (m_isInGroup) {
            addBand(m_groupFooter, row - 1);
            m_out.add("</tbody>\n<tbody>\n");
        }
        m_isInGroup = true;
        addBand(m_groupHeader, row);
    }
    void addBand(const HtmlBand& band, int row)
    {
        for (const auto& [before, column] : band.cells) {
            m_out.add(before);
            const bool isThere = row < m_report.rows->count();
            htmltext::addContent(m_out, isThere ? m_report.rows->cell(row, column).value_or(QByteArrayView())
                                                : QByteArrayView());
        }
        m_out.add(band.end);
    }

    const Report& m_report;
    FieldValues m_values;
    HtmlTable m_table;
    PieceWriter& m_out;
    HtmlBand m_groupHeader;
    HtmlBand m_detail;
    HtmlBand m_groupFooter;
    bool m_isInGroup = false;
};

} // namespace

bool writeHtml(const Report& report, PieceWriter& out, ExportProgress& progress)
{
    constexpr int kTogether = 64; // rows between two looks at the clock
    HtmlWriter writer(report, out);
    writer.begin();
    const int count = report.rows->count();
    for (int row = 0; row < count; ++row) {
        if (row % kTogether == 0 && !progress.goesOn(double(row) / count))
            return false;
        writer.addRow(row);
    }
    writer.end();
    return true;
}

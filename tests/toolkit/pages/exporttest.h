// What the tests of exports share: rows that mean harm, and a file in memory.
#pragma once

#include "platform/files.h"
#include "tests/support/pagesworld.h"
#include "toolkit/pages/exportprogress.h"
#include "toolkit/pages/piecewriter.h"
#include "toolkit/pages/report.h"

class GatheredFile : public FileReplacement {
public:
    void write(QByteArrayView piece) override
    {
        content += piece;
        ++pieces;
    }
    void commit() override {}

    QByteArray content;
    int pieces = 0;
};

// Bytes that an export has to show and not to obey.
inline std::vector<QByteArray> hostileValues()
{
    return {"two\r\nlines",
            "tab\there",
            QByteArray("nul\0bell\a", 9),
            "escape \x1B[31m",
            "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D 12", // right to left
            "turned \xE2\x80\xAEround",            // overridden
            "e\xCC\x81\xCC\x82 combining",         // two marks on a letter
            "<script>alert('x')</script>&amp;<!--",
            "\" onclick=\"evil()\" 'single'",
            "a, \"b\", c",
            "bad \xFF\xC3 UTF-8 \xED\xA0\x80",
            "=HYPERLINK(\"http://x\")",
            "]]></table></body>",
            QByteArray(100'000, 'l') + "ong",
            "\xF0\x9F\x8E\xB5 note",
            "back\\slash (paren) [bracket]"};
}

// Two columns, "fldVolum" and "fldPath", which are listed the other way round; a group for each volume.
inline ReportDesign smallDesign()
{
    ReportDesign design{.name = QStringLiteral("rptSmall"),
                        .title = QStringLiteral("Small & <Bold>"),
                        .columns = {QStringLiteral("fldVolum"), QStringLiteral("fldPath")}};
    design.reportHeader = {{.fields = {{.text = QStringLiteral("%D")}}},
                           {.fields = {{.text = QStringLiteral("%i"), .font = {18, true}}}}};
    design.pageHeader = {{.fields = {{.text = QStringLiteral("Content"), .font = {12, true}}}},
                         {.isRule = true},
                         {.fields = {{.left = 0, .width = 300, .text = QStringLiteral("Disk:")},
                                     {.left = 300, .width = 700, .text = QStringLiteral("Path:")}}}};
    design.groupHeader = {{.fields = {{.left = 0, .width = 200, .text = QStringLiteral("Volume")},
                                      {.left = 200, .width = 800, .column = 0, .font = {9, true}}}}};
    design.detail = {
        {.fields = {{.left = 0, .width = 300, .column = 0}, {.left = 300, .width = 700, .column = 1}}}};
    design.pageFooter = {{.fields = {{.text = QStringLiteral("%p Of %P")}}}};
    design.reportFooter = {{.fields = {{.text = QStringLiteral("End of report")}}}};
    design.listed = {1, 0};
    return design;
}

struct SmallReport {
    TextRows rows;
    Report report{smallDesign(), QStringLiteral("22 November 2026"), &rows};

    void add(std::optional<QByteArray> volume, std::optional<QByteArray> path)
    {
        rows.rows.push_back({std::move(volume), std::move(path)});
    }

    // Returns the content, or "ended". Progress is told without a pause: a quick machine ends where a slow
    // one does.
    template <typename Write>
    QByteArray written(
        Write&& write, const std::function<bool(double)>& told = [](double) { return true; })
    {
        GatheredFile file;
        PieceWriter out(file);
        ExportProgress progress(told, 0);
        return write(report, out, progress) ? file.content : QByteArray("ended");
    }
};

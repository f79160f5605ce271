#include "toolkit/pages/csvexport.h"

#include "toolkit/pages/bytewords.h"
#include "toolkit/pages/exportprogress.h"
#include "toolkit/pages/piecewriter.h"
#include "toolkit/pages/report.h"
#include "toolkit/pages/reportrows.h"

#include <cstring>

namespace {

// Tells whether a value can stand without quotes.
bool isPlain(QByteArrayView value)
{
    return !value.isEmpty() && bytewords::none(value, [](bytewords::Word bytes) {
        return bytewords::less(bytes, ' ') | bytewords::equal(bytes, '"') | bytewords::equal(bytes, ',');
    });
}

void addQuoted(PieceWriter& out, QByteArrayView value)
{
    out.add('"');
    while (!value.isEmpty()) {
        const void* const quote = std::memchr(value.data(), '"', static_cast<std::size_t>(value.size()));
        const qsizetype length = quote ? static_cast<const char*>(quote) - value.data() + 1 : value.size();
        out.add(value.first(length));
        if (quote)
            out.add('"');
        value = value.sliced(length);
    }
    out.add('"');
}

void addValue(PieceWriter& out, QByteArrayView value)
{
    if (isPlain(value))
        out.add(value);
    else
        addQuoted(out, value);
}

void addHeader(PieceWriter& out, const ReportDesign& design)
{
    for (std::size_t i = 0; i < design.listed.size(); ++i) {
        if (i > 0)
            out.add(',');
        addValue(out, design.columns.value(design.listed[i]).toUtf8());
    }
    out.add("\r\n");
}

void addRow(PieceWriter& out, const Report& report, int row)
{
    const std::vector<int>& listed = report.design.listed;
    for (std::size_t i = 0; i < listed.size(); ++i) {
        if (i > 0)
            out.add(',');
        if (const ReportRows::Cell cell = report.rows->cell(row, listed[i]))
            addValue(out, *cell);
    }
    out.add("\r\n");
}

} // namespace

bool writeCsv(const Report& report, PieceWriter& out, ExportProgress& progress)
{
    constexpr int kTogether = 64; // rows between two looks at the clock
    addHeader(out, report.design);
    const int count = report.rows->count();
    for (int row = 0; row < count; ++row) {
        if (row % kTogether == 0 && !progress.goesOn(double(row) / count))
            return false;
        addRow(out, report, row);
    }
    out.flush();
    return true;
}

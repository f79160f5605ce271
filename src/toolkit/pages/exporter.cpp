#include "toolkit/pages/exporter.h"

#include "platform/files.h"
#include "toolkit/pages/csvexport.h"
#include "toolkit/pages/exportprogress.h"
#include "toolkit/pages/htmlexport.h"
#include "toolkit/pages/pdfexport.h"
#include "toolkit/pages/piecewriter.h"

namespace {

bool write(const ExportedReport& what, ExportKind kind, PieceWriter& out, ExportProgress& progress)
{
    switch (kind) {
    case ExportKind::Pdf:
        return writePdf(what, out, progress);
    case ExportKind::Html:
        return writeHtml(what.report, out, progress);
    case ExportKind::Csv:
        return writeCsv(what.report, out, progress);
    }
    return false;
}

} // namespace

bool exportReport(const ExportedReport& what, ExportKind kind, Files& files, const QString& path,
                  const std::function<bool(double)>& progress)
{
    const std::unique_ptr<FileReplacement> file = files.beginReplacement(path);
    PieceWriter out(*file);
    ExportProgress told(progress);
    if (!write(what, kind, out, told) || !told.isDone())
        return false;
    file->commit();
    return true;
}

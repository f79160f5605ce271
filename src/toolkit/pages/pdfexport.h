// Writes a report's pages into a PDF file, with their title and bookmarks. No more than a page is held at
// once.
#pragma once

class ExportProgress;
class PieceWriter;
struct ExportedReport;

// It is false when the work was ended.
bool writePdf(const ExportedReport& what, PieceWriter& out, ExportProgress& progress);

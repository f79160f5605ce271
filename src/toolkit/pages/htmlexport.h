// Writes a report as one page of the web that needs nothing else: its bands as the rows of one table, whose
// head is repeated on each sheet of paper. Nothing in a value is obeyed. What stands at the foot of pages is
// left out.
#pragma once

class ExportProgress;
class PieceWriter;
struct Report;

// It is false when the work was ended.
bool writeHtml(const Report& report, PieceWriter& out, ExportProgress& progress);

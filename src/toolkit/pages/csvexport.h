// Writes the values of a report as RFC 4180 has it, in UTF-8: a line of the columns' names, then a line for
// each row. A value stands as its bytes are; an empty text is "", a null is nothing.
#pragma once

class ExportProgress;
class PieceWriter;
struct Report;

// It is false when the work was ended.
bool writeCsv(const Report& report, PieceWriter& out, ExportProgress& progress);

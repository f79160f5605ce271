// Adds bookmarks to a finished PDF file: new objects behind its end, and a catalogue that knows them.
#pragma once

#include "toolkit/pages/pdfpages.h"

#include <QString>

#include <functional>

class ExportProgress;
class PieceWriter;

// In the order of the document. The title is asked for when it is written, so that a million of them are
// never held at once.
struct PdfBookmark {
    int row = 0;   // of the title
    int level = 0; // 0 is the outermost one; at most one more than that of the bookmark before
    int page = 0;  // counted from 0
    float top = 0; // points from the page's lower edge
};

using BookmarkTitle = std::function<QString(const PdfBookmark&)>;

// It is false when the work was ended.
bool writeOutline(const PdfPages& file, const std::vector<PdfBookmark>& bookmarks, const BookmarkTitle& title,
                  PieceWriter& out, ExportProgress& progress);

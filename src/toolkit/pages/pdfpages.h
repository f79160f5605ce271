// Reads from a PDF file, as the toolkit wrote it, what an update of it has to know.
#pragma once

#include <QByteArray>

#include <optional>
#include <vector>

// Holds what was written before the first page and after the last one.
struct PdfEnds {
    QByteArray head;
    QByteArray tail;
    qint64 tailAt = 0; // where the tail begins in the file
};

struct PdfPages {
    int objects = 0; // the number that the next object may have
    int catalog = 0; // numbers of objects
    int info = 0;
    std::vector<int> pages;
    QByteArray catalogEntries; // what stands in its dictionary
    qint64 table = 0;          // where the table of the objects' places begins
};

// Returns nothing for a file that is written in another way.
std::optional<PdfPages> readPdfPages(const PdfEnds& ends);
// Throws RunTimeError for such a file, and for one that has another number of pages.
PdfPages pagesOfPdf(const PdfEnds& ends, int count);

// Is the default printer. What is printed is gathered in one document, which goes to the printer when it is
// ended, at the latest when the program ends.
#pragma once

#include "platform/paper.h"

#include <QString>
#include <QStringList>

#include <functional>

class PrintedPages;

enum class Orientation { Portrait = 1, Landscape = 2 };

enum class PrintEnd { Printed, Cancelled };

class Printer {
public:
    virtual ~Printer() = default;

    // Adds lines to the document, broken to the page's width, with a new page where the last is full; columns
    // are separated by tabs. Throws RunTimeError PrinterError when there is no printer or it refuses.
    virtual void print(const QString& text) = 0;
    virtual void endDocument() = 0;
    virtual bool hasOpenDocument() const = 0; // pages wait for its end
    // Prints the same as a document of its own, which goes to the printer at once; the one that is open goes
    // on as it was. No lines are no document.
    virtual void printAtOnce(const QStringList& lines) = 0;
    // Counts for the pages that are begun from then on, in documents to come too; the page in work keeps its
    // own.
    virtual Orientation orientation() const = 0;
    virtual void setOrientation(Orientation orientation) = 0;

    // Returns the printer's paper, else the locale's.
    virtual Paper paper() const = 0;
    // Asks for printer, pages and copies, then prints the pages as a document of their own, which goes to the
    // printer at once; the one that is open goes on as it was. Progress is called before each page, with
    // those that are done and how many there are, and while the printer takes them; false gives the document
    // up. Throws RunTimeError 482 when the printer refuses, or as Files::copy does where a file takes a
    // printer's place: then nothing is printed.
    virtual PrintEnd printPages(PrintedPages& pages, const std::function<bool(int, int)>& progress) = 0;
};

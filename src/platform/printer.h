// Is the default printer. What is printed is gathered in one document, which goes to the printer when it is
// ended, at the latest when the program ends.
#pragma once

#include <QString>
#include <QStringList>

enum class Orientation { Portrait = 1, Landscape = 2 };

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
};

// The default printer. What is printed is gathered in one document, which goes to the printer when it is
// ended, at the latest when the program ends.
#pragma once

#include <QString>

enum class Orientation { Portrait = 1, Landscape = 2 };

class Printer {
public:
    virtual ~Printer() = default;

    // Adds lines to the document, broken to the page's width, with a new page where the last is full; columns
    // are separated by tabs. Throws RunTimeError 482 when there is no printer or it refuses.
    virtual void print(const QString& text) = 0;
    virtual void endDocument() = 0;
    // Of the pages that are begun from then on, in documents to come too; the page in work keeps its own.
    virtual Orientation orientation() const = 0;
    virtual void setOrientation(Orientation orientation) = 0;
};

// Breaks texts into lines that are as wide as a field at most. Whoever counts lines and whoever shows them
// break here, so both find the same.
//
// A newline ends a line. One that is too long breaks at a blank, that of a path behind a backslash, and
// anywhere where there is none; what belongs to one character on the screen stays together. Blanks at the end
// of a line or of the text are not shown.
#pragma once

#include "toolkit/pages/charactertable.h"

#include <QByteArrayView>
#include <QString>

class LineBreaker {
public:
    struct Line {
        QByteArrayView bytes;
        qsizetype start; // in the text
    };

    // The table must outlive it; the width is in its units.
    LineBreaker(const CharacterTable& table, int width) : m_table(&table), m_width(width) {}

    qsizetype count(QByteArrayView text) const; // at least 1
    template <typename Visit>
    void visit(QByteArrayView text, Visit visit) const;

    static QString shown(QByteArrayView bytes);

private:
    using At = const unsigned char*;

    struct Text {
        At begin;
        At end;
        bool isPath;
    };
    struct Broken {
        At end;  // of what is shown
        At next; // line's begin; the text's end behind the last line
    };

    static Text readable(QByteArrayView text);
    bool fits(QByteArrayView text) const;
    At stepped(At at, At end, int& width) const;
    At filled(At at, At end) const;
    Broken brokenAt(const Text& text, At begin, At full) const;
    Broken line(const Text& text, At begin) const;

    const CharacterTable* m_table;
    int m_width;
};

template <typename Visit>
void LineBreaker::visit(QByteArrayView text, Visit visit) const
{
    const Text whole = readable(text);
    At at = whole.begin;
    do {
        const Broken broken = line(whole, at);
        visit(Line{QByteArrayView(at, broken.end), at - whole.begin});
        at = broken.next;
    } while (at != whole.end);
}

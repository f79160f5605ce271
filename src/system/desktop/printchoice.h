// Is what a person chooses before pages are printed: where, on which paper, which pages, how often.
#pragma once

#include <QPageLayout>
#include <QString>
#include <QStringList>

#include <vector>

class QPrinter;

struct PrintChoice {
    QString printer{}; // its name
    QString file{};    // in place of a printer; a path of this machine
    QString title{};   // of the document
    QPageLayout layout{};
    std::vector<int> pages{}; // as they are painted, counted from 1
    int copies = 1;           // that the printer makes
    bool isCollated = false;
    QStringList options{}; // further ones for the printing system: name, value, name, value
};

// Returns what the desktop's dialog set the printer to, for that many pages.
PrintChoice choiceOf(QPrinter& printer, int pages);

// Makes a report's design of what a grid shows.
#pragma once

#include "toolkit/pages/report.h"

struct GridReport {
    struct Column {
        QString heading;
        int width; // as the grid shows it; only proportions count
    };

    QString name{};    // of the preview window
    QString title{};   // of the document, at the head of the first page
    QString caption{}; // of the preview window
    std::vector<Column> columns{};
    bool isWide = false;
};

// The columns stand side by side with their widths in proportion, but none too narrow to read; the headings
// stand on each page, with the page's number at its foot.
ReportDesign gridDesign(const GridReport& grid);

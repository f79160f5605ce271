// Is what stands on a page: one line of a field's text, or a rule. A line without text is left out.
#pragma once

#include "toolkit/pages/report.h"

#include <QRectF>

struct PageItem {
    QRectF place; // of the line; as wide as the field
    QString text{};
    ReportFont font{};
    FieldAlign align = FieldAlign::Left;
    bool isRule = false;
    const ReportField* field = nullptr; // of the design
    int row = -1;                       // whose column it shows
    int line = 0;                       // of the field, counted from 0
    qsizetype start = 0;                // of the line in the cell of row and field, in bytes
    qsizetype size = 0;                 // of what is shown of it there
};

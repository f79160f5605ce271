// Makes rows of one table of a report's bands. The table has a column wherever a field begins; a field
// reaches to the next one.
#pragma once

#include "toolkit/pages/fieldtext.h"
#include "toolkit/pages/report.h"

#include <QByteArray>

#include <set>
#include <utility>
#include <vector>

// Is a band as it is written: values of columns between texts that are always the same. Each text ends within
// a tag.
struct HtmlBand {
    std::vector<std::pair<QByteArray, int>> cells{}; // what stands before, the column
    QByteArray end{};
};

class HtmlTable {
public:
    // The values of fields' texts are those for the whole report.
    HtmlTable(const ReportDesign& design, FieldValues values);

    QByteArray columns() const; // their widths, as an element
    // The texts of a heading are headings of their columns.
    HtmlBand rows(const ReportBand& band, bool isHeading) const;

    // Tells how a field's letters look: as names of classes, and what these mean.
    static QByteArray classes(const ReportField& field);
    QByteArray style() const;

private:
    void addEdges(const ReportBand& band);
    void addStrip(HtmlBand& out, const ReportStrip& strip, bool isHeading) const;
    int columnsBetween(int left, int right) const;

    FieldValues m_values;
    std::set<int> m_edges{0, 1000}; // in thousandths of the width
    std::set<double> m_sizes;       // of letters, in points
};

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

    QByteArray style() const; // what the names of classes mean

private:
    void addEdges(const ReportBand& band);
    void addStrip(HtmlBand& out, const ReportStrip& strip, bool isHeading) const;
    int columnsBetween(int left, int right) const;
    double usualSize() const;
    QByteArray classOf(const ReportField& field) const;

    FieldValues m_values;
    ReportStrip m_usual;            // looks as most of the table's rows do
    std::set<int> m_edges{0, 1000}; // in thousandths of the width
    std::set<double> m_sizes;       // of letters, in points
    std::set<double> m_spaces;      // above strips, the same
};

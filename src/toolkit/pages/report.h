// Is a report as data: what stands on its pages, and where. It knows no font and no paper: a band is made of
// strips, one below the other, and a strip's fields share its width. Lengths are points, 72 to an inch.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

class ReportRows;

struct ReportFont {
    double size = 9;
    bool bold = false;

    bool operator==(const ReportFont&) const = default;
};

enum class FieldAlign { Left, Center, Right };

// A field shows a column of the rows or a text, in which %D is the date, %i the report's title, %p the page's
// number, %P the number of pages and %% a percent sign. What is wider than the field goes on in the next
// line, and the strip grows with it.
struct ReportField {
    QString name{};
    int left = 0;     // in thousandths of the width between the margins
    int width = 1000; // the same
    QString text{};
    int column = -1; // instead of the text
    ReportFont font{};
    FieldAlign align = FieldAlign::Left;
};

struct ReportStrip {
    double above = 0; // empty space
    std::vector<ReportField> fields{};
    bool isRule = false; // a horizontal line in place of fields
};

// A band without strips has no height.
using ReportBand = std::vector<ReportStrip>;

struct ReportDesign {
    QString name{};       // of the preview window
    QString title{};      // %i, and the document's
    QString caption{};    // of the preview window
    QString exportName{}; // of a file, without its ending; the title's where there is none
    QString hint{};       // what to do when there are no records, in the window's status
    QStringList columns{};
    ReportBand reportHeader{};
    ReportBand pageHeader{};
    ReportBand groupHeader{}; // before each group; shows columns of the group's first row
    ReportBand detail{};      // for each row
    ReportBand groupFooter{};
    ReportBand pageFooter{};
    ReportBand reportFooter{};
    std::vector<int> listed{}; // the columns of a list of values, in their order
    bool isWide = false;       // the paper is turned

    const QString& fileName() const { return exportName.isEmpty() ? title : exportName; }
};

// Is one opening of a report; date is the text for %D.
struct Report {
    ReportDesign design{};
    QString date{};
    const ReportRows* rows = nullptr;
};

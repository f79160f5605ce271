#include "toolkit/pages/gridreport.h"

#include <algorithm>

namespace {

constexpr int kWhole = 1000;
constexpr int kGap = 10;          // between columns
constexpr int kCharacter = 13;    // about as wide as a bold character on a paper that stands
constexpr int kWideCharacter = 9; // the same on one that lies
constexpr int kNarrowest = 60;

// A heading is not broken, unless all columns together want more than there is.
double leastWidth(const GridReport& grid, const GridReport::Column& column)
{
    const int character = grid.isWide ? kWideCharacter : kCharacter;
    const auto heading = static_cast<double>(column.heading.size() * character + kGap);
    return std::min(std::max(heading, double{kNarrowest}), kWhole / static_cast<double>(grid.columns.size()));
}

// Returns where each column begins, and at last where the last one ends.
std::vector<int> beginsOf(const GridReport& grid)
{
    double all = 0;
    for (const GridReport::Column& column : grid.columns)
        all += std::max(column.width, 1);
    std::vector<double> ends{0};
    for (const GridReport::Column& column : grid.columns)
        ends.push_back(ends.back() +
                       std::max(std::max(column.width, 1) * kWhole / all, leastWidth(grid, column)));
    std::vector<int> begins;
    for (const double end : ends)
        begins.push_back(qRound(end * kWhole / ends.back()));
    return begins;
}

ReportStrip stripOf(const GridReport& grid, bool areHeadings)
{
    const std::vector<GridReport::Column>& columns = grid.columns;
    const std::vector<int> begins = beginsOf(grid);
    ReportStrip strip;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const int gap = i + 1 < columns.size() ? kGap : 0;
        ReportField field{.left = begins[i], .width = std::max(begins[i + 1] - begins[i] - gap, 1)};
        if (areHeadings) {
            field.text = QString(columns[i].heading).replace(u'%', QStringLiteral("%%"));
            field.font.bold = true;
        } else {
            field.column = static_cast<int>(i);
        }
        strip.fields.push_back(field);
    }
    return strip;
}

ReportBand reportHeader()
{
    ReportStrip title{
        .fields = {{.width = 690, .text = QStringLiteral("%i"), .font = {16, true}},
                   {.left = 700, .width = 300, .text = QStringLiteral("%D"), .align = FieldAlign::Right}}};
    return {title, {.above = 8}};
}

ReportBand pageFooter()
{
    return {{.above = 6, .isRule = true},
            {.above = 3, .fields = {{.text = QStringLiteral("%p / %P"), .align = FieldAlign::Center}}}};
}

} // namespace

ReportDesign gridDesign(const GridReport& grid)
{
    ReportDesign design{.name = grid.name, .title = grid.title, .caption = grid.caption};
    for (const GridReport::Column& column : grid.columns) {
        design.listed.push_back(static_cast<int>(design.columns.size()));
        design.columns += column.heading;
    }
    design.reportHeader = reportHeader();
    design.pageHeader = {stripOf(grid, true), {.above = 1, .isRule = true}, {.above = 2}};
    design.detail = {stripOf(grid, false)};
    design.pageFooter = pageFooter();
    design.isWide = grid.isWide;
    return design;
}

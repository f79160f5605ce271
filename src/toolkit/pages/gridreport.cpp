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

struct Share {
    double wish;
    double least;
    bool isLeast = false;
};

// Gives those that would have less than they need their least; the others part what is left.
std::vector<double> parted(std::vector<Share> shares)
{
    double room = kWhole;
    double wishes = 0;
    for (const Share& share : shares)
        wishes += share.wish;
    const auto isPoor = [&](const Share& share) {
        return !share.isLeast && share.wish * room < share.least * wishes;
    };
    for (auto poor = shares.begin(); (poor = std::ranges::find_if(shares, isPoor)) != shares.end();) {
        poor->isLeast = true;
        room -= poor->least;
        wishes -= poor->wish;
    }
    std::vector<double> widths;
    for (const Share& share : shares)
        widths.push_back(share.isLeast ? share.least : share.wish * room / wishes);
    return widths;
}

// Returns where each column begins, and at last where the last one ends.
std::vector<int> beginsOf(const GridReport& grid)
{
    std::vector<Share> shares;
    for (const GridReport::Column& column : grid.columns)
        shares.push_back({std::max<double>(column.width, 1), leastWidth(grid, column)});
    std::vector<int> begins{0};
    double end = 0;
    for (const double width : parted(std::move(shares))) {
        end += width;
        begins.push_back(qRound(end));
    }
    begins.back() = kWhole;
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

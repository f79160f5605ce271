#include "toolkit/pages/gridreport.h"

#include <gtest/gtest.h>

namespace {

GridReport reportOf(std::vector<int> widths)
{
    GridReport grid{.name = u"UtvalgPreview"_qs, .title = u"Search result"_qs, .caption = u"c"_qs};
    for (std::size_t i = 0; i < widths.size(); ++i)
        grid.columns.push_back({u"H%1"_qs.arg(i), widths[i]});
    return grid;
}

std::string placesOf(const ReportStrip& strip)
{
    QStringList places;
    for (const ReportField& field : strip.fields)
        places += u"%1+%2"_qs.arg(field.left).arg(field.width);
    return places.join(u' ').toStdString();
}

} // namespace

TEST(GridDesign, columnsAreAsWideInProportionAsTheGridShowsThem)
{
    const ReportDesign design = gridDesign(reportOf({100, 200, 100}));
    EXPECT_EQ(placesOf(design.detail.front()), "0+240 250+490 750+250");
    EXPECT_EQ(placesOf(design.pageHeader.front()), placesOf(design.detail.front()));
}

TEST(GridDesign, aNarrowColumnStaysReadableAndNothingLeavesThePage)
{
    const ReportDesign design = gridDesign(reportOf({5000, 1, 0, 5000}));
    const std::vector<ReportField>& fields = design.detail.front().fields;
    EXPECT_GT(fields[1].width, 40);
    EXPECT_GT(fields[2].width, 40);
    EXPECT_EQ(fields[3].left + fields[3].width, 1000);
}

TEST(GridDesign, aHeadingIsNotBrokenForTheSakeOfAWideColumn)
{
    GridReport grid = reportOf({60, 900, 60, 60, 60, 60, 60});
    grid.columns[0].heading = u"DiskName"_qs;
    const std::vector<ReportField> fields = gridDesign(grid).detail.front().fields;
    EXPECT_GE(fields[0].width, 8 * 13);
    EXPECT_GT(fields[1].width, 400);
    grid.isWide = true;
    EXPECT_LT(gridDesign(grid).detail.front().fields[0].width, fields[0].width);
}

TEST(GridDesign, alsoVeryManyColumnsStandSideBySide)
{
    const ReportDesign design = gridDesign(reportOf(std::vector<int>(60, 80)));
    int end = 0;
    for (const ReportField& field : design.detail.front().fields) {
        EXPECT_GE(field.left, end);
        EXPECT_GT(field.width, 0);
        end = field.left + field.width;
    }
    EXPECT_EQ(end, 1000);
}

TEST(GridDesign, headingsStandOnEachPageAndNumbersAtItsFoot)
{
    GridReport grid = reportOf({10, 10});
    grid.columns[0].heading = u"100%p"_qs;
    const ReportDesign design = gridDesign(grid);
    EXPECT_EQ(design.pageHeader.front().fields[0].text, u"100%%p") << "no placeholder";
    EXPECT_EQ(design.pageHeader.front().fields[1].text, u"H1");
    bool hasNumbers = false;
    for (const ReportStrip& strip : design.pageFooter)
        for (const ReportField& field : strip.fields)
            hasNumbers = hasNumbers || (field.text.contains(u"%p") && field.text.contains(u"%P"));
    EXPECT_TRUE(hasNumbers);
}

TEST(GridDesign, isCalledAsTheGridAndListsItsColumns)
{
    GridReport grid = reportOf({10, 10});
    grid.isWide = true;
    const ReportDesign design = gridDesign(grid);
    EXPECT_EQ(design.name, u"UtvalgPreview");
    EXPECT_EQ(design.title, u"Search result");
    EXPECT_EQ(design.columns.join(u' '), u"H0 H1");
    EXPECT_EQ(design.listed, (std::vector<int>{0, 1}));
    EXPECT_EQ(design.detail.front().fields[1].column, 1);
    EXPECT_TRUE(design.isWide);
}

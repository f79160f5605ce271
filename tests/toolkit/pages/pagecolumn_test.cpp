#include "toolkit/pages/pagecolumn.h"

#include <gtest/gtest.h>

TEST(PageColumn, pagesStandBelowOneAnotherWithAGapRoundEach)
{
    const PageColumn column(100, 3, 10);
    EXPECT_EQ(column.top(1), 10);
    EXPECT_EQ(column.top(2), 120);
    EXPECT_EQ(column.top(3), 230);
    EXPECT_EQ(column.height(), 340);
}

TEST(PageColumn, aGapBelongsToThePageBelowIt)
{
    const PageColumn column(100, 3, 10);
    EXPECT_EQ(column.pageAt(-5), 1);
    EXPECT_EQ(column.pageAt(0), 1);
    EXPECT_EQ(column.pageAt(109), 1);
    EXPECT_EQ(column.pageAt(110), 2);
    EXPECT_EQ(column.pageAt(339), 3);
    EXPECT_EQ(column.pageAt(99999), 3);
}

TEST(PageColumn, thePageThatIsSeenMostIsTheOneOfAView)
{
    const PageColumn column(100, 10, 10);
    EXPECT_EQ(column.mostSeen(0, 80), 1);
    EXPECT_EQ(column.mostSeen(55, 100), 1);
    EXPECT_EQ(column.mostSeen(75, 100), 2);
    EXPECT_EQ(column.mostSeen(0, 250), 1) << "the upper one of two that are seen whole";
}

TEST(PageColumn, atTheEndItIsTheLastPage)
{
    const PageColumn column(100, 3, 10);
    EXPECT_EQ(column.mostSeen(340 - 330, 330), 3);
    EXPECT_EQ(column.mostSeen(0, 340), 1) << "nothing can be scrolled";
}

TEST(PageColumn, holdsMorePagesThanAnIntHasPixels)
{
    const PageColumn column(5000, 1'000'000, 20);
    EXPECT_EQ(column.top(1'000'000), 999'999LL * 5020 + 20);
    EXPECT_EQ(column.pageAt(column.top(999'999)), 999'999);
    EXPECT_EQ(column.mostSeen(column.height() - 700, 700), 1'000'000);
}

TEST(PageColumn, aReportWithoutPagesIsOneEmptyOne)
{
    const PageColumn column(0, 0, 10);
    EXPECT_EQ(column.pages(), 1);
    EXPECT_EQ(column.pageAt(5), 1);
}

#include "system/drives/disctoc.h"

#include <gtest/gtest.h>

using namespace audiodisc;

namespace {

using Tracks = std::vector<Track>;

} // namespace

TEST(DiscToc, aTrackReachesToTheNextAndTheLastToTheLeadOut)
{
    EXPECT_EQ(tracksOf({{{1, 0, true}, {2, 100, true}, {3, 250, true}}, 300}),
              (Tracks{{1, 0, 100}, {2, 100, 150}, {3, 250, 50}}));
    EXPECT_EQ(tracksOf({{{5, 20, true}}, 21}), (Tracks{{5, 20, 1}}));
}

TEST(DiscToc, dataIsLeftOutAndEndsTheTrackBeforeIt)
{
    EXPECT_EQ(tracksOf({{{1, 0, false}, {2, 100, true}, {3, 250, false}, {4, 260, true}}, 300}),
              (Tracks{{2, 100, 150}, {4, 260, 40}}));
    EXPECT_EQ(tracksOf({{{1, 0, false}}, 300}), Tracks());
}

TEST(DiscToc, whatLiesBetweenTwoSessionsBelongsToNoTrack)
{
    const std::vector<TocEntry> entries = {{1, 0, true}, {2, 20000, true}, {3, 50000, false}};
    EXPECT_EQ(tracksOf({entries, 60000, 50000}), (Tracks{{1, 0, 20000}, {2, 20000, 30000 - 11400}}));
    EXPECT_EQ(tracksOf({entries, 60000, 0}), (Tracks{{1, 0, 20000}, {2, 20000, 30000}}));
    // A track that would not be left at all is none.
    EXPECT_EQ(tracksOf({{{1, 0, true}, {2, 11400, false}}, 60000, 11400}), Tracks());
}

TEST(DiscToc, whatIsBeyondTheEndIsLeftOutOrCut)
{
    const std::vector<TocEntry> entries = {{1, 0, true}, {2, 100, true}, {3, 250, true}};
    EXPECT_EQ(tracksOf({entries, 250}), (Tracks{{1, 0, 100}, {2, 100, 150}}));
    EXPECT_EQ(tracksOf({entries, 110}), (Tracks{{1, 0, 100}, {2, 100, 10}}));
    EXPECT_EQ(tracksOf({entries, 60}), (Tracks{{1, 0, 60}}));
    EXPECT_EQ(tracksOf({entries, 0}), Tracks());
    EXPECT_EQ(tracksOf({entries, -5}), Tracks());
}

TEST(DiscToc, oneThatContradictsItselfGivesNoTracks)
{
    for (const std::vector<TocEntry>& entries : {std::vector<TocEntry>{{2, 0, true}, {1, 100, true}},
                                                 {{1, 0, true}, {1, 100, true}},
                                                 {{1, 100, true}, {2, 0, true}},
                                                 {{1, 100, true}, {2, 100, true}},
                                                 {{0, 0, true}},
                                                 {{100, 0, true}},
                                                 {{1, -1, true}},
                                                 {{1, 0, true}, {3, 10, false}, {2, 20, true}}})
        EXPECT_EQ(tracksOf({entries, 1000}), Tracks());
    EXPECT_EQ(tracksOf({}), Tracks());
}

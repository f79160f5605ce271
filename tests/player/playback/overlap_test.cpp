// Plays one entry after the other, with and without an overlap.
#include "tests/player/playback/playbacktest.h"

namespace {

constexpr int kOverlap = 3000;

struct OverlapTest : PlaybackTest {
    OverlapTest() { settings.OverlapMs = kOverlap; }
};

using GapTest = PlaybackTest;

} // namespace

TEST_F(OverlapTest, theNextBeginsThreeSecondsBeforeTheEndWhichIsHeardToItsLastFrame)
{
    addCounters(1, 4000);
    add(u"2.wav"_qs, counter(2, 8000));
    engine.PlayIt();
    EXPECT_EQ(engine.DevIndex(), 0);
    ASSERT_TRUE(hears(2, 2000));
    EXPECT_EQ(engine.DevIndex(), 1);
    ASSERT_TRUE(goesOnUntil([&] { return tape.runs(1).back().end == 4 * kRate; }, 4000));
    goOn(300);
    EXPECT_TRUE(isWhole(tape.runs(1), 4000));
    const Stretch tail = tape.runs(1).front();
    const std::vector<Stretch> next = tape.runs(2);
    ASSERT_EQ(next.size(), 1U);
    EXPECT_EQ(next[0].first, 0U);
    const double due = tail.begin + 4000 - kOverlap;
    EXPECT_GE(next[0].begin, due);
    EXPECT_LE(next[0].begin, due + kLatest);
    EXPECT_NEAR(tail.finish - tail.begin, 4000, 60) << "at its own pace";
    EXPECT_NEAR(inMilliseconds(next[0].end), tape.now() - next[0].begin, 120) << "at its own pace, too";
    EXPECT_TRUE(engine.IsPlaying());
}

TEST_F(OverlapTest, aStopSilencesBoth)
{
    addCounters(2, 4000);
    engine.PlayIt();
    ASSERT_TRUE(hears(2, 2000));
    ASSERT_TRUE(hears(1)) << "the tail";
    engine.StopIt();
    EXPECT_TRUE(isSilent());
    EXPECT_FALSE(engine.IsPlaying());
    engine.PlayIt();
    ASSERT_TRUE(hears(2));
    EXPECT_EQ(tape.runs(2).back().first, 0U) << "from its beginning";
    EXPECT_EQ(engine.DevIndex(), 1);
}

// Kept: behind the last entry the player stops both devices, so the last entry's tail is not heard.
TEST_F(OverlapTest, theEndOfTheListCutsTheLastTail)
{
    addCounters(1, 4000);
    engine.PlayIt();
    ASSERT_TRUE(stops(2000));
    EXPECT_TRUE(isSilent());
    const Stretch only = tape.runs(1).front();
    EXPECT_NEAR(inMilliseconds(only.end), 4000 - kOverlap, kLatest + 100);
    EXPECT_EQ(list.CurTrack(), 1);
}

TEST_F(OverlapTest, nothingOfTheNextIsLostWhenItsDeviceStillPlaysAnOlderTail)
{
    settings.OverlapMs = 700;
    addCounters(4, 1000); // each is over before the one before it has ended
    engine.PlayIt();
    ASSERT_TRUE(stops(4000));
    EXPECT_TRUE(isSilent());
    for (int entry = 1; entry <= 4; ++entry) {
        const std::vector<Stretch> runs = tape.runs(entry);
        ASSERT_EQ(runs.size(), 1U) << entry;
        EXPECT_EQ(runs[0].first, 0U);
        EXPECT_GE(inMilliseconds(runs[0].end), 300);
    }
}

TEST_F(GapTest, withoutAnOverlapNothingIsCutAndNothingIsMixed)
{
    for (int entry = 1; entry <= 4; ++entry)
        add(QString::number(entry) + u".wav"_qs, counter(entry, 600 + 35 * entry));
    engine.PlayIt();
    ASSERT_TRUE(stops(6000));
    EXPECT_TRUE(isSilent());
    for (int entry = 1; entry <= 4; ++entry)
        EXPECT_TRUE(isWhole(tape.runs(entry), 600 + 35 * entry));
    const std::vector<Stretch> runs = tape.runs();
    ASSERT_EQ(runs.size(), 4U);
    for (std::size_t i = 1; i < runs.size(); ++i) {
        EXPECT_GE(runs[i].begin, runs[i - 1].finish - 5);
        EXPECT_LE(runs[i].begin, runs[i - 1].finish + kLatest);
    }
    EXPECT_EQ(engine.DevIndex(), 0);
    EXPECT_EQ(list.CurTrack(), 1);
}

TEST_F(GapTest, aHundredShortEntriesRunThroughWithoutAStall)
{
    constexpr int kEntries = 100;
    const auto lengthOf = [](int entry) { return 40 + entry * 37 % 60; };
    for (int entry = 1; entry <= kEntries; ++entry)
        add(QString::number(entry) + u".wav"_qs, counter(entry, lengthOf(entry)));
    engine.PlayIt();
    ASSERT_TRUE(stops(60'000));
    const std::vector<Stretch> runs = tape.runs();
    ASSERT_EQ(runs.size(), std::size_t{kEntries});
    double longest = 0;
    double sum = 0;
    for (std::size_t i = 0; i < runs.size(); ++i) {
        EXPECT_EQ(runs[i].entry, static_cast<int>(i) + 1);
        EXPECT_TRUE(isWhole({runs[i]}, lengthOf(runs[i].entry)));
        const double gap = i == 0 ? 0 : runs[i].begin - runs[i - 1].finish;
        longest = std::max(longest, gap);
        sum += gap;
    }
    EXPECT_LE(longest, 2 * kLatest);
    EXPECT_LE(sum / (kEntries - 1), kLatest);
    RecordProperty("longest", std::to_string(longest));
    RecordProperty("mean", std::to_string(sum / (kEntries - 1)));
}

// Looks at what follows an entry when a mode is switched on, and at pictures.
#include "tests/player/playback/playbacktest.h"

using ModesTest = PlaybackTest;

TEST_F(ModesTest, anIntroEndsAtTheFirstTickBeyondTenSeconds)
{
    addCounters(2, 12'000);
    engine.IntroMode = true;
    engine.PlayIt();
    ASSERT_TRUE(hears(2, 11'000));
    const std::vector<Stretch> first = tape.runs(1);
    ASSERT_EQ(first.size(), 1U);
    const double after = tape.runs(2).front().begin - first[0].begin;
    EXPECT_GT(after, 10'000);
    EXPECT_LE(after, 10'000 + kLatest);
    EXPECT_EQ(first[0].first, 0U);
    EXPECT_LE(inMilliseconds(tape.runs(1).back().end), 10'000 + kLatest + 100);
}

TEST_F(ModesTest, aRepeatedEntryIsHeardWholeEachTime)
{
    addCounters(2, 300);
    engine.RepeatMode = true;
    engine.PlayIt();
    ASSERT_TRUE(goesOnUntil([&] { return tape.runs().size() == 3; }, 3000));
    engine.RepeatMode = false;
    ASSERT_TRUE(stops(3000));
    const std::vector<Stretch> runs = tape.runs();
    ASSERT_EQ(runs.size(), 4U);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(runs[i].entry, i < 3 ? 1 : 2);
        EXPECT_TRUE(isWhole({runs[i]}, 300));
    }
}

// Kept: chance may choose the entry behind the last one, and that stops the player on the first.
TEST_F(ModesTest, chanceChoosesTheNextAndMayStop)
{
    addCounters(3, 300);
    engine.ShuffleMode = true;
    world.program.nextRandom = 0.6;
    engine.PlayIt();
    ASSERT_TRUE(hears(3, 2000));
    EXPECT_EQ(list.CurTrack(), 3);
    world.program.nextRandom = 0.99;
    ASSERT_TRUE(stops(2000));
    EXPECT_TRUE(isSilent());
    EXPECT_EQ(list.CurTrack(), 1);
    EXPECT_TRUE(tape.runs(2).empty());
    EXPECT_TRUE(isWhole(tape.runs(3), 300));
}

TEST_F(ModesTest, afterATrackTheNextIsOpenAndSilent)
{
    addCounters(3, 400);
    for (const qint16 overlap : {qint16{0}, qint16{150}}) {
        settings.OverlapMs = overlap;
        list.setCurTrack(1);
        engine.StopAfterTrack = true;
        engine.PlayIt();
        ASSERT_TRUE(stops(2000));
        EXPECT_TRUE(isSilent());
        EXPECT_EQ(list.CurTrack(), 2);
        EXPECT_EQ(engine.CurName(), u"2.wav"_qs);
        MediaElement& cued = devices[engine.DevIndex()];
        EXPECT_EQ(cued.length(), 400);
        EXPECT_EQ(cued.position(), 0);
        for (const Stretch& run : tape.runs(2))
            ADD_FAILURE() << testing::PrintToString(run);
    }
}

TEST_F(ModesTest, aPictureIsShownForFiveSecondsWithoutThePauses)
{
    constexpr int kPause = 600;
    add(u"1.jpg"_qs, "no picture, really");
    addCounters(1, 300);
    const auto begin = Clock::now();
    engine.PlayIt();
    EXPECT_EQ(face.covers, QStringList{u"D:\\1.jpg"_qs});
    EXPECT_EQ(engine.TrackLength(), 5000);
    goOn(1000);
    engine.PauseIt();
    const qint32 place = engine.PlayPosMs();
    goOn(kPause);
    EXPECT_EQ(engine.PlayPosMs(), place);
    engine.PauseIt();
    ASSERT_TRUE(hears(2, 5000));
    EXPECT_NEAR(millisecondsSince(begin), 5000 + kPause, 200);
    EXPECT_TRUE(stops(2000));
    EXPECT_TRUE(isWhole(tape.runs(2), 300));
}

TEST_F(ModesTest, aPictureComesWhileTheTailIsHeard)
{
    settings.OverlapMs = 4500;
    addCounters(1, 5000);
    add(u"2.gif"_qs, "no picture, really");
    addCounters(1, 6000);
    engine.PlayIt();
    ASSERT_TRUE(goesOnUntil([&] { return list.CurTrack() == 2; }, 1000));
    EXPECT_EQ(face.covers.size(), 1);
    ASSERT_TRUE(hears(1));
    ASSERT_TRUE(hears(3, 1000)) << "half a second after the picture came";
    EXPECT_EQ(engine.DevIndex(), 0) << "which takes the first one's device";
    EXPECT_EQ(tape.runs(1).size(), 1U);
}

// Jumps, repeats between two points, and pauses.
#include "tests/player/playback/playbacktest.h"

#include <cmath>

namespace {

constexpr int kLong = 30'000;
constexpr double kRounding = 2000.0 / kRate; // a frame is rounded: milliseconds

struct TransportTest : PlaybackTest {
    void playLong()
    {
        addCounters(1, kLong);
        engine.PlayIt();
    }
    Stretch last() { return tape.runs().back(); }
    // Is it heard from there on? What was played just before may still be on its way to the tape.
    testing::AssertionResult jumpsTo(qint32 milliseconds, const std::function<void()>& press)
    {
        const std::size_t before = tape.runs().size();
        press();
        const auto isThere = [&] {
            const std::vector<Stretch> runs = tape.runs();
            return runs.size() > before &&
                   std::abs(inMilliseconds(runs.back().first) - milliseconds) < kRounding;
        };
        if (goesOnUntil(isThere, 1000))
            return testing::AssertionSuccess();
        return testing::AssertionFailure()
               << "not from " << milliseconds << " ms: " << testing::PrintToString(tape.runs());
    }
};

} // namespace

TEST_F(TransportTest, repeatsBetweenItsPointsForSeveralRounds)
{
    constexpr std::size_t kRounds = 4;
    addCounters(1, 2000);
    engine.PlayIt();
    ASSERT_TRUE(comesTo(500, 1000));
    engine.pressAB();
    ASSERT_TRUE(comesTo(900, 1000));
    engine.pressAB();
    const LoopPoints loop = engine.loop();
    EXPECT_EQ(loop.end, engine.PlayPosMs());
    ASSERT_TRUE(goesOnUntil([&] { return tape.runs().size() == kRounds + 1; }, 4000));
    engine.pressAB();
    EXPECT_EQ(engine.loop(), LoopPoints{});
    ASSERT_TRUE(stops(4000)) << "goes on to the end";
    const std::vector<Stretch> runs = tape.runs();
    ASSERT_EQ(runs.size(), kRounds + 1);
    for (std::size_t i = 1; i < runs.size(); ++i) {
        EXPECT_NEAR(inMilliseconds(runs[i].first), loop.start, kRounding);
        const double heard = runs[i].begin - runs[i - 1].begin;
        const double late = heard + inMilliseconds(runs[i - 1].first) - loop.end;
        EXPECT_GE(late, -5) << i;
        EXPECT_LE(late, kLatest) << i;
    }
    EXPECT_EQ(runs.back().end, 2U * kRate);
}

TEST_F(TransportTest, jumpsAndIsHeardFromThere)
{
    playLong();
    ASSERT_TRUE(comesTo(300, 1000));
    EXPECT_TRUE(jumpsTo(engine.PlayPosMs() + 10'000, [&] { engine.Forward(); }));
    ASSERT_TRUE(comesTo(10'400, 1000));
    EXPECT_TRUE(jumpsTo(engine.PlayPosMs() + 10'000, [&] { engine.Forward(); }));
    ASSERT_TRUE(comesTo(20'500, 1000));
    EXPECT_TRUE(jumpsTo(engine.PlayPosMs() - 10'000, [&] { engine.Reverse(); }));
    ASSERT_TRUE(goesOnUntil([&] { return engine.PlayPosMs() < 15'000; }, 1000));
    EXPECT_TRUE(jumpsTo(1234, [&] { engine.PlayFrom(1234); }));
    ASSERT_TRUE(goesOnUntil([&] { return engine.PlayPosMs() < 5000; }, 1000));
    EXPECT_TRUE(jumpsTo(0, [&] { engine.Reverse(); })) << "in the first ten seconds";
    EXPECT_TRUE(jumpsTo(25'000, [&] { engine.PlayFrom(25'000); }));
    ASSERT_TRUE(comesTo(25'100, 1000));
    EXPECT_TRUE(jumpsTo(kLong - 1000, [&] { engine.Forward(); })) << "in the last ten seconds";
    ASSERT_TRUE(stops(2000));
    EXPECT_EQ(last().end, static_cast<quint32>(kLong / 1000 * kRate)) << "up to its last frame";
    EXPECT_NEAR(last().finish - last().begin, 1000, 60);
}

TEST_F(TransportTest, manyJumpsInARowEndWhereTheLastOneGoes)
{
    playLong();
    for (int i = 0; i < 40; ++i) {
        engine.PlayFrom(i * 500);
        if (i % 5 == 0)
            goOn(7);
    }
    EXPECT_TRUE(jumpsTo(7000, [&] { engine.PlayFrom(7000); }));
    goOn(300);
    EXPECT_NEAR(engine.PlayPosMs(), 7250, 150);
    EXPECT_NEAR(inMilliseconds(last().end), 7300, 150);
    EXPECT_TRUE(face.errors.isEmpty());
}

TEST_F(TransportTest, aJumpToTheVeryEndGoesOnToTheNext)
{
    addCounters(2, 1500);
    engine.PlayIt();
    ASSERT_TRUE(comesTo(100, 1000));
    engine.PlayFrom(1500);
    EXPECT_TRUE(hears(2, 1000));
    EXPECT_EQ(list.CurTrack(), 2);
}

TEST_F(TransportTest, losesAndDoublesNothingInAPause)
{
    addCounters(1, 1500);
    engine.PlayIt();
    for (const int after : {130, 1, 251, 10}) {
        goOn(after);
        engine.PauseIt();
        EXPECT_TRUE(engine.IsPaused());
        goOn(110); // up to the next tick
        const qint32 place = engine.PlayPosMs();
        EXPECT_TRUE(isSilent());
        EXPECT_EQ(engine.PlayPosMs(), place) << "the time stands still";
        engine.PlayPause();
    }
    EXPECT_FALSE(engine.IsPaused());
    ASSERT_TRUE(stops(3000));
    EXPECT_TRUE(isWhole(tape.runs(), 1500));
}

// Kept: a jump plays although the player is paused, and does not say so.
TEST_F(TransportTest, aJumpInAPauseIsHeard)
{
    playLong();
    ASSERT_TRUE(comesTo(200, 1000));
    engine.PauseIt();
    ASSERT_TRUE(isSilent());
    EXPECT_TRUE(jumpsTo(engine.PlayPosMs() + 10'000, [&] { engine.Forward(); }));
    EXPECT_TRUE(engine.IsPaused());
    engine.PauseIt();
    EXPECT_FALSE(engine.IsPaused());
    const std::size_t runs = tape.runs().size();
    EXPECT_TRUE(hears(1)) << "goes on";
    EXPECT_EQ(tape.runs().size(), runs) << "without a jump";
    engine.PauseIt();
    EXPECT_TRUE(isSilent());
}

TEST_F(TransportTest, aStopIsSilentAndThenItPlaysFromTheBeginning)
{
    playLong();
    ASSERT_TRUE(comesTo(300, 1000));
    engine.StopIt();
    EXPECT_TRUE(isSilent());
    EXPECT_EQ(devices[0].position(), 0);
    EXPECT_EQ(engine.PlayPosMs(), 0);
    EXPECT_TRUE(jumpsTo(0, [&] { engine.PlayPause(); }));
    EXPECT_TRUE(engine.IsPlaying());
}

TEST_F(TransportTest, goesRoundBeforeTheFirstAndStopsBehindTheLast)
{
    addCounters(3, 1500);
    engine.PrevTrack(); // from entry 1
    EXPECT_EQ(list.CurTrack(), 3);
    EXPECT_TRUE(hears(3));
    engine.NextTrack();
    EXPECT_EQ(list.CurTrack(), 1);
    EXPECT_FALSE(engine.IsPlaying());
    EXPECT_TRUE(isSilent());
    engine.NextTrack();
    EXPECT_TRUE(hears(2));
    EXPECT_TRUE(tape.runs(1).empty());
}

TEST_F(TransportTest, theLongestListIsQuick)
{
    constexpr int kEntries = 32'766;
    constexpr double kQuick = 150;
    addCounters(1, 5000);
    world.directory.write("disk/last.wav", counter(2, 5000));
    const PlaylistEntry first = list.entries()[0];
    {
        const Playlist::Batch batch(list);
        for (int i = 2; i < kEntries; ++i)
            list.add(first.name, first.path);
        list.add(u"last"_qs, u"D:\\last.wav"_qs);
    }
    ASSERT_EQ(list.count(), kEntries);
    EXPECT_LT(timeOf([&] { engine.PlayIt(); }), kQuick);
    EXPECT_TRUE(hears(1, 200));
    EXPECT_LT(timeOf([&] { engine.PrevTrack(); }), kQuick);
    EXPECT_EQ(list.CurTrack(), kEntries);
    EXPECT_TRUE(hears(2, 200));
    EXPECT_LT(timeOf([&] { engine.PrevTrack(); }), kQuick);
    EXPECT_TRUE(hears(1, 200));
    EXPECT_LT(timeOf([&] { engine.NextTrack(); }), kQuick);
    EXPECT_TRUE(hears(2, 200));
    EXPECT_LT(timeOf([&] { engine.NextTrack(); }), kQuick);
    EXPECT_EQ(list.CurTrack(), 1);
    EXPECT_FALSE(engine.IsPlaying());
    EXPECT_TRUE(isSilent());
}

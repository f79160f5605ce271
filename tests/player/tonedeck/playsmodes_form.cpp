// The player's modes, and the lights that tell them.
#include "tests/player/tonedeck/playstest.h"

#include <algorithm>

using PlaysModes = Plays;

// --- modes, lights --------------------------------------------------------------------------------

TEST_F(PlaysModes, withItsLights)
{
    const QList<int> idle{2, 11, 12, 13, 14, 15, 16};
    EXPECT_EQ(lights(), idle);
    const std::vector<std::tuple<int, int, int>> toggles{
        {25, 5, 11}, {26, 6, 12}, {27, 7, 13}, {28, 9, 15}, {9, 10, 16}};
    for (const auto& [code, whileOn, whileOff] : toggles) {
        w().DoIt(code);
        QList<int> expected = idle;
        expected.removeOne(whileOff);
        expected.append(whileOn);
        std::sort(expected.begin(), expected.end());
        EXPECT_EQ(lights(), expected) << code;
        w().DoIt(code);
        EXPECT_EQ(lights(), idle) << code;
    }
}

TEST_F(PlaysModes, withLightsForWhatItDoes)
{
    w().DoIt(12);
    EXPECT_EQ(lights(), (QList<int>{4, 11, 12, 13, 14, 15, 16}));
    EXPECT_EQ(pixel(17, 3), qRgb(255, 0, 0)) << "the fourth";
    EXPECT_EQ(pixel(9, 3), facePixel(9, 3)) << "the second";
    w().DoIt(11);
    EXPECT_EQ(lights(), (QList<int>{3, 4, 11, 12, 13, 14, 15, 16}));
    w().DoIt(10);
    EXPECT_EQ(lights(), (QList<int>{2, 11, 12, 13, 14, 15, 16}));
    w().DoIt(12);
    tickAt(5'000);
    w().DoIt(30);
    EXPECT_EQ(lights(), (QList<int>{4, 8, 11, 12, 13, 15, 16}));
    w().DoIt(12);
    EXPECT_EQ(lights(), (QList<int>{4, 11, 12, 13, 14, 15, 16})) << "a new start has no points";
    tickAt(5'000);
    w().DoIt(31);
    EXPECT_EQ(lights(), (QList<int>{4, 8, 11, 12, 13, 15, 16})) << "B alone";
}

TEST_F(PlaysModes, inItsModes)
{
    w().DoIt(27);
    w().DoIt(12);
    tickAt(60'000);
    EXPECT_EQ(track(), 1) << "repeated";
    w().DoIt(27);
    w().DoIt(25);
    tickAt(10'000);
    EXPECT_EQ(track(), 1);
    tickAt(10'001);
    EXPECT_EQ(track(), 2) << "the intro is over";
    w().DoIt(25);
    w().DoIt(26);
    tickAt(60'000);
    EXPECT_EQ(track(), 3);
    EXPECT_FALSE(playing()) << "stopped behind a track";
    w().DoIt(26);
    w().DoIt(28);
    world.program.nextRandom = 0.4;
    w().DoIt(12);
    tickAt(60'000);
    EXPECT_EQ(track(), 2) << "0.4 * 3 + 1, rounded";
    EXPECT_EQ(world.program.seeded, 1);
}

TEST_F(PlaysModes, withAnOverlapOnTheOtherDevice)
{
    settings.OverlapMs = 3000;
    w().DoIt(12);
    clearNotes();
    tickAt(56'999);
    EXPECT_EQ(both(), QStringList());
    tickAt(57'000);
    EXPECT_EQ(notes(0), QStringList()) << "it plays its tail";
    EXPECT_EQ(notes(1), kStarts);
    EXPECT_EQ(device(1).fileName, u"D:\\Beta.wav"_qs);
    w().DoIt(10);
    EXPECT_EQ(notes(0), kRewinds);
    EXPECT_EQ(notes(1), kRewinds);
}

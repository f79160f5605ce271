// The player's modes, and the lights that tell them.
#include "tests/player/tonedeck/playstest.h"

#include <algorithm>

using PlaysModes = Plays;

// --- modes, lights --------------------------------------------------------------------------------

TEST_F(PlaysModes, withItsLights)
{
    const QList<int> idle{2, 11, 12, 13, 14, 15, 16};
    EXPECT_EQ(lights(), idle);
    const std::vector<std::tuple<Command, int, int>> toggles{{Command::Intro, 5, 11},
                                                             {Command::StopAfterTrack, 6, 12},
                                                             {Command::RepeatTrack, 7, 13},
                                                             {Command::Shuffle, 9, 15},
                                                             {Command::Mute, 10, 16}};
    for (const auto& [command, whileOn, whileOff] : toggles) {
        w().DoIt(command);
        QList<int> expected = idle;
        expected.removeOne(whileOff);
        expected.append(whileOn);
        std::sort(expected.begin(), expected.end());
        EXPECT_EQ(lights(), expected) << codeOf(command);
        w().DoIt(command);
        EXPECT_EQ(lights(), idle) << codeOf(command);
    }
}

TEST_F(PlaysModes, withLightsForWhatItDoes)
{
    w().DoIt(Command::Play);
    EXPECT_EQ(lights(), (QList<int>{4, 11, 12, 13, 14, 15, 16}));
    EXPECT_EQ(pixel(17, 3), qRgb(255, 0, 0)) << "the fourth";
    EXPECT_EQ(pixel(9, 3), facePixel(9, 3)) << "the second";
    w().DoIt(Command::Pause);
    EXPECT_EQ(lights(), (QList<int>{3, 4, 11, 12, 13, 14, 15, 16}));
    w().DoIt(Command::Stop);
    EXPECT_EQ(lights(), (QList<int>{2, 11, 12, 13, 14, 15, 16}));
    w().DoIt(Command::Play);
    tickAt(5'000);
    w().DoIt(Command::LoopStart);
    EXPECT_EQ(lights(), (QList<int>{4, 8, 11, 12, 13, 15, 16}));
    w().DoIt(Command::Play);
    EXPECT_EQ(lights(), (QList<int>{4, 11, 12, 13, 14, 15, 16})) << "a new start has no points";
    tickAt(5'000);
    w().DoIt(Command::LoopEnd);
    EXPECT_EQ(lights(), (QList<int>{4, 8, 11, 12, 13, 15, 16})) << "B alone";
}

TEST_F(PlaysModes, inItsModes)
{
    w().DoIt(Command::RepeatTrack);
    w().DoIt(Command::Play);
    tickAt(60'000);
    EXPECT_EQ(track(), 1) << "repeated";
    w().DoIt(Command::RepeatTrack);
    w().DoIt(Command::Intro);
    tickAt(10'000);
    EXPECT_EQ(track(), 1);
    tickAt(10'001);
    EXPECT_EQ(track(), 2) << "the intro is over";
    w().DoIt(Command::Intro);
    w().DoIt(Command::StopAfterTrack);
    tickAt(60'000);
    EXPECT_EQ(track(), 3);
    EXPECT_FALSE(playing()) << "stopped behind a track";
    w().DoIt(Command::StopAfterTrack);
    w().DoIt(Command::Shuffle);
    world.program.nextRandom = 0.4;
    w().DoIt(Command::Play);
    tickAt(60'000);
    EXPECT_EQ(track(), 2) << "0.4 * 3 + 1, rounded";
    EXPECT_EQ(world.program.seeded, 1);
}

TEST_F(PlaysModes, withAnOverlapOnTheOtherDevice)
{
    settings.OverlapMs = 3000;
    w().DoIt(Command::Play);
    clearNotes();
    tickAt(56'999);
    EXPECT_EQ(both(), QStringList());
    tickAt(57'000);
    EXPECT_EQ(notes(0), QStringList()) << "it plays its tail";
    EXPECT_EQ(notes(1), kStarts);
    EXPECT_EQ(device(1).fileName, u"D:\\Beta.wav"_qs);
    w().DoIt(Command::Stop);
    EXPECT_EQ(notes(0), kRewinds);
    EXPECT_EQ(notes(1), kRewinds);
}

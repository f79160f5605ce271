// Switches the player's modes, and looks at the lights that tell them.
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

#include "player/displays/statelights.h"

#include <QList>

#include <gtest/gtest.h>

namespace {

std::vector<int> shown(const PlayerFlags& flags)
{
    std::vector<int> numbers;
    const auto lights = lightsShown(flags);
    for (std::size_t number = 0; number < lights.size(); ++number)
        if (lights[number])
            numbers.push_back(static_cast<int>(number));
    return numbers;
}

QList<int> marksShown(const PlayerFlags& flags)
{
    QList<int> states;
    for (int state = 0; state <= static_cast<int>(MarkState::Repeat); ++state)
        if (markShown(static_cast<MarkState>(state), flags))
            states += state;
    return states;
}

} // namespace

TEST(StateLights, showTheSecondOfEachPairWhileNothingIsOn)
{
    EXPECT_EQ(shown({}), (std::vector<int>{2, 11, 12, 13, 14, 15, 16}));
}

TEST(StateLights, showTheFirstOfAPairWhileItsFlagIsSet)
{
    EXPECT_EQ(shown({.playing = true}), (std::vector<int>{4, 11, 12, 13, 14, 15, 16}));
    EXPECT_EQ(shown({.playing = true, .paused = true}), (std::vector<int>{3, 4, 11, 12, 13, 14, 15, 16}));
    EXPECT_EQ(shown({.intro = true}), (std::vector<int>{2, 5, 12, 13, 14, 15, 16}));
    EXPECT_EQ(shown({.stopAfterTrack = true}), (std::vector<int>{2, 6, 11, 13, 14, 15, 16}));
    EXPECT_EQ(shown({.repeat = true}), (std::vector<int>{2, 7, 11, 12, 14, 15, 16}));
    EXPECT_EQ(shown({.loopPoint = true}), (std::vector<int>{2, 8, 11, 12, 13, 15, 16}));
    EXPECT_EQ(shown({.shuffle = true}), (std::vector<int>{2, 9, 11, 12, 13, 14, 16}));
    EXPECT_EQ(shown({.mute = true}), (std::vector<int>{2, 10, 11, 12, 13, 14, 15}));
}

TEST(MarkShown, isOneOfThreeForTheTransport)
{
    EXPECT_EQ(marksShown({}), QList<int>{2}) << "stopped";
    EXPECT_EQ(marksShown({.playing = true}), QList<int>{0});
    EXPECT_EQ(marksShown({.playing = true, .paused = true}), QList<int>{1});
    EXPECT_EQ(marksShown({.paused = true}), QList<int>{1});
}

TEST(MarkShown, followsChannelsAndModes)
{
    EXPECT_EQ(marksShown({.channels = ChannelMode::Mono}), (QList<int>{2, 3}));
    EXPECT_EQ(marksShown({.channels = ChannelMode::Stereo}), (QList<int>{2, 4}));
    EXPECT_EQ(marksShown({.shuffle = true}), (QList<int>{2, 5}));
    EXPECT_EQ(marksShown({.repeat = true}), (QList<int>{2, 6}));
}

TEST(ChannelModeOf, isMonoForOneChannelAlone)
{
    EXPECT_EQ(channelModeOf(u"mono"_qs), ChannelMode::Mono);
    for (const char* text : {"stereo", "jstereo", "dualch"})
        EXPECT_EQ(channelModeOf(QString::fromLatin1(text)), ChannelMode::Stereo) << text;
    EXPECT_EQ(channelModeOf({}), ChannelMode::Unknown);
    EXPECT_EQ(channelModeOf(u" "_qs), ChannelMode::Unknown);
}

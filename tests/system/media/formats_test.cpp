#include "tests/system/media/formatrun.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>

namespace {

// Nobody's screen shall show the films.
class FormatTest : public testing::TestWithParam<std::size_t> {
protected:
    static void SetUpTestSuite()
    {
        qunsetenv("DISPLAY");
        s_world = std::make_unique<World>();
    }
    static void TearDownTestSuite()
    {
        s_seen.clear();
        s_world.reset();
    }

    const Format& format() const { return formats()[GetParam()]; }
    // All formats are played when the first test asks.
    const Seen& seen(Way way) const
    {
        if (!s_seen.contains(way))
            s_seen[way] = playAll(*s_world, way);
        return s_seen[way][GetParam()];
    }

private:
    static inline std::unique_ptr<World> s_world;
    static inline std::map<Way, std::vector<Seen>> s_seen;
};

#define REQUIRE_PLAYED(seen)                                                                                 \
    if (!(seen).encoderMissing.empty())                                                                      \
        GTEST_SKIP() << "no file to play, for there is no encoder: " << (seen).encoderMissing;               \
    ASSERT_EQ((seen).failure, "");                                                                           \
    ASSERT_EQ((seen).error, 0) << (seen).message.toStdString()

constexpr double kNever = -1000;
constexpr int kLevelOfNotes = 300;

// Returns where the sound begins, in milliseconds of the recording; encoders blur what is silent just before.
double loudFrom(const Frames& frames, int level = 3000)
{
    const auto loud = [level](const Frame& frame) { return std::abs(int(frame.left)) > level; };
    const auto first = std::find_if(frames.begin(), frames.end(), loud);
    return first == frames.end() ? kNever : double(first - frames.begin()) * 1000 / kFramesPerSecond;
}

// Returns the counted frames from the one with that index on.
Frames countedFrom(qint64 first)
{
    Frames frames = counterFrames(2400);
    frames.erase(frames.begin(), frames.begin() + first);
    return frames;
}

// The reader of AU files takes the header for sound when it seeks: six frames too early.
qint64 framesEarly(const Format& format)
{
    return QByteArray(format.name) == "Au" ? 6 : 0;
}

void expectEndInTime(const Seen& seen, int tail)
{
    const double remaining = seen.length - seen.from;
    ASSERT_TRUE(seen.endAfter) << "never at the end";
    EXPECT_GE(*seen.endAfter, remaining - 5);
    EXPECT_LE(*seen.endAfter - seen.playTook, remaining + tail + 100);
}

TEST_P(FormatTest, OpensWithItsLength)
{
    const Seen& whole = seen(Way::Whole);
    REQUIRE_PLAYED(whole);
    EXPECT_NEAR(whole.length, format().length, format().tolerance);
}

TEST_P(FormatTest, PlaysWithTheClockToTheEnd)
{
    const Seen& whole = seen(Way::Whole);
    REQUIRE_PLAYED(whole);
    EXPECT_NEAR(whole.positionThen, whole.lookedAfter, 60);
    EXPECT_FALSE(whole.wentBack);
    expectEndInTime(whole, format().tail);
}

TEST_P(FormatTest, IsHeardWhole)
{
    const Seen& whole = seen(Way::Whole);
    REQUIRE_PLAYED(whole);
    switch (format().sound) {
    case Format::Sound::Counted:
        EXPECT_TRUE(whole.recorded == countedFrom(0)) << whole.recorded.size() << " frames";
        break;
    case Format::Sound::SilenceThen:
        EXPECT_NEAR(loudFrom(whole.recorded), 1200, 60);
        EXPECT_NEAR(double(whole.recorded.size()) * 1000 / kFramesPerSecond, whole.length, 30);
        break;
    case Format::Sound::Notes:
        EXPECT_NEAR(loudFrom(whole.recorded, kLevelOfNotes), 0, 60);
        break;
    case Format::Sound::None:
        EXPECT_TRUE(whole.recorded.empty());
        break;
    }
}

TEST_P(FormatTest, PlaysFromNearTheEndToTheEnd)
{
    if (!canSeek(format()))
        GTEST_SKIP() << "cannot be sought in: AnimationIsBegunAgainButNotSoughtIn";
    const Seen& last = seen(Way::NearEnd);
    REQUIRE_PLAYED(last);
    expectEndInTime(last, format().tail);
    if (format().sound == Format::Sound::Counted) {
        EXPECT_TRUE(last.recorded == countedFrom(1600 * kFramesPerSecond / 1000 - framesEarly(format())))
            << last.recorded.size() << " frames from "
            << (last.recorded.empty() ? -1 : counted(last.recorded.front()));
    } else if (format().sound != Format::Sound::None) {
        EXPECT_GE(loudFrom(last.recorded, kLevelOfNotes), 0);
    }
}

TEST_P(FormatTest, SeeksToTheRightSound)
{
    if (!canSeek(format()))
        GTEST_SKIP() << "cannot be sought in: AnimationIsBegunAgainButNotSoughtIn";
    const Seen& sought = seen(Way::FromOneSecond);
    REQUIRE_PLAYED(sought);
    EXPECT_NEAR(sought.positionThen, 1000 + sought.lookedAfter, 60);
    EXPECT_FALSE(sought.wentBack);
    if (format().sound == Format::Sound::SilenceThen) {
        EXPECT_NEAR(loudFrom(sought.recorded), 200, 60);
    }
    if (format().sound != Format::Sound::Counted)
        return;
    ASSERT_GE(sought.recorded.size(), std::size_t(kFramesPerSecond / 4));
    const Frames wanted = countedFrom(kFramesPerSecond - framesEarly(format()));
    EXPECT_TRUE(std::equal(sought.recorded.begin(), sought.recorded.end(), wanted.begin()))
        << "from " << counted(sought.recorded.front());
}

INSTANTIATE_TEST_SUITE_P(All, FormatTest, testing::Range(std::size_t(0), formats().size()),
                         [](const auto& place) { return std::string(formats()[place.param].name); });

} // namespace

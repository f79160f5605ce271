#include "player/playback/volumelevel.h"

#include "tests/player/playback/playersettingstest.h"
#include "tests/support/childprocess.h"
#include "tests/support/fakemedia.h"
#include "tests/support/fakes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>

namespace {

struct VolumeLevelTest : testing::Test {
    FakeWaveVolume volume;
    RecordingSettings store;
    FakeProgram program;
    std::optional<VolumeLevel> held{std::in_place, volume, store, program};
    VolumeLevel& level = *held;

    QString noted() { return store.values.value(u"VolumeBeforeMute"_qs); }
    // As a program leaves it that is killed while it is muted.
    void mutedByAKilledOne()
    {
        const QByteArray left = saidByChild([this]() -> QByteArray {
            volume.word = 0x66666666;
            level.toggleMute();
            return noted().toUtf8();
        });
        store.values[u"VolumeBeforeMute"_qs] = QString::fromUtf8(left);
        volume.word = 0;
    }

    // What it is in whole percent.
    int percent() { return static_cast<int>(std::lround(level.value() * 100)); }
};

} // namespace

TEST_F(VolumeLevelTest, isTheSystemsFromZeroToOne)
{
    volume.word = 0;
    EXPECT_FLOAT_EQ(level.value(), 0);
    volume.word = 0xFFFFFFFF;
    EXPECT_NEAR(level.value(), 1, 0.0001);
    volume.word = 0x40000000; // the louder channel counts
    EXPECT_NEAR(level.value(), 0.25, 0.0001);
}

TEST_F(VolumeLevelTest, isSetOnBothChannels)
{
    level.set(0.25F);
    EXPECT_EQ(volume.word >> 16, volume.word & 0xFFFF);
    EXPECT_NEAR(level.value(), 0.25, 0.0001);
    level.set(1);
    EXPECT_EQ(volume.word, 0xFFFFFFFF);
}

TEST_F(VolumeLevelTest, staysBetweenSilenceAndFull)
{
    level.set(7);
    EXPECT_EQ(volume.word, 0xFFFFFFFF);
    level.set(-7);
    EXPECT_EQ(volume.word, 0U);
    level.set(1);
    level.set(std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(volume.word, 0U);
}

TEST_F(VolumeLevelTest, goesInSteps)
{
    level.set(0.5F);
    level.step(5);
    EXPECT_EQ(percent(), 55);
    level.step(-5);
    EXPECT_EQ(percent(), 50);
    level.set(0.95F);
    const std::uint32_t expected = volume.word;
    level.set(1); // reads a little less
    level.step(-5);
    EXPECT_EQ(volume.word, expected);
}

TEST_F(VolumeLevelTest, losesNothingOverManySteps)
{
    level.set(0);
    for (int step = 1; step <= 20; ++step) {
        level.step(5);
        EXPECT_EQ(percent(), 5 * step);
    }
    level.step(5);
    EXPECT_EQ(volume.word, 0xFFFFFFFF) << "not beyond";
    for (int step = 19; step >= 0; --step) {
        level.step(-5);
        EXPECT_EQ(percent(), 5 * step);
    }
    level.step(-5);
    EXPECT_EQ(volume.word, 0U);
}

TEST_F(VolumeLevelTest, isSilentForAWhile)
{
    level.set(0.4F);
    const std::uint32_t before = volume.word;
    EXPECT_FALSE(level.muted());
    level.toggleMute();
    EXPECT_TRUE(level.muted());
    EXPECT_EQ(volume.word, 0U);
    level.toggleMute();
    EXPECT_FALSE(level.muted());
    EXPECT_NEAR(static_cast<double>(volume.word & 0xFFFF), static_cast<double>(before & 0xFFFF), 1);
}

TEST_F(VolumeLevelTest, aStepEndsTheSilenceFromWhereItWas)
{
    level.set(0.4F);
    level.toggleMute();
    level.step(-5);
    EXPECT_FALSE(level.muted());
    EXPECT_EQ(percent(), 35);
    level.toggleMute();
    level.step(5);
    EXPECT_EQ(percent(), 40);
}

TEST_F(VolumeLevelTest, settingEndsTheSilence)
{
    level.set(0.4F);
    level.toggleMute();
    level.set(0.1F);
    EXPECT_FALSE(level.muted());
    level.toggleMute();
    level.toggleMute();
    EXPECT_EQ(percent(), 10);
    level.toggleMute();
    level.set(0); // silent now because it was set so
    EXPECT_FALSE(level.muted());
}

TEST_F(VolumeLevelTest, isNoLongerMutedWhenSomebodyElseMakesItLouder)
{
    level.set(0.4F);
    level.toggleMute();
    volume.word = 0x80008000;
    EXPECT_FALSE(level.muted());
    volume.word = 0;
    EXPECT_FALSE(level.muted()) << "and did not mute it";
    held.reset();
    EXPECT_EQ(volume.word, 0U) << "what somebody else has set stays";
}

TEST_F(VolumeLevelTest, canBeMutedWhereItIsSilentAlready)
{
    level.set(0);
    level.toggleMute();
    EXPECT_TRUE(level.muted());
    level.toggleMute();
    EXPECT_FALSE(level.muted());
    EXPECT_EQ(volume.word, 0U);
}

TEST_F(VolumeLevelTest, leavesTheSystemAsLoudAsItWas)
{
    level.set(0.4F);
    level.toggleMute();
    held.reset();
    EXPECT_NEAR(static_cast<double>(volume.word & 0xFFFF), 0.4 * 65535, 2);
}

TEST_F(VolumeLevelTest, leavesItWhereItIsWhenNotMuted)
{
    level.set(0.4F);
    const std::uint32_t before = volume.word;
    held.reset();
    EXPECT_EQ(volume.word, before);
}

TEST_F(VolumeLevelTest, isNotedAsLongAsItIsMuted)
{
    level.set(0.4F);
    EXPECT_EQ(noted(), QString());
    level.toggleMute();
    EXPECT_TRUE(noted().startsWith(u"0.4"_qs)) << qPrintable(noted());
    level.toggleMute();
    EXPECT_EQ(noted(), QString());
    level.toggleMute();
    level.set(0.1F);
    EXPECT_EQ(noted(), QString());
    level.toggleMute();
    volume.word = 0x80008000; // somebody else
    EXPECT_FALSE(level.muted());
    EXPECT_EQ(noted(), QString());
    level.toggleMute();
    held.reset();
    EXPECT_EQ(noted(), QString());
}

TEST_F(VolumeLevelTest, isNotedBeforeItIsSilent)
{
    struct Watching : FakeWaveVolume {
        void set(std::uint32_t wished) override
        {
            notedAtSilence = wished == 0 ? store->values.value(u"VolumeBeforeMute"_qs) : notedAtSilence;
            FakeWaveVolume::set(wished);
        }
        RecordingSettings* store = nullptr;
        QString notedAtSilence;
    } watching;
    watching.store = &store;
    VolumeLevel watched(watching, store, program);
    watched.toggleMute();
    EXPECT_FALSE(watching.notedAtSilence.isEmpty());
}

TEST_F(VolumeLevelTest, comesBackAfterAProgramThatWasKilled)
{
    mutedByAKilledOne();
    ASSERT_TRUE(noted().startsWith(u"0.4"_qs)) << qPrintable(noted());
    EXPECT_TRUE(level.settle());
    EXPECT_EQ(percent(), 40);
    EXPECT_FALSE(level.muted());
    EXPECT_EQ(noted(), QString());
    volume.word = 0;
    EXPECT_TRUE(level.settle());
    EXPECT_EQ(volume.word, 0U) << "once";
}

TEST_F(VolumeLevelTest, comesBackWhenTheSystemHasToldThatItIsSilent)
{
    mutedByAKilledOne();
    volume.word = 0xFFFFFFFF; // a guess
    volume.known = false;
    EXPECT_FALSE(level.settle());
    EXPECT_FALSE(noted().isEmpty());
    volume.known = true;
    volume.word = 0;
    EXPECT_TRUE(level.settle());
    EXPECT_EQ(percent(), 40);
}

TEST_F(VolumeLevelTest, isNotMutedBeforeItIsKnown)
{
    mutedByAKilledOne();
    const QString before = noted();
    volume.known = false;
    volume.word = 0xFFFFFFFF; // a guess
    level.toggleMute();
    EXPECT_FALSE(level.muted());
    EXPECT_EQ(volume.word, 0xFFFFFFFF);
    EXPECT_EQ(noted(), before) << "what the killed one has kept is worth more than a guess";
    volume.known = true;
    volume.word = 0;
    level.toggleMute();
    EXPECT_TRUE(level.muted());
    level.toggleMute();
    EXPECT_EQ(percent(), 40);
}

TEST_F(VolumeLevelTest, staysWhereSomebodyElseHasSetIt)
{
    mutedByAKilledOne();
    volume.word = 0x20002000;
    EXPECT_TRUE(level.settle());
    EXPECT_EQ(volume.word, 0x20002000U);
    EXPECT_EQ(noted(), QString());
}

TEST_F(VolumeLevelTest, staysSilentWhileTheOneThatMutedItRuns)
{
    level.set(0.4F);
    level.toggleMute();
    const QString before = noted();
    VolumeLevel other(volume, store, program);
    EXPECT_TRUE(other.settle());
    EXPECT_EQ(volume.word, 0U);
    EXPECT_EQ(noted(), before);
}

TEST_F(VolumeLevelTest, aDamagedNoteIsNone)
{
    volume.word = 0;
    for (const QString& text : {u"0.4"_qs, u"x 1-2-3"_qs, u"nan 1-2-3"_qs, u"7 1-2-3"_qs, u"-1 1-2-3"_qs,
                                u"inf 1-2-3"_qs, u" "_qs, u"0 1-2-3"_qs}) {
        store.values[u"VolumeBeforeMute"_qs] = text;
        EXPECT_TRUE(level.settle());
        EXPECT_EQ(volume.word, 0U) << qPrintable(text);
    }
    store.values[u"VolumeBeforeMute"_qs] = u"0.5 1-2-3"_qs;
    EXPECT_TRUE(level.settle());
    EXPECT_EQ(percent(), 50);
}

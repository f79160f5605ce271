#include "app/leftsilence.h"

#include "tests/support/fakemedia.h"
#include "tests/support/hung.h"
#include "tests/support/world.h"

#include <QTest>

#include <gtest/gtest.h>

namespace {

struct LeftSilenceTest : testing::Test {
    void note(const QString& text)
    {
        world.settings.save(u"tonedeckpro"_qs, u"config"_qs, u"VolumeBeforeMute"_qs, text);
    }
    World world;
    FakeMediaMachine media;
};

} // namespace

TEST_F(LeftSilenceTest, endsWithoutThePlayersWindow)
{
    note(u"0.5 1-2-3"_qs);
    media.volume->word = 0xFFFFFFFF;
    media.volume->known = false;
    const LeftSilence silence(media, world.settings, world.program);
    QTest::qWait(60);
    media.volume->word = 0;
    media.volume->known = true;
    EXPECT_TRUE(QTest::qWaitFor([this] { return media.volume->word != 0; }, kHung));
    EXPECT_NEAR(static_cast<double>(media.volume->word & 0xFFFF), 0x8000, 2);
    QCoreApplication::processEvents();
    EXPECT_EQ(media.volume.use_count(), 1) << "nothing is held any longer";
}

TEST_F(LeftSilenceTest, asksForNoVolumeWhenNothingWasLeft)
{
    media.volume->word = 0;
    const LeftSilence silence(media, world.settings, world.program);
    QTest::qWait(50);
    EXPECT_EQ(media.volumesMade, 0);
    EXPECT_EQ(media.volume->word, 0U);
}

// What only one of the formats does.
#include "platform/mediaerror.h"
#include "tests/support/rerun.h"
#include "tests/system/media/formatrun.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

class FormatCase : public testing::Test {
protected:
    FormatCase() { qunsetenv("DISPLAY"); }

    QByteArray onDisk(const char* file) const { return world.directory.at(QByteArray("disk/") + file); }

    // Returns the position that the element has that much later, less the time that it really took.
    static double shiftAfter(GstMediaElement& element, int milliseconds)
    {
        const auto begin = std::chrono::steady_clock::now();
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
        const qint32 position = element.position();
        return position -
               std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
    }

    World world;
    SoundRecorder recorder;
    GstMediaElement element{world.drives};
};

// Its reader, connected too late, sent nothing in one of a hundred openings.
TEST_F(FormatCase, AiffOpensEveryTime)
{
    world.directory.write("disk/a.aif", aiffFile(toneFrames(2400)));
    for (int time = 0; time < 300; ++time) {
        openFile(element, "ActiveMovie", "a.aif");
        ASSERT_EQ(element.error(), 0) << time;
    }
}

TEST_F(FormatCase, AnimationIsBegunAgainButNotSoughtIn)
{
    world.directory.write("disk/a.flc", flcFile(24, 100));
    openFile(element, "Animation", "a.flc");
    ASSERT_EQ(element.error(), 0) << element.errorMessage().toStdString();
    element.setFrom(0);
    element.send(QStringLiteral("play"));
    EXPECT_NEAR(shiftAfter(element, 300), 0, 60);

    element.send(QStringLiteral("stop"));
    const qint32 place = element.position();
    element.setFrom(1500);
    element.send(QStringLiteral("play"));
    EXPECT_NEAR(shiftAfter(element, 200), place, 60) << "goes on where it was";

    element.send(QStringLiteral("stop"));
    element.setFrom(0);
    element.send(QStringLiteral("play"));
    EXPECT_NEAR(shiftAfter(element, 200), 0, 60);
}

// The first half of such a file lets a reader expect a far longer one.
TEST_F(FormatCase, LengthOfLongVaryingMp3WithoutItsCount)
{
    encodeSound(onDisk("long.mp3"), silenceThen(noiseFrames(60000)), "lamemp3enc target=quality quality=4");
    openFile(element, "ActiveMovie", "long.mp3");
    ASSERT_EQ(element.error(), 0);
    EXPECT_NEAR(element.length(), 60000, 50);
}

TEST_F(FormatCase, DISABLED_WmaWithoutItsDecoder)
{
    encodeSound(onDisk("a.wma"), toneFrames(500), "avenc_wmav2 ! asfmux");
    openFile(element, "ActiveMovie", "a.wma");
    EXPECT_EQ(element.error(), MediaError::kNoDriver) << element.errorMessage().toStdString();
    world.directory.write("disk/a.wav", waveFile(toneFrames(500)));
    openFile(element, "ActiveMovie", "a.wav");
    EXPECT_EQ(element.error(), 0);
}

TEST_F(FormatCase, MissingDecoderIsTold)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("GST_PLUGIN_FEATURE_RANK"),
                       QStringLiteral("avdec_wmav1:0,avdec_wmav2:0"));
    const Rerun rerun("FormatCase.DISABLED_WmaWithoutItsDecoder", environment);
    EXPECT_TRUE(rerun.passed) << rerun.output.toStdString();
}

} // namespace

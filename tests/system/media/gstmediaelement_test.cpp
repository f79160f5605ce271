#include "tests/system/media/mediatest.h"

using namespace mediatest;

namespace {

constexpr quint32 kTwoSeconds = 2 * kRate;

struct MediaElementTest : MediaTest {
    MediaElementTest() { write("counter.wav", wav(counterFrames(0, kTwoSeconds))); }

    void openCounter()
    {
        open(u"counter.wav"_qs);
        ASSERT_EQ(device.error(), 0) << device.errorMessage().toStdString();
    }

    Recording recording;
};

} // namespace

TEST_F(MediaElementTest, tellsTheLengthOnceItIsOpen)
{
    EXPECT_EQ(device.length(), 0);
    openCounter();
    EXPECT_EQ(device.length(), 2000);
    EXPECT_EQ(device.position(), 0);
    wait(50);
    EXPECT_EQ(device.position(), 0);
    device.send(u"close"_qs);
    EXPECT_EQ(device.length(), 0);
    EXPECT_EQ(device.position(), 0);
}

TEST_F(MediaElementTest, playsEverySampleAndTellsTheEndNotBefore)
{
    openCounter();
    const auto begin = Clock::now();
    device.setFrom(0);
    device.send(u"play"_qs);
    ASSERT_TRUE(reaches(2000, 4000));
    EXPECT_GT(millisecondsSince(begin), 1980);
    EXPECT_LT(millisecondsSince(begin), 2300);
    device.send(u"close"_qs);
    EXPECT_TRUE(isRun(recording.frames(), 0, kTwoSeconds));
}

TEST_F(MediaElementTest, followsTheClock)
{
    openCounter();
    play();
    wait(100);
    const qint32 before = device.position();
    const auto begin = Clock::now();
    wait(1000);
    EXPECT_NEAR(device.position() - before, millisecondsSince(begin), 30);
}

TEST_F(MediaElementTest, goesOnWhereItStoppedWithoutALostOrDoubledSample)
{
    openCounter();
    play();
    for (int i = 0; i < 3; ++i) {
        wait(200);
        device.send(u"stop"_qs);
        const qint32 place = device.position();
        EXPECT_GE(place, 150 * (i + 1));
        wait(100);
        EXPECT_EQ(device.position(), place);
        device.send(u"Play"_qs);
    }
    ASSERT_TRUE(reaches(2000, 4000));
    device.send(u"close"_qs);
    EXPECT_TRUE(isRun(recording.frames(), 0, kTwoSeconds));
}

TEST_F(MediaElementTest, playsFromAPlaceAndUsesItOnce)
{
    openCounter();
    play(1500);
    EXPECT_GE(device.position(), 1500);
    ASSERT_TRUE(reaches(2000, 2000));
    play(); // is at its end
    EXPECT_EQ(device.position(), 2000);
    device.send(u"close"_qs);
    EXPECT_TRUE(isRun(recording.frames(), kRate * 3 / 2, kTwoSeconds));
}

TEST_F(MediaElementTest, playsUpToAPlace)
{
    openCounter();
    play(500, 1000);
    const auto begin = Clock::now();
    ASSERT_TRUE(reaches(1000, 2000));
    EXPECT_NEAR(millisecondsSince(begin), 500, 150);
    EXPECT_EQ(device.position(), 1000);
    device.send(u"close"_qs);
    EXPECT_TRUE(isRun(recording.frames(), kRate / 2, kRate));
}

TEST_F(MediaElementTest, playsFromTheBeginningWhenToldToBeginBeforeIt)
{
    openCounter();
    play();
    wait(300);
    device.send(u"stop"_qs);
    play(-500);
    EXPECT_LT(device.position(), 200);
    wait(200);
    EXPECT_GE(device.position(), 100);
    EXPECT_LT(device.position(), 1000);
}

TEST_F(MediaElementTest, anEndBeforeTheBeginningIsNone)
{
    openCounter();
    play(1800, 500);
    EXPECT_GE(device.position(), 1800);
    EXPECT_TRUE(reaches(2000, 1000));
}

TEST_F(MediaElementTest, seeksAndStaysThere)
{
    openCounter();
    play();
    wait(100);
    device.setFrom(0);
    device.send(u"seek"_qs);
    device.send(u"stop"_qs);
    EXPECT_EQ(device.position(), 0);
    device.setFrom(700);
    device.send(u"seek"_qs);
    EXPECT_EQ(device.position(), 700);
    wait(50);
    EXPECT_EQ(device.position(), 700);
    const std::size_t before = recording.frames().size();
    play();
    wait(100);
    device.send(u"close"_qs);
    const std::vector<quint32> frames = recording.frames();
    ASSERT_GT(frames.size(), before);
    EXPECT_EQ(frames[before], kRate * 7 / 10);
}

TEST_F(MediaElementTest, playsAgainFromTheBeginningAfterItsEnd)
{
    openCounter();
    play(1900);
    ASSERT_TRUE(reaches(2000, 2000));
    play(0);
    EXPECT_LT(device.position(), 500);
    EXPECT_TRUE(reaches(300, 1000));
}

TEST_F(MediaElementTest, startsAgainWhilePlaying)
{
    openCounter();
    play();
    wait(300);
    play(0);
    EXPECT_LT(device.position(), 200);
}

TEST_F(MediaElementTest, opensAnotherFileInItsPlace)
{
    openCounter();
    play();
    write("short.wav", wav(counterFrames(0, kRate / 2)));
    open(u"short.wav"_qs);
    EXPECT_EQ(device.length(), 500);
    EXPECT_EQ(device.position(), 0);
    device.send(u"close"_qs);
    const std::size_t before = recording.frames().size();
    open(u"short.wav"_qs);
    play();
    ASSERT_TRUE(reaches(500, 2000));
    device.send(u"close"_qs);
    const std::vector<quint32> frames = recording.frames();
    ASSERT_EQ(frames.size(), before + kRate / 2);
    EXPECT_EQ(frames[before], 0U);
    EXPECT_EQ(frames.back(), static_cast<quint32>(kRate / 2 - 1));
}

TEST_F(MediaElementTest, noCommandHarmsAClosedDevice)
{
    for (const char* type : {"", "Delay", "ActiveMovie", "cdaudio"}) {
        device.setDeviceType(QString::fromLatin1(type));
        for (const char* command : {"stop", "seek", "play", "Play", "close", "record", ""}) {
            device.setFrom(0);
            device.send(QString::fromLatin1(command));
            EXPECT_EQ(device.error(), 0) << type << ' ' << command;
            EXPECT_EQ(device.position(), 0);
        }
    }
}

TEST_F(MediaElementTest, aDelayIsNoDevice)
{
    open(u"counter.wav"_qs, u"Delay"_qs);
    EXPECT_EQ(device.error(), 0);
    play(0);
    wait(50);
    EXPECT_EQ(device.length(), 0);
    EXPECT_EQ(device.position(), 0);
    EXPECT_TRUE(recording.frames().empty());
    openCounter();
    open(u"away.wav"_qs, u"Delay"_qs); // leaves what is open as it is
    EXPECT_EQ(device.error(), 0);
    EXPECT_EQ(device.length(), 2000);
    device.send(u"close"_qs);
    EXPECT_EQ(device.length(), 0);
}

TEST_F(MediaElementTest, aCommandThatItDoesNotKnowIsAnError)
{
    openCounter();
    device.send(u"record"_qs);
    EXPECT_EQ(device.error(), MediaError::kOther);
    play();
    EXPECT_EQ(device.error(), 0);
}

TEST_F(MediaElementTest, takesAnyName)
{
    for (const char* name : {"100% #1?.wav", "a\nb.wav", "\xC3\x85se.wav", "\xE9t\xE9.wav"}) {
        write(name, wav(counterFrames(0, 441)));
        open(world.files.list(u"D:\\"_qs).front().name);
        for (const DirEntry& entry : world.files.list(u"D:\\"_qs)) {
            open(entry.name);
            EXPECT_EQ(device.error(), 0) << entry.name.toStdString();
        }
    }
    EXPECT_EQ(world.files.list(u"D:\\"_qs).size(), 5U);
}

TEST_F(MediaElementTest, twoOfThemPlayAtOnce)
{
    write("high.wav", wav(counterFrames(1U << 20, kRate)));
    GstMediaElement other(world.drives);
    openCounter();
    other.setDeviceType(u"ActiveMovie"_qs);
    other.setFileName(u"D:\\high.wav"_qs);
    other.send(u"open"_qs);
    play();
    other.send(u"play"_qs);
    wait(500);
    EXPECT_NEAR(device.position(), other.position(), 30);
    ASSERT_TRUE(reaches(2000, 3000));
    EXPECT_EQ(other.position(), 1000);
    std::vector<quint32> low;
    std::vector<quint32> high;
    for (const quint32 frame : recording.frames())
        (frame < (1U << 20) ? low : high).push_back(frame);
    EXPECT_TRUE(isRun(low, 0, kTwoSeconds));
    EXPECT_TRUE(isRun(high, 1U << 20, (1U << 20) + kRate));
}

TEST_F(MediaElementTest, aDescriptionOfNoSinkIsAnError)
{
    const Variable variable("SONGBIN_AUDIO_SINK", "nosuchsink name=x");
    open(u"counter.wav"_qs);
    EXPECT_EQ(device.error(), MediaError::kOther);
    EXPECT_FALSE(device.errorMessage().isEmpty());
}

// Has media devices and the sound server: a real one, none, one that does not answer, one that goes away.
#include "tests/system/media/mediatest.h"

#include "tests/support/hung.h"
#include "tests/support/soundserver.h"

#include <cmath>

using namespace mediatest;

namespace {

// Milliseconds that a command may take when the server does not answer: 900 are promised at most, and an
// opening that waits for the server takes the 2,300 of a file and fails.
constexpr int kSlowest = 1900;

QByteArray tone(double frequency, int seconds)
{
    QByteArray frames;
    for (int i = 0; i < seconds * kRate; ++i) {
        const auto sample = static_cast<qint16>(8000 * std::sin(2 * M_PI * frequency * i / kRate));
        frames += littleEndian(sample) + littleEndian(sample);
    }
    return frames;
}

// How loud a frequency is in a stereo recording of 16 bits, of the left channel (Goertzel's sum).
double loudness(const QByteArray& recorded, double frequency)
{
    double sine = 0;
    double cosine = 0;
    const qsizetype frames = recorded.size() / 4;
    for (qsizetype i = 0; i < frames; ++i) {
        qint16 sample = 0;
        std::memcpy(&sample, recorded.constData() + i * 4, sizeof sample);
        const double phase = 2 * M_PI * frequency * static_cast<double>(i) / kRate;
        sine += sample * std::sin(phase);
        cosine += sample * std::cos(phase);
    }
    return 2 * std::hypot(sine, cosine) / static_cast<double>(std::max<qsizetype>(frames, 1));
}

struct SoundServersTest : MediaTest {
    SoundServersTest() { write("tone.wav", wav(tone(440, 3))); }

    double timeOf(const char* command)
    {
        const auto begin = Clock::now();
        device.send(QString::fromLatin1(command));
        return millisecondsSince(begin);
    }
    void openTone() { open(u"tone.wav"_qs); }
    // Returns what the server plays within 1,200 ms.
    static QByteArray recordedNow()
    {
        QProcess recorder;
        recorder.start(u"parec"_qs, {u"--device=null.monitor"_qs, u"--format=s16le"_qs, u"--rate=44100"_qs,
                                     u"--channels=2"_qs, u"--raw"_qs, u"--latency-msec=50"_qs});
        wait(1200);
        recorder.kill();
        recorder.waitForFinished();
        return recorder.readAllStandardOutput();
    }
};

} // namespace

TEST_F(SoundServersTest, twoDevicesAreHeardTogether)
{
    SoundServer server;
    write("high.wav", wav(tone(1000, 3)));
    GstMediaElement other(world.drives);
    other.setDeviceType(u"ActiveMovie"_qs);
    other.setFileName(u"D:\\high.wav"_qs);
    other.send(u"open"_qs);
    openTone();
    play();
    other.send(u"play"_qs);
    wait(300);
    const QByteArray recorded = recordedNow();
    ASSERT_GT(recorded.size(), kRate); // a quarter of a second
    EXPECT_GT(loudness(recorded, 440), 1000);
    EXPECT_GT(loudness(recorded, 1000), 1000);
    EXPECT_LT(loudness(recorded, 700), 500);
}

TEST_F(SoundServersTest, theEndIsToldOnTime)
{
    SoundServer server;
    openTone();
    ASSERT_EQ(device.error(), 0);
    const auto begin = Clock::now();
    play(2000);
    ASSERT_TRUE(reaches(3000, 3000));
    EXPECT_GT(millisecondsSince(begin), 900);
    EXPECT_LT(millisecondsSince(begin), 1700);
}

TEST_F(SoundServersTest, withoutAServerTheListGoesOn)
{
    const Variable variable("PULSE_SERVER", "unix:/nonexistent/socket");
    const auto begin = Clock::now();
    openTone();
    EXPECT_LT(millisecondsSince(begin), kHung) << "the first opening of a program may load plug-ins";
    EXPECT_EQ(device.error(), 0) << "of an opening that waited for a server";
    EXPECT_EQ(device.length(), 3000);
    play(2500);
    EXPECT_TRUE(reaches(3000, 1500));
}

TEST_F(SoundServersTest, aFrozenServerHoldsUpNoOpen)
{
    SoundServer server;
    server.freeze();
    const auto begin = Clock::now();
    openTone();
    EXPECT_LT(millisecondsSince(begin), kSlowest);
    EXPECT_EQ(device.error(), 0);
    for (const char* command : {"play", "stop", "seek", "play", "close", "open", "play", "close"})
        EXPECT_LT(timeOf(command), kSlowest) << command;
    server.thaw();
}

TEST_F(SoundServersTest, aServerThatFreezesHoldsUpNoCommand)
{
    SoundServer server;
    openTone();
    play();
    wait(300);
    server.freeze();
    wait(300);
    for (const char* command : {"stop", "play", "stop", "seek", "play", "close"})
        EXPECT_LT(timeOf(command), kSlowest) << command;
    EXPECT_LT(timeOf("open"), kSlowest);
    EXPECT_LT(timeOf("close"), kSlowest);
    server.thaw();
}

TEST_F(SoundServersTest, aFrozenServerIsGivenUpAtOnceForTheNextMedium)
{
    SoundServer server;
    openTone();
    play();
    wait(300);
    server.freeze();
    wait(300);
    EXPECT_LT(timeOf("close") + timeOf("open"), 500);
    EXPECT_EQ(device.error(), 0);
    EXPECT_TRUE(device.isSilent());
    server.thaw();
}

TEST_F(SoundServersTest, aServerThatGoesAwayLeavesTheMediumPlayingWhereItWas)
{
    SoundServer server;
    openTone();
    EXPECT_FALSE(device.isSilent());
    play();
    wait(500);
    qint32 before = device.position();
    EXPECT_GT(before, 300);
    server.kill();
    const auto begin = Clock::now();
    while (millisecondsSince(begin) < 1000) {
        const qint32 now = device.position();
        EXPECT_LT(now - before, 400) << "it does not jump";
        EXPECT_GT(now - before, -150);
        before = now;
        wait(20);
    }
    EXPECT_TRUE(device.isSilent());
    EXPECT_GT(before, 700) << "it goes on";
    EXPECT_TRUE(reaches(3000, 3500));
    EXPECT_EQ(device.error(), 0);
}

TEST_F(SoundServersTest, theSoundComesBackWithTheServer)
{
    SoundServer server;
    write("tone.wav", wav(tone(440, 20)));
    openTone();
    play();
    wait(300);
    server.kill();
    wait(200);
    device.position();
    EXPECT_TRUE(device.isSilent());
    server.start();
    const auto asked = Clock::now();
    while (device.isSilent() && millisecondsSince(asked) < 8000) {
        device.position();
        wait(20);
    }
    ASSERT_FALSE(device.isSilent());
    wait(300);
    const qint32 now = device.position();
    EXPECT_GT(loudness(recordedNow(), 440), 1000);
    EXPECT_NEAR(device.position() - now, 1200, 300) << "it plays on at its own pace";
}

TEST_F(SoundServersTest, whatIsStoppedWhileTheSoundIsGoneStaysStopped)
{
    SoundServer server;
    openTone();
    play();
    wait(300);
    server.kill();
    eventually([&] { return device.isSilent(); });
    device.position();
    device.send(u"stop"_qs);
    for (int i = 0; i < 25; ++i, wait(20))
        device.position();
    const qint32 stopped = device.position();
    wait(300);
    EXPECT_NEAR(device.position(), stopped, 1);
    EXPECT_LT(stopped, 1500);
    device.send(u"play"_qs);
    EXPECT_TRUE(reaches(3000, 4000));
}

TEST_F(SoundServersTest, aMediumThatNeverSettlesIsGivenUpAfterTwoSeconds)
{
    const Variable swallows("SONGBIN_AUDIO_SINK", "valve drop=true ! fakesink");
    int turns = 0;
    device.setMeanwhile([&] { ++turns; });
    const auto begin = Clock::now();
    openTone();
    EXPECT_NEAR(millisecondsSince(begin), 2000, 500);
    EXPECT_EQ(device.error(), MediaError::kOther);
    EXPECT_GT(turns, 20) << "the window is painted";
    EXPECT_EQ(device.length(), 0);
}

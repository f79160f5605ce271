// The engine and a real sound server, whose output is listened to.
#include "tests/player/playback/playbacktest.h"
#include "tests/support/mediafiles.h"
#include "tests/support/soundserver.h"

#include <cmath>
#include <numbers>

namespace {

constexpr int kWindow = 40; // milliseconds
constexpr double kAudible = 1000;
constexpr double kSlowest = 1000; // milliseconds that a press may take when the server does not answer

QByteArray tone(double frequency, int milliseconds)
{
    Frames frames;
    for (int i = 0; i < milliseconds * kRate / 1000; ++i) {
        const auto sample =
            static_cast<qint16>(8000 * std::sin(2 * std::numbers::pi * frequency * i / kRate));
        frames.push_back({sample, sample});
    }
    return waveFile(frames);
}

// Takes down what comes out of the server's sink.
class Listener {
public:
    Listener()
    {
        m_process.start(u"parec"_qs, {u"--device=null.monitor"_qs, u"--format=s16le"_qs, u"--rate=44100"_qs,
                                      u"--channels=2"_qs, u"--raw"_qs, u"--latency-msec=20"_qs});
        m_process.waitForReadyRead(3000);
    }
    ~Listener() { stop(); }
    void stop()
    {
        m_process.kill();
        m_process.waitForFinished();
        m_sound += m_process.readAllStandardOutput();
    }
    // For each window: is the tone in it?
    std::vector<bool> hears(double frequency) const
    {
        std::vector<bool> heard;
        constexpr int kFrames = kWindow * kRate / 1000;
        for (qsizetype at = 0; (at + kFrames) * 4 <= m_sound.size(); at += kFrames)
            heard.push_back(loudness(at, kFrames, frequency) > kAudible);
        return heard;
    }

private:
    double loudness(qsizetype at, int frames, double frequency) const
    {
        double sine = 0;
        double cosine = 0;
        for (int i = 0; i < frames; ++i) {
            qint16 sample = 0;
            std::memcpy(&sample, m_sound.constData() + (at + i) * 4, sizeof sample);
            const double phase = 2 * std::numbers::pi * frequency * i / kRate;
            sine += sample * std::sin(phase);
            cosine += sample * std::cos(phase);
        }
        return 2 * std::hypot(sine, cosine) / frames;
    }

    QProcess m_process;
    QByteArray m_sound;
};

double durationOf(const std::vector<bool>& windows)
{
    return static_cast<double>(std::count(windows.begin(), windows.end(), true)) * kWindow;
}

struct ServerTest : PlaybackTest {
    ServerTest() { qunsetenv("SONGBIN_AUDIO_SINK"); } // the tape puts it back
    // Plays the first of two, a long one and a short one.
    void playFirst(int milliseconds)
    {
        add(u"1.wav"_qs, tone(450, 3000));
        add(u"2.wav"_qs, tone(1000, 300));
        engine.PlayIt();
        goOn(milliseconds);
    }
    SoundServer server;
};

} // namespace

TEST_F(ServerTest, mixesTheTailWithTheNextAndAStopSilencesBoth)
{
    settings.OverlapMs = 800;
    add(u"low.wav"_qs, tone(450, 1500));
    add(u"high.wav"_qs, tone(1000, 6000));
    Listener listener;
    engine.PlayIt();
    ASSERT_TRUE(goesOnUntil([&] { return list.CurTrack() == 2; }, 2000));
    goOn(1600); // the tail has ended
    engine.PrevTrack();
    ASSERT_TRUE(goesOnUntil([&] { return list.CurTrack() == 2; }, 2000));
    goOn(400); // both are heard
    engine.StopIt();
    goOn(600);
    listener.stop();
    const std::vector<bool> low = listener.hears(450);
    const std::vector<bool> high = listener.hears(1000);
    ASSERT_EQ(low.size(), high.size());
    ASSERT_GT(low.size(), 20U);
    std::vector<bool> both;
    for (std::size_t i = 0; i < low.size(); ++i)
        both.push_back(low[i] && high[i]);
    EXPECT_NEAR(durationOf(both), 800 + 400, 350);
    EXPECT_NEAR(durationOf(low), 1500 + 700 + 400, 350);
    for (std::size_t i = low.size() - 5; i < low.size(); ++i)
        EXPECT_FALSE(low[i] || high[i]) << "silent after the stop";
}

TEST_F(ServerTest, noPressWaitsLongForAServerThatFroze)
{
    playFirst(300);
    server.freeze();
    EXPECT_LT(timeOf([&] { engine.PauseIt(); }), kSlowest);
    EXPECT_LT(timeOf([&] { engine.PauseIt(); }), kSlowest);
    EXPECT_LT(timeOf([&] { engine.StopIt(); }), 2 * kSlowest);
    EXPECT_LT(timeOf([&] { engine.NextTrack(); }), 2 * kSlowest);
    EXPECT_TRUE(stops(2000)) << "goes on without sound";
    EXPECT_TRUE(face.errors.isEmpty());
    server.thaw();
}

TEST_F(ServerTest, theNextIsThereAtOnceWhenTheServerFroze)
{
    playFirst(500);
    server.freeze();
    goOn(300);
    EXPECT_LT(timeOf([&] { engine.NextTrack(); }), 500);
    EXPECT_EQ(face.said.size(), 1) << "there is no sound";
    EXPECT_TRUE(stops(2000)) << "goes on without sound";
    server.thaw();
}

TEST_F(ServerTest, theTrackGoesOnWhereItWasWhenTheServerGoesAway)
{
    playFirst(700);
    EXPECT_EQ(face.said, QStringList());
    server.kill();
    goOn(1000);
    EXPECT_EQ(list.CurTrack(), 1);
    EXPECT_NEAR(engine.PlayPosMs(), 1600, 500);
    EXPECT_EQ(face.said, QStringList(u"There is no sound device: it plays on without sound until there is "
                                     u"one."_qs));
    EXPECT_TRUE(goesOnUntil([&] { return list.CurTrack() == 2; }, 4000));
    EXPECT_TRUE(stops(4000));
    EXPECT_EQ(face.said.size(), 1) << "once";
    EXPECT_TRUE(face.errors.isEmpty());
}

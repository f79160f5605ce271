// Measures the player's engine: from its command to the first sound, and the silence between two entries,
// against GStreamer's player used bare.
#include "bench/support/bench_world.h"
#include "bench/support/heard.h"
#include "bench/support/measure.h"
#include "bench/support/mediafiles.h"
#include "player/playback/playbackengine.h"
#include "player/playback/playbackview.h"
#include "player/playback/playersettings.h"
#include "system/media/gstmediaelement.h"

#include <QApplication>
#include <QTimer>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <thread>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kRounds = 60;
constexpr int kGapRounds = 30;
constexpr int kTick = 100;

// Shows nothing.
class QuietFace : public PlaybackView {
public:
    void enableTimer1(bool on) override { on ? timer1.start(kTick) : timer1.stop(); }
    bool yield() override
    {
        QCoreApplication::processEvents();
        return true;
    }
    void showName(const QString&) override {}
    void showEntryNumber(int) override {}
    void showBitRate(const QString&, double) override {}
    void showSampling(const QString&, double) override {}
    void showMode(const QString&) override {}
    void clearFacts() override {}
    void showTime(const QString&, int) override {}
    void showLength(const QString&) override {}
    void offerPosition() override {}
    bool followsPosition() const override { return true; }
    void showPosition(float) override {}
    void showLights() override {}
    bool stoppedLightShown() const override { return false; }
    bool hasButtonB() const override { return false; }
    void loadCover(const QString&) override {}
    void loadTagCover(const QString&, TagRecord&) override {}
    void clearCover() override {}
    void startModulePlayer() override {}
    void reportError(const QString& text) override { endWith(text.toStdString()); }
    void paintMeanwhile() override {}
    void say(const QString&) override {}

    QTimer timer1;
};

struct Player {
    explicit Player(const std::string& work) : world(work, work)
    {
        settings.OverlapMs = 0;
        QObject::connect(&face.timer1, &QTimer::timeout, &face.timer1, [this] { engine.Timer1_Timer(); });
    }
    void fill(const std::vector<std::string>& files)
    {
        list.PlClear();
        for (const std::string& file : files)
            list.add(QString::fromStdString(file), programPath(file));
    }

    BenchWorld world;
    PlayerSettings settings;
    Playlist list;
    QuietFace face;
    GstMediaElement devices[2]{GstMediaElement(world.drives), GstMediaElement(world.drives)};
    PlaybackEngine engine{
        list,
        face,
        {world.context.platform, world.fileNumbers, world.codePage, settings, {&devices[0], &devices[1]}}};
};

double firstSound(Player& player, const std::string& file, const Heard& heard)
{
    player.fill({file});
    const double time = milliseconds([&] {
        player.engine.PlayIt();
        heard.awaitFirst();
    });
    player.engine.StopIt();
    player.engine.closeDevices();
    heard.forget();
    return time;
}

// Returns the milliseconds of silence between the first sound and the last one while the work plays.
template <typename Work>
double silenceWhile(const Heard& heard, const Work& work)
{
    constexpr double kBytesPerMillisecond = 44.1 * 4;
    std::atomic<bool> done = false;
    double begin = -1;
    double finish = 0;
    double sound = 0;
    std::thread listener([&] {
        const auto start = Clock::now();
        while (!done)
            if (const long bytes = heard.take(); bytes > 0) {
                const std::chrono::duration<double, std::milli> now = Clock::now() - start;
                begin = begin < 0 ? now.count() : begin;
                finish = now.count() + static_cast<double>(bytes) / kBytesPerMillisecond;
                sound += static_cast<double>(bytes) / kBytesPerMillisecond;
            }
    });
    work();
    done = true;
    listener.join();
    heard.forget();
    return finish - begin - sound;
}

// Where the first entry's end lies between two ticks must not matter.
class Gaps {
public:
    Gaps(Player& player, const std::string& work, const Heard& heard) : m_player(player), m_heard(heard)
    {
        for (int length = 300; length < 300 + kTick; length += kTick / 10) {
            m_files.push_back(work + "/short" + std::to_string(length) + ".wav");
            MediaFiles::writeWav(m_files.back(), length);
        }
    }

    double ours()
    {
        const std::string& file = next(m_rounds.ours);
        m_player.fill({file, file});
        const double silence = silenceWhile(m_heard, [&] {
            m_player.engine.PlayIt();
            while (m_player.engine.IsPlaying())
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        });
        m_player.engine.closeDevices();
        return silence;
    }
    double bare()
    {
        const std::string& file = next(m_rounds.rival);
        return silenceWhile(m_heard, [&] {
            for (int i = 0; i < 2; ++i)
                BarePlayer(file, m_heard).awaitEnd();
        });
    }

private:
    const std::string& next(int& round)
    {
        return m_files[static_cast<std::size_t>(round++) % m_files.size()];
    }

    struct Rounds {
        int ours = 0;
        int rival = 0;
    };

    Player& m_player;
    const Heard& m_heard;
    std::vector<std::string> m_files;
    Rounds m_rounds;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    gst_init(nullptr, nullptr);
    const std::string work = argc > 1 ? argv[1] : "build/bench";
    const MediaFiles files(work);
    const Heard heard;
    qputenv("SONGBIN_AUDIO_SINK", QByteArray::fromStdString(heard.sink()));
    Player player(work);
    for (const std::string& file : {files.wav, files.mp3, files.ogg})
        report("play command to the first sound, " + file.substr(file.size() - 3) + " (median)",
               "a bare playbin: PAUSED, PLAYING",
               median(
                   kRounds, [&] { return firstSound(player, file, heard); },
                   [&] { return bareFirstSound(file, heard); }));
    Gaps gaps(player, work, heard);
    report("silence between two entries (median), the wait for a tick of 100 ms in it",
           "two plays of a bare playbin one after the other",
           median(
               kGapRounds, [&] { return gaps.ours(); }, [&] { return gaps.bare(); }));
}

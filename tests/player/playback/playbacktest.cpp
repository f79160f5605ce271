#include "tests/player/playback/playbacktest.h"

#include <QCoreApplication>
#include <QThread>

TickingFace::TickingFace()
{
    timer1.setInterval(100);
    timer1.setTimerType(Qt::PreciseTimer);
}

void TickingFace::enableTimer1(bool on)
{
    NotingFace::enableTimer1(on);
    on ? timer1.start() : timer1.stop();
}

bool TickingFace::yield()
{
    QCoreApplication::processEvents();
    return NotingFace::yield();
}

PlaybackTest::PlaybackTest()
{
    settings.OverlapMs = 0;
    QObject::connect(&face.timer1, &QTimer::timeout, &face.timer1, [this] { engine.Timer1_Timer(); });
}

// The devices close while the tape still takes down what comes.
PlaybackTest::~PlaybackTest()
{
    face.timer1.stop();
    engine.closeDevices();
}

void PlaybackTest::add(const QString& name, const QByteArray& content)
{
    world.directory.write("disk/" + name.toUtf8(), content);
    list.add(name, u"D:\\"_qs + name);
}

void PlaybackTest::addCounters(int entries, int milliseconds)
{
    for (int i = 0; i < entries; ++i) {
        const int entry = list.count() + 1;
        add(QString::number(entry) + u".wav"_qs, counter(entry, milliseconds));
    }
}

bool PlaybackTest::goesOnUntil(const std::function<bool()>& holds, int atMost)
{
    const auto begin = Clock::now();
    while (!holds()) {
        if (millisecondsSince(begin) > atMost)
            return false;
        QCoreApplication::processEvents();
        QThread::msleep(1);
    }
    return true;
}

void PlaybackTest::goOn(int milliseconds)
{
    goesOnUntil([] { return false; }, milliseconds);
}

bool PlaybackTest::hears(int entry, int atMost)
{
    const auto heard = [&] {
        double last = -1;
        for (const Stretch& run : tape.runs(entry))
            last = std::max(last, run.finish);
        return last;
    };
    const double before = heard();
    return goesOnUntil([&] { return heard() > before; }, atMost);
}

bool PlaybackTest::comesTo(qint32 position, int atMost)
{
    return goesOnUntil([&] { return engine.PlayPosMs() >= position; }, atMost);
}

bool PlaybackTest::stops(int atMost)
{
    return goesOnUntil([&] { return !engine.IsPlaying(); }, atMost);
}

bool PlaybackTest::isSilent()
{
    goOn(50); // what was on its way
    const qint64 before = tape.frames();
    goOn(300);
    return tape.frames() == before;
}

double PlaybackTest::timeOf(const std::function<void()>& work)
{
    const auto begin = Clock::now();
    work();
    return millisecondsSince(begin);
}

testing::AssertionResult isWhole(const std::vector<Stretch>& runs, int milliseconds)
{
    const auto frames = static_cast<quint32>(qint64{milliseconds} * kRate / 1000);
    if (runs.size() == 1 && runs[0].first == 0 && runs[0].end == frames)
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << testing::PrintToString(runs) << " in place of one run of " << frames;
}

void PrintTo(const Stretch& run, std::ostream* out)
{
    *out << run.entry << ": frames " << run.first << " to " << run.end << ", " << run.begin << " to "
         << run.finish << " ms";
}

// Measures media devices: from "open" to the first sound, against GStreamer's player used bare; how well the
// position follows the clock; and what a thousand opened media leave in memory.
#include "bench/support/heard.h"
#include "bench/support/measure.h"
#include "bench/support/mediafiles.h"
#include "system/drives/systemdrives.h"
#include "system/media/gstmediaelement.h"

#include <QCoreApplication>

#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <thread>
#include <vector>

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr int kRounds = 60;
constexpr int kFewCycles = 200;
constexpr int kManyCycles = 1000;

void command(MediaElement& element, const char* name)
{
    element.send(QString::fromLatin1(name));
    if (element.error() != 0)
        endWith(std::string(name) + ": " + element.errorMessage().toStdString());
}

double firstSound(MediaElement& element, const std::string& file, const Heard& heard)
{
    element.setDeviceType(QStringLiteral("ActiveMovie"));
    element.setFileName(programPath(file));
    const double time = milliseconds([&] {
        command(element, "open");
        command(element, "play");
        heard.awaitFirst();
    });
    command(element, "close");
    heard.forget();
    return time;
}

// Returns how much "position less time since", in milliseconds, differs from one look to the next.
double unsteadiness(MediaElement& element, const std::string& file, const Heard& heard)
{
    element.setFileName(programPath(file));
    command(element, "open");
    command(element, "play");
    heard.awaitFirst();
    std::vector<double> leads;
    const auto start = Clock::now();
    for (auto next = start; next < start + 10s; next += 10ms) {
        std::this_thread::sleep_until(next);
        const std::chrono::duration<double, std::milli> since = Clock::now() - start;
        leads.push_back(element.position() - since.count());
        heard.forget();
    }
    command(element, "close");
    heard.forget();
    double mean = 0;
    for (const double lead : leads)
        mean += lead / static_cast<double>(leads.size());
    double squares = 0;
    for (const double lead : leads)
        squares += (lead - mean) * (lead - mean) / static_cast<double>(leads.size());
    return std::sqrt(squares);
}

// One of a kind, with and without an end, a stop and a seek; every tenth cannot be opened.
void cycle(MediaElement& element, const MediaFiles& files, int number, const Heard& heard)
{
    const std::array<const std::string*, 3> music{&files.wav, &files.mp3, &files.ogg};
    if (number % 10 == 9) {
        element.setFileName(programPath(files.damaged));
        element.send(QStringLiteral("open"));
        if (element.error() == 0)
            endWith("noise was opened");
        return;
    }
    element.setFileName(programPath(*music[static_cast<std::size_t>(number) % music.size()]));
    command(element, "open");
    if (number % 4 == 1)
        element.setFrom(5000);
    if (number % 4 == 2)
        element.setTo(2000);
    command(element, "play");
    heard.awaitFirst();
    if (number % 4 == 3) {
        command(element, "stop");
        element.setFrom(3000);
        command(element, "seek");
        command(element, "play");
    }
    command(element, "close");
    heard.forget();
}

void reportMemory(MediaElement& element, const MediaFiles& files, const Heard& heard)
{
    constexpr double kMegabyte = 1024.0 * 1024.0;
    Pair pair{};
    for (int number = 0; number < kManyCycles; ++number) {
        if (number == kFewCycles)
            pair.rival = static_cast<double>(residentBytes()) / kMegabyte;
        cycle(element, files, number, heard);
    }
    pair.ours = static_cast<double>(residentBytes()) / kMegabyte;
    report("resident after 1,000 mixed cycles of open, play and close", "after 200 of them", pair, "MB");
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    gst_init(nullptr, nullptr);
    const std::string work = argc > 1 ? argv[1] : "build/bench";
    const MediaFiles files(work);
    const Heard heard;
    qputenv("SONGBIN_AUDIO_SINK", QByteArray::fromStdString(heard.sink()));
    SystemDrives drives({.user = {}, .declared = {}});
    GstMediaElement element(drives);
    for (const std::string& file : {files.wav, files.mp3, files.ogg})
        report("\"open\" and \"play\" to the first sound, " + file.substr(file.size() - 3) + " (median)",
               "a bare playbin: PAUSED, PLAYING",
               median(
                   kRounds, [&] { return firstSound(element, file, heard); },
                   [&] { return bareFirstSound(file, heard); }));
    std::printf("| position against the wall clock over 10 s, standard deviation | - | %.1f ms | | |\n",
                unsteadiness(element, files.mp3, heard));
    std::fflush(stdout);
    reportMemory(element, files, heard);
}

// Measures the processor time of the whole program while its player plays, against gst-launch-1.0, and while
// it stands still, minimised. It needs an X server with a window manager, a session bus, and Songbin beside
// it.
#include "bench/support/measure.h"

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace {

using Seconds = std::chrono::seconds;
namespace fs = std::filesystem;

constexpr auto kSettles = Seconds(4);
constexpr auto kWatched = Seconds(10);
const char* const kSink = "fakesink sync=true";

class Running {
public:
    explicit Running(const std::vector<std::string>& words)
    {
        std::vector<char*> arguments;
        for (const std::string& word : words)
            arguments.push_back(const_cast<char*>(word.c_str()));
        arguments.push_back(nullptr);
        m_process = fork();
        if (m_process == 0) {
            execvp(arguments[0], arguments.data());
            _exit(127);
        }
    }
    ~Running()
    {
        kill(m_process, SIGTERM);
        waitpid(m_process, nullptr, 0);
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

    // Returns the milliseconds of all its threads.
    double processorTime() const
    {
        std::ifstream file("/proc/" + std::to_string(m_process) + "/stat");
        std::string text;
        std::getline(file, text);
        std::istringstream fields(text.substr(text.rfind(')') + 2));
        constexpr int kUserTime = 11; // behind the name and the two fields before it
        std::string field;
        double ticks = 0;
        for (int i = 0; i <= kUserTime + 1 && fields >> field; ++i)
            if (i >= kUserTime)
                ticks += std::stod(field);
        return ticks * 1000 / static_cast<double>(sysconf(_SC_CLK_TCK));
    }
    double watched() const
    {
        const double before = processorTime();
        std::this_thread::sleep_for(kWatched);
        const double used = processorTime() - before;
        if (waitpid(m_process, nullptr, WNOHANG) != 0)
            endWith("what was watched has ended");
        return used;
    }

private:
    pid_t m_process;
};

struct Place {
    fs::path songbin;
    fs::path song;
};

void writeSettings()
{
    const fs::path directory = fs::path(std::getenv("XDG_CONFIG_HOME")) / "Songbin";
    fs::create_directories(directory);
    std::ofstream(directory / "settings.conf") << "[Songbin/Options]\nShow Tips at Startup=0\n"
                                                  "[tonedeckpro/config]\nScrollName=1\nTimeFmt=1\n";
}

double ofPlayer(const Place& place)
{
    const Running songbin({place.songbin, place.song});
    std::this_thread::sleep_for(kSettles);
    return songbin.watched();
}

double ofLauncher(const Place& place)
{
    const Running launcher({"gst-launch-1.0", "-q", "playbin", "uri=file://" + place.song.string(),
                            std::string("audio-sink=") + kSink});
    std::this_thread::sleep_for(kSettles);
    return launcher.watched();
}

double standingStill(const Place& place)
{
    const Running songbin({place.songbin, place.song});
    std::this_thread::sleep_for(kSettles);
    runCommand("dbus-send --session --type=method_call --dest=org.mpris.MediaPlayer2.songbin "
               "/org/mpris/MediaPlayer2 org.mpris.MediaPlayer2.Player.Stop");
    runCommand("for id in $(xdotool search --onlyvisible --name '^(Songbin|Tonedeck)$'); do "
               "xdotool windowminimize $id; done");
    std::this_thread::sleep_for(Seconds(2));
    return songbin.watched();
}

} // namespace

int main(int, char** argv)
{
    const fs::path work = argv[1];
    const Place place{fs::canonical(argv[0]).parent_path().parent_path() / "Songbin/Songbin",
                      work / "A song with a name that is longer than what any display has room for.mp3"};
    runCommand("sox -q -n -r 44100 -c 2 '" + (work / "song.wav").string() + "' synth 60 pluck C4 pluck E4");
    runCommand("lame --quiet -b 192 '" + (work / "song.wav").string() + "' '" + place.song.string() + "'");
    writeSettings();
    setenv("SONGBIN_AUDIO_SINK", kSink, 1);
    report("processor time while playing an MP3 for 10 s", "`gst-launch-1.0` playing it",
           median(
               3, [&] { return ofPlayer(place); }, [&] { return ofLauncher(place); }));
    const double still = standingStill(place);
    const auto span = static_cast<double>(std::chrono::milliseconds(kWatched).count());
    std::printf("| processor time stopped and minimised | - | %.2f %% of a core | - | - |\n",
                still / span * 100);
}

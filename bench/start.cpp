// Measures from the start of the process to the first painting of the main window, against a bare
// QMainWindow.
#include "bench/support/measure.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace {

constexpr int kRounds = 15;

double once(const std::string& program)
{
    return milliseconds([&] {
        const pid_t child = fork();
        if (child == 0) {
            execl(program.c_str(), program.c_str(), nullptr);
            _exit(127);
        }
        int status = 0;
        waitpid(child, &status, 0);
        if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
            std::exit((std::fprintf(stderr, "%s failed\n", program.c_str()), 1));
    });
}

} // namespace

int main(int, char** argv)
{
    const std::string here = std::filesystem::path(argv[0]).parent_path();
    once(here + "/bench_start_songbin");
    report("start to first paint of the main window", "a bare QMainWindow",
           best(
               kRounds, [&] { return once(here + "/bench_start_songbin"); },
               [&] { return once(here + "/bench_start_bare"); }));
}

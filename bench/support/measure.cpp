#include "bench/support/measure.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <vector>

double milliseconds(const std::function<void()>& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

Pair best(int rounds, const std::function<double()>& ours, const std::function<double()>& rival)
{
    Pair pair{std::numeric_limits<double>::max(), std::numeric_limits<double>::max()};
    for (int i = 0; i < rounds; ++i) {
        pair.rival = std::min(pair.rival, rival());
        pair.ours = std::min(pair.ours, ours());
    }
    return pair;
}

Pair median(int rounds, const std::function<double()>& ours, const std::function<double()>& rival)
{
    std::vector<double> mine;
    std::vector<double> others;
    for (int i = 0; i < rounds; ++i) {
        others.push_back(rival());
        mine.push_back(ours());
    }
    const auto middle = [](std::vector<double>& times) {
        const auto at = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
        std::nth_element(times.begin(), at, times.end());
        return *at;
    };
    return {middle(mine), middle(others)};
}

void report(const std::string& work, const std::string& rival, Pair pair, const char* unit)
{
    std::printf("| %s | %s | %.1f %s | %.1f %s | %.2fx |\n", work.c_str(), rival.c_str(), pair.ours, unit,
                pair.rival, unit, pair.ours / pair.rival);
    std::fflush(stdout);
}

long residentBytes()
{
    long size = 0;
    long resident = 0;
    std::ifstream("/proc/self/statm") >> size >> resident;
    return resident * sysconf(_SC_PAGESIZE);
}

void runCommand(const std::string& command)
{
    if (std::system(command.c_str()) != 0)
        endWith("failed: " + command);
}

void endWith(const std::string& complaint)
{
    std::fprintf(stderr, "%s\n", complaint.c_str());
    std::exit(1);
}

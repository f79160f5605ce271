// Times two rivals in one run.
#pragma once

#include <functional>
#include <string>

// Returns the milliseconds that the work takes.
double milliseconds(const std::function<void()>& work);

struct Pair {
    double ours;
    double rival;
};

// Runs both in turn, so that what else the machine does meets both, and takes the best time of each. The work
// may return less than it took, where part of it does not count.
Pair best(int rounds, const std::function<double()>& ours, const std::function<double()>& rival);

// The same with the median of each, for works whose best time is a stroke of luck.
Pair median(int rounds, const std::function<double()>& ours, const std::function<double()>& rival);

// Prints one line of the table: "| work | rival | ours | rival's | 0.61x |".
void report(const std::string& work, const std::string& rival, Pair pair, const char* unit = "ms");

long residentBytes();

// Runs a command of the system's shell; ends the program when it fails.
void runCommand(const std::string& command);
[[noreturn]] void endWith(const std::string& complaint);

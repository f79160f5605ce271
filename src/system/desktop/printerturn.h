// The toolkit's way to printers is for one thread at a time: whoever goes it holds a turn meanwhile.
#pragma once

#include <chrono>

class PrinterTurn {
public:
    static constexpr std::chrono::milliseconds kPatience{3000};

    PrinterTurn(); // waits as long as it takes
    // Throws RunTimeError 482 when another thread has the turn all that time, because the printing system
    // does not answer it.
    explicit PrinterTurn(std::chrono::milliseconds patience);
    ~PrinterTurn();
    PrinterTurn(const PrinterTurn&) = delete;
    PrinterTurn& operator=(const PrinterTurn&) = delete;

    // Nobody else has a turn any more. It is false when a thread has it all that time: such a program must
    // not take the toolkit down.
    static bool takeForGood(std::chrono::milliseconds patience);
};

// Waits while another program has the archive locked: ten seconds in all, and the window says so.
#pragma once

#include "database/connection/connection.h"

#include <chrono>

class ImportView;
class Program;

class LockWait {
public:
    LockWait(Program& program, ImportView& view) : m_program(program), m_view(view) {}

    // Runs the step again and again until the archive is free. Throws what the step throws, ArchiveLocked
    // when the ten seconds are over; when the program is ending, after one second.
    template <typename Step>
    void run(Step&& step)
    {
        for (const Clock::time_point begin = Clock::now();;) {
            try {
                step();
                return end(begin);
            } catch (const ArchiveLocked&) {
                if (!goOn(begin))
                    throw;
            }
        }
    }

    // One try waits so long inside SQLite, where nothing is drawn.
    static constexpr std::chrono::milliseconds kOneTry{50};

private:
    using Clock = std::chrono::steady_clock;

    bool goOn(Clock::time_point begin);
    void end(Clock::time_point begin);
    void show(const QString& text);

    Program& m_program;
    ImportView& m_view;
    Clock::duration m_before{}; // spent by the waits that are over
    bool m_waited = false;
    QString m_shown;
};

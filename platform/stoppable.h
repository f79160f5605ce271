// A statement that can be ended while it runs.
#pragma once

#include <functional>

struct sqlite3;

// From here to its end statements of the database ask every few milliseconds whether to go on; false ends the
// one that runs with an error. What is asked must not use that database, and throws nothing.
class Stoppable {
public:
    Stoppable(sqlite3* database, std::function<bool()> goesOn);
    ~Stoppable();
    Stoppable(const Stoppable&) = delete;
    Stoppable& operator=(const Stoppable&) = delete;

private:
    sqlite3* m_database;
    std::function<bool()> m_goesOn;
};

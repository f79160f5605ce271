// Lets a statement be ended while it runs.
#pragma once

#include <functional>

class Connection;

// From here to its end the connection's statements ask whether to go on (Connection::setGoesOn).
class Stoppable {
public:
    Stoppable(Connection& connection, std::function<bool()> goesOn);
    ~Stoppable();
    Stoppable(const Stoppable&) = delete;
    Stoppable& operator=(const Stoppable&) = delete;

private:
    Connection& m_connection;
};

// What an ordinary user may do, in a test that may itself run with all rights.
#pragma once

#include <unistd.h>

// While it lives the process has the rights of a user who owns nothing.
class Unprivileged {
public:
    Unprivileged() : m_changed(geteuid() == 0 && seteuid(65534) == 0) {}
    ~Unprivileged()
    {
        if (m_changed && seteuid(0) != 0)
            _exit(1);
    }
    Unprivileged(const Unprivileged&) = delete;
    Unprivileged& operator=(const Unprivileged&) = delete;

private:
    bool m_changed;
};

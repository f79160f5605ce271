// Runs a function in a child process and hands back what it says, for tests that give up rights, fill a disk
// or are killed.
#pragma once

#include <QByteArray>

#include <cerrno>
#include <exception>
#include <functional>

#include <sys/wait.h>
#include <unistd.h>

class ChildProcess {
public:
    // The child gets the descriptor that it may write to and never returns.
    explicit ChildProcess(const std::function<void(int)>& work)
    {
        int ends[2];
        if (pipe(ends) != 0)
            return;
        m_id = fork();
        if (m_id == 0) {
            close(ends[0]);
            work(ends[1]);
            _exit(0);
        }
        close(ends[1]);
        m_from = ends[0];
    }
    ~ChildProcess()
    {
        wait();
        close(m_from);
    }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    pid_t id() const { return m_id; }

    // Reads up to the child's end.
    QByteArray readAll()
    {
        QByteArray all;
        for (QByteArray part = read(); !part.isEmpty(); part = read())
            all += part;
        return all;
    }

    // Reads at least one byte, or nothing at the end.
    QByteArray read()
    {
        char buffer[4096];
        ssize_t got = 0;
        do
            got = ::read(m_from, buffer, sizeof buffer);
        while (got < 0 && errno == EINTR);
        return got > 0 ? QByteArray(buffer, got) : QByteArray();
    }

    void wait()
    {
        if (m_id > 0)
            waitpid(m_id, nullptr, 0);
        m_id = -1;
    }

private:
    pid_t m_id = -1;
    int m_from = -1;
};

inline void say(int descriptor, const QByteArray& text)
{
    if (write(descriptor, text.constData(), static_cast<std::size_t>(text.size())) < 0)
        _exit(2);
}

// Returns what the work says, or the error that it ended with.
template <typename Work>
QByteArray saidByChild(Work&& work)
{
    ChildProcess child([&](int descriptor) {
        try {
            say(descriptor, work());
        } catch (const std::exception& error) {
            say(descriptor, QByteArray("error: ") + error.what());
        }
    });
    return child.readAll();
}

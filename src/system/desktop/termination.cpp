#include "system/desktop/termination.h"

#include "platform/program.h"

#include <QSocketNotifier>

#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int kSignals[] = {SIGTERM, SIGINT, SIGHUP};
constexpr int kSignalledStatus = 128; // as a shell tells it

volatile int writeEnd = -1;

// Does only what may be done inside a signal: the number goes through a pipe to the event loop.
void pass(int signal)
{
    const auto number = static_cast<unsigned char>(signal);
    if (::write(writeEnd, &number, 1) < 0) // a full pipe: it was told already
        return;
}

} // namespace

Termination::Termination(Program& program) : m_program(program)
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    m_signals.reset(ends[0]);
    writeEnd = ends[1];
    for (const int signal : kSignals)
        std::signal(signal, pass);
    auto* notifier = new QSocketNotifier(m_signals.get(), QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &Termination::end);
}

Termination::~Termination()
{
    for (const int signal : kSignals)
        std::signal(signal, SIG_DFL);
    if (writeEnd >= 0)
        ::close(writeEnd);
    writeEnd = -1;
}

void Termination::end()
{
    unsigned char signal = 0;
    if (::read(m_signals.get(), &signal, 1) == 1)
        m_program.end(kSignalledStatus + signal);
}

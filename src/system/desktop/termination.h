// Ends the program in good order when the desktop or a terminal tells it to go (SIGTERM, SIGINT, SIGHUP):
// loops end at their next yield, an import keeps what it inserted.
#pragma once

#include "platform/urgent.h"
#include "posix/descriptor.h"

#include <QObject>

class Program;

class Termination : public QObject, public Urgent {
    Q_OBJECT

public:
    explicit Termination(Program& program); // one a process
    ~Termination() override;

private:
    void end();

    Program& m_program;
    Descriptor m_signals;
};

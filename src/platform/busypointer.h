// Shows the hourglass for as long as it lives.
#pragma once

#include "platform/program.h"

class BusyPointer {
public:
    explicit BusyPointer(Program& program) : m_program(program) { m_program.setBusyPointer(true); }
    ~BusyPointer() { m_program.setBusyPointer(false); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

private:
    Program& m_program;
};

// The desktop's own way of opening things, and detached processes.
#pragma once

#include "platform/shell.h"

class Drives;

class DesktopShell : public Shell {
public:
    explicit DesktopShell(Drives& drives) : m_drives(drives) {}

    void open(const QString& target) override;
    void start(const QString& program) override;

private:
    Drives& m_drives;
};

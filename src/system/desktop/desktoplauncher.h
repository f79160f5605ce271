// Opens things in the desktop's own way, and starts detached processes.
#pragma once

#include "platform/launcher.h"

class Drives;

class DesktopLauncher : public Launcher {
public:
    explicit DesktopLauncher(Drives& drives) : m_drives(drives) {}

    void open(const QString& target) override;
    void start(const QString& program) override;

private:
    Drives& m_drives;
};

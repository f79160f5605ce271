// Holds what the tests of drives share.
#pragma once

#include "system/drives/systemdrives.h"
#include "tests/support/machine.h"

#include <gtest/gtest.h>

class SystemDrivesTest : public testing::Test {
protected:
    QByteArray at(const QByteArray& relative) const { return m_machine.temporary.at(relative); }

    QByteArray machinePath(const char16_t* path)
    {
        return m_drives.machinePath(QString::fromUtf16(path)).value_or("nothing");
    }

    static QString letters(SystemDrives& drives)
    {
        QString text;
        for (const Drive& drive : drives.list())
            text += drive.letter;
        return text;
    }

    static QByteArray rootOf(SystemDrives& drives, QChar letter)
    {
        return drives.machinePath(letter + QStringLiteral(":\\")).value_or("nothing");
    }

    // Makes a volume of that name, with its directory.
    QByteArray volume(const QByteArray& name, const QByteArray& type = "cifs",
                      const QByteArray& source = "//server/x") const
    {
        m_machine.temporary.makeDirectory(name);
        return Machine::mount(at(name), type, source);
    }

    Machine m_machine;
    Temporary& m_files = m_machine.temporary;
    SystemDrives m_drives{m_machine.setup()};
};

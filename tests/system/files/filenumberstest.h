// Holds what the tests of numbered files share.
#pragma once

#include "system/files/systemfilenumbers.h"
#include "tests/support/errorof.h"
#include "tests/support/machine.h"
#include "tests/support/rights.h"

#include <gtest/gtest.h>

inline const QString kA = QStringLiteral("D:\\a");

class FileNumbersTest : public testing::Test {
protected:
    QByteArray at(const QByteArray& relative) const { return m_machine.temporary.at(relative); }

    int binaryError(const QString& path)
    {
        const int error = errorOf([&] { m_numbers.openBinary(1, path); });
        m_numbers.close(1);
        return error;
    }
    int outputError(const QString& path)
    {
        const int error = errorOf([&] { m_numbers.openOutput(1, path); });
        m_numbers.close(1);
        return error;
    }

    // Returns each line, as text input gives them.
    QList<QByteArray> lines(const QByteArray& content)
    {
        m_tree.write("d/lines", content);
        m_numbers.openInput(9, QStringLiteral("D:\\lines"));
        QList<QByteArray> lines;
        while (!m_numbers.endOfFile(9))
            lines += m_numbers.lineInput(9);
        EXPECT_EQ(errorOf([&] { m_numbers.lineInput(9); }), numberOf(ErrorNumber::InputPastEnd));
        m_numbers.close(9);
        return lines;
    }

    Machine m_machine;
    Temporary& m_tree = m_machine.temporary;
    SystemDrives m_drives{m_machine.setup()};
    SystemFileNumbers m_numbers{m_drives};
};

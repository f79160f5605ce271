// Holds what the tests of files share.
#pragma once

#include "system/files/systemfiles.h"
#include "tests/support/errorof.h"
#include "tests/support/machine.h"
#include "tests/support/rights.h"

#include <gtest/gtest.h>

#include <filesystem>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

class SystemFilesTest : public testing::Test {
protected:
    QByteArray at(const QByteArray& relative) const { return m_machine.temporary.at(relative); }

    QStringList names(const char16_t* directory = u"D:\\")
    {
        QStringList names;
        for (const DirEntry& entry : m_files.list(QString::fromUtf16(directory)))
            names += entry.attributes == kDirectory ? entry.name + u'/' : entry.name;
        return names;
    }

    QStringList dir(const char16_t* pattern, int attributes = kNormal)
    {
        return m_files.dir(QString::fromUtf16(pattern), attributes);
    }

    int listError(const char16_t* directory)
    {
        return errorOf([&] { m_files.list(QString::fromUtf16(directory)); });
    }
    int copyError(const char16_t* from, const char16_t* to)
    {
        return errorOf([&] { m_files.copy(QString::fromUtf16(from), QString::fromUtf16(to)); });
    }
    int readError(const char16_t* path)
    {
        return errorOf([&] { m_files.read(QString::fromUtf16(path)); });
    }

    void makeSocket(const QByteArray& relative) const
    {
        const Descriptor listener(socket(AF_UNIX, SOCK_STREAM, 0));
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        qstrncpy(address.sun_path, at(relative), sizeof address.sun_path);
        ASSERT_EQ(bind(listener.get(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    }

    std::size_t filesIn(const QByteArray& relative) const
    {
        const std::filesystem::directory_iterator all(at(relative).toStdString());
        return static_cast<std::size_t>(std::distance(begin(all), end(all)));
    }

    Machine m_machine;
    Temporary& m_tree = m_machine.temporary;
    SystemDrives m_drives{m_machine.setup()};
    SystemFiles m_files{m_drives};
};

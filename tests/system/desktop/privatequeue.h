// Is a printing system of its own with one default queue, which keeps the jobs that it is sent.
#pragma once

#include "tests/support/temporary.h"

#include <QFile>
#include <QProcess>
#include <QStringList>

#include <chrono>
#include <filesystem>
#include <thread>

class PrivateQueue {
public:
    // A queue without a description passes everything on as it is.
    explicit PrivateQueue(const QByteArray& description = {})
    {
        if (!description.isEmpty())
            m_directory.write("queue.ppd", description);
        for (const char* directory : {"root", "cache", "state", "spool"})
            m_directory.makeDirectory(directory);
        const QByteArray at = m_directory.path();
        m_directory.write(
            "cupsd.conf",
            "Listen " + at +
                "/socket\nBrowsing Off\nPreserveJobFiles Yes\nDirtyCleanInterval 0\n"
                "DefaultAuthType None\n<Location />\nOrder allow,deny\nAllow all\n</Location>\n"
                "<Policy default>\n<Limit All>\nOrder deny,allow\nAllow all\n</Limit>\n</Policy>\n");
        m_directory.write("cups-files.conf", "FileDevice Yes\nServerRoot " + at + "/root\nCacheDir " + at +
                                                 "/cache\nStateDir " + at + "/state\nRequestRoot " + at +
                                                 "/spool\nAccessLog " + at + "/access\nErrorLog " + at +
                                                 "/errors\nPageLog " + at + "/pages\n");
        m_server.start(QStringLiteral("/usr/sbin/cupsd"),
                       {QStringLiteral("-f"), QStringLiteral("-c"), file("cupsd.conf"), QStringLiteral("-s"),
                        file("cups-files.conf")});
        m_ready = m_server.waitForStarted() && makeQueue();
    }
    ~PrivateQueue()
    {
        m_server.terminate();
        if (!m_server.waitForFinished(5000))
            m_server.kill();
        m_server.waitForFinished();
    }
    PrivateQueue(const PrivateQueue&) = delete;
    PrivateQueue& operator=(const PrivateQueue&) = delete;

    bool isReady() const { return m_ready; }
    QProcessEnvironment environment() const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("CUPS_SERVER"), file("socket"));
        environment.remove(QStringLiteral("PRINTER"));
        return environment;
    }
    QStringList jobs() const { return spooled('d'); }
    QByteArray ticket(int job) const // what it was sent with
    {
        QFile file(spooled('c').value(job));
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    }

private:
    QStringList spooled(char kind) const
    {
        QStringList found;
        for (const auto& entry : std::filesystem::directory_iterator(m_directory.at("spool").toStdString()))
            if (entry.path().filename().string().starts_with(kind))
                found += QString::fromStdString(entry.path().string());
        found.sort();
        return found;
    }
    QString file(const char* name) const { return QString::fromUtf8(m_directory.at(name)); }
    bool administrate(const QStringList& arguments) const
    {
        QProcess process;
        process.setProcessEnvironment(environment());
        process.start(QStringLiteral("lpadmin"), arguments);
        return process.waitForFinished(5000) && process.exitCode() == 0;
    }
    bool makeQueue() const
    {
        const QStringList queue = {
            QStringLiteral("-p"),
            QStringLiteral("Test"),
            QStringLiteral("-E"),
            QStringLiteral("-v"),
            QStringLiteral("file:/dev/null"),
            m_directory.exists("queue.ppd") ? QStringLiteral("-P") : QStringLiteral("-m"),
            m_directory.exists("queue.ppd") ? file("queue.ppd") : QStringLiteral("raw")};
        for (int tries = 0; tries < 100; ++tries) {
            if (m_directory.exists("socket") && administrate(queue))
                return administrate({QStringLiteral("-d"), QStringLiteral("Test")});
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
        return false;
    }

    Temporary m_directory;
    QProcess m_server;
    bool m_ready = false;
};

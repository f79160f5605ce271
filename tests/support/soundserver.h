// A sound server of its own on a private socket, for one test: a stereo null sink "null" is its default. As
// long as it lives, clients of this process find it and no other, also while it is stopped.
#pragma once

#include "tests/support/eventually.h"
#include "tests/support/temporary.h"
#include "tests/support/variable.h"

#include <QProcess>
#include <QRegularExpression>
#include <QStringList>

#include <chrono>
#include <csignal>
#include <list>
#include <optional>
#include <stdexcept>
#include <thread>

#include <sys/prctl.h>

class SoundServer {
public:
    enum class Begin { Started, Stopped };

    explicit SoundServer(Begin begin = Begin::Started)
    {
        for (const char* directory : {"home", "runtime"})
            m_directory.makeDirectory(directory);
        m_process.setProcessEnvironment(environment());
        m_process.setProcessChannelMode(QProcess::MergedChannels);
        m_process.setStandardOutputFile(QString::fromUtf8(m_directory.at("log")));
        // A test that crashes must not leave a server behind.
        m_process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
        if (begin == Begin::Started)
            start();
    }
    ~SoundServer() { stop(); }
    SoundServer(const SoundServer&) = delete;
    SoundServer& operator=(const SoundServer&) = delete;

    // Returns when it answers.
    void start()
    {
        m_process.start(QStringLiteral("pulseaudio"), arguments());
        const auto answers = [this] {
            return m_directory.exists("native") && tryPactl(words("info")).has_value();
        };
        if (!m_process.waitForStarted() || !eventually(answers))
            throw std::runtime_error("no sound server: " + m_directory.read("log").toStdString());
    }
    void stop()
    {
        if (m_process.state() == QProcess::NotRunning)
            return;
        thaw();
        m_process.terminate();
        if (!m_process.waitForFinished(5000))
            kill();
    }
    void kill()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    void freeze() { ::kill(static_cast<pid_t>(m_process.processId()), SIGSTOP); }
    void thaw() { ::kill(static_cast<pid_t>(m_process.processId()), SIGCONT); }

    // The words of one pactl command, parted by blanks; it must succeed.
    QString pactl(const char* command)
    {
        const std::optional<QString> said = tryPactl(words(command));
        if (!said)
            throw std::runtime_error(std::string("pactl failed: ") + command);
        return *said;
    }

    // Of each channel of a sink, 65,536 is full.
    std::list<int> levels(const char* sink = "@DEFAULT_SINK@")
    {
        static const QRegularExpression kLevel(QStringLiteral(": +(\\d+) +/"));
        const QString said = pactl(("get-sink-volume " + std::string(sink)).c_str());
        std::list<int> levels;
        for (auto found = kLevel.globalMatch(said); found.hasNext();)
            levels.push_back(found.next().captured(1).toInt());
        return levels;
    }

    const Temporary& directory() const { return m_directory; }

private:
    static QStringList words(const char* text)
    {
        return QString::fromUtf8(text).split(QChar(u' '), Qt::SkipEmptyParts);
    }
    QStringList arguments() const
    {
        return words("-n --daemonize=no --exit-idle-time=-1 --use-pid-file=no --realtime=no "
                     "--high-priority=no --disable-shm=yes") +
               QStringList{QStringLiteral("-L"),
                           QStringLiteral("module-native-protocol-unix auth-anonymous=1 socket=") +
                               QString::fromUtf8(m_directory.at("native")),
                           QStringLiteral("-L"),
                           QStringLiteral("module-null-sink sink_name=null rate=44100 format=s16le "
                                          "channels=2 norewinds=1")};
    }
    // Holds nothing of the user's own: neither settings nor another server.
    QProcessEnvironment environment() const
    {
        QProcessEnvironment environment;
        environment.insert(QStringLiteral("PATH"), qEnvironmentVariable("PATH"));
        environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
        environment.insert(QStringLiteral("HOME"), QString::fromUtf8(m_directory.at("home")));
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), QString::fromUtf8(m_directory.at("runtime")));
        environment.insert(QStringLiteral("PULSE_SERVER"),
                           QStringLiteral("unix:") + QString::fromUtf8(m_directory.at("native")));
        return environment;
    }
    std::optional<QString> tryPactl(const QStringList& command) const
    {
        QProcess process;
        process.setProcessEnvironment(environment());
        process.start(QStringLiteral("pactl"), command);
        const bool done = process.waitForFinished(5000) && process.exitStatus() == QProcess::NormalExit &&
                          process.exitCode() == 0;
        return done ? std::optional(QString::fromUtf8(process.readAllStandardOutput())) : std::nullopt;
    }

    Temporary m_directory;
    Variable m_server{"PULSE_SERVER", "unix:" + m_directory.at("native")};
    Variable m_cookie{"PULSE_COOKIE", m_directory.at("cookie")};
    Variable m_home{"HOME", m_directory.at("home")};
    Variable m_runtime{"XDG_RUNTIME_DIR", m_directory.at("runtime")};
    QProcess m_process;
};

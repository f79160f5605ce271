// Makes the cache of the user's in which the media library keeps what it knows of its plug-ins before
// something is first played, because looking at all plug-ins takes seconds. A process of its own does it,
// behind all others, and nothing is lost when it is ended half way.
#pragma once

#include <QByteArray>
#include <QProcess>

class MediaPreparation {
public:
    // Takes the executable, which prepares when it is started with kOption.
    explicit MediaPreparation(QByteArray executable) : m_executable(std::move(executable)) {}
    ~MediaPreparation(); // ends it

    static constexpr char kOption[] = "--prepare-media";

    void begin(); // when it is not there yet, or plug-ins came or went since

private:
    QByteArray m_executable;
    QProcess m_process;
};

// Is called in that process, before anything else, with the module's absolute path; it returns the exit
// status.
int prepareMedia(const QByteArray& module);

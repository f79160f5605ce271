// What the media library keeps about its plug-ins, in a cache of the user's: made before something is first
// played, because looking at all plug-ins takes seconds. A process of its own does it, behind all others, and
// nothing is lost when it is ended half way.
#pragma once

#include <QByteArray>
#include <QProcess>

class MediaPreparation {
public:
    // The executable, which prepares when it is started with kOption.
    explicit MediaPreparation(QByteArray executable) : m_executable(std::move(executable)) {}
    ~MediaPreparation(); // ends it

    static constexpr char kOption[] = "--prepare-media";

    void begin(); // when it is not there yet, or plug-ins came or went since

private:
    QByteArray m_executable;
    QProcess m_process;
};

// In that process, before anything else; the module's absolute path. The exit status.
int prepareMedia(const QByteArray& module);

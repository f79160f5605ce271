#include "platform/mediapreparation.h"

#include "platform/loadedmedia.h"

#include <QDir>
#include <QFileInfo>

#include <csignal>
#include <sys/prctl.h>
#include <sys/resource.h>

MediaPreparation::~MediaPreparation()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.kill();
    m_process.waitForFinished(300);
}

void MediaPreparation::begin()
{
    if (isMediaPrepared() || m_process.state() != QProcess::NotRunning)
        return;
    m_process.setStandardInputFile(QProcess::nullDevice());
    m_process.setStandardOutputFile(QProcess::nullDevice());
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_process.start(QString::fromLocal8Bit(m_executable), {QLatin1String(kOption)});
}

bool isMediaPrepared()
{
    for (const char* variable : {"GST_REGISTRY_1_0", "GST_REGISTRY"})
        if (const QString file = qEnvironmentVariable(variable); !file.isEmpty())
            return QFileInfo::exists(file);
    const QString named = qEnvironmentVariable("XDG_CACHE_HOME");
    const QDir cache((named.isEmpty() ? QDir::homePath() + QStringLiteral("/.cache") : named) +
                     QStringLiteral("/gstreamer-1.0"));
    return !cache.entryList({QStringLiteral("registry.*.bin")}, QDir::Files).isEmpty();
}

int prepareMedia(const QByteArray& module)
{
    constexpr int kBehindAllOthers = 19;
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    setpriority(PRIO_PROCESS, 0, kBehindAllOthers); // as far as it can
    return prepareLoadedMedia(module) ? 0 : 1;
}

#include "system/media/mediapreparation.h"

#include "system/media/medialoader.h"
#include "system/media/plugincache.h"

#include <chrono>
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
    plugincache::removeLeftovers();
    if (plugincache::isFresh() || m_process.state() != QProcess::NotRunning)
        return;
    m_process.setStandardInputFile(QProcess::nullDevice());
    m_process.setStandardOutputFile(QProcess::nullDevice());
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_process.start(QString::fromLocal8Bit(m_executable), {QLatin1String(kOption)});
}

int prepareMedia(const QByteArray& module)
{
    constexpr int kBehindAllOthers = 19;
    constexpr std::chrono::minutes kLongest(1);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    setpriority(PRIO_PROCESS, 0, kBehindAllOthers); // as far as it can
    const Descriptor turn = plugincache::turn(kLongest);
    if (!prepareLoadedMedia(module))
        return 1;
    plugincache::noteLook();
    return 0;
}

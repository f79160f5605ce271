#include "system/media/plugincache.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kStep(20);
constexpr qint64 kLongestWrite = 60; // seconds

QString firstOf(std::initializer_list<const char*> variables)
{
    for (const char* variable : variables)
        if (QString value = qEnvironmentVariable(variable); !value.isEmpty())
            return value;
    return {};
}

QString userPath(const char* variable, const QString& otherwise)
{
    const QString named = qEnvironmentVariable(variable);
    return named.isEmpty() ? QDir::homePath() + otherwise : named;
}

QString namedFile()
{
    return firstOf({"GST_REGISTRY_1_0", "GST_REGISTRY"});
}

QDir directory()
{
    const QString file = namedFile();
    return file.isEmpty() ? QDir(userPath("XDG_CACHE_HOME", QStringLiteral("/.cache")) +
                                 QStringLiteral("/gstreamer-1.0"))
                          : QFileInfo(file).absoluteDir();
}

// Its name tells the processor: the newest one is this machine's.
QFileInfo cacheFile()
{
    if (const QString file = namedFile(); !file.isEmpty())
        return QFileInfo(file);
    const QFileInfoList found =
        directory().entryInfoList({QStringLiteral("registry.*.bin")}, QDir::Files, QDir::Time);
    return found.isEmpty() ? QFileInfo() : found.front();
}

QStringList pluginDirectories()
{
    QString system = firstOf({"GST_PLUGIN_SYSTEM_PATH_1_0", "GST_PLUGIN_SYSTEM_PATH"});
    if (system.isEmpty())
        system = QStringLiteral(SONGBIN_PLUGINS ":") +
                 userPath("XDG_DATA_HOME", QStringLiteral("/.local/share")) +
                 QStringLiteral("/gstreamer-1.0/plugins");
    const QString more = firstOf({"GST_PLUGIN_PATH_1_0", "GST_PLUGIN_PATH"});
    return (system + u':' + more).split(u':', Qt::SkipEmptyParts);
}

} // namespace

bool plugincache::isFresh()
{
    const QFileInfo cache = cacheFile();
    const QStringList directories = pluginDirectories();
    return cache.exists() && std::none_of(directories.begin(), directories.end(), [&](const QString& name) {
               const QFileInfo plugins(name);
               return plugins.exists() && plugins.lastModified() > cache.lastModified();
           });
}

void plugincache::noteLook()
{
    if (const QFileInfo cache = cacheFile(); cache.exists())
        utimensat(AT_FDCWD, QFile::encodeName(cache.filePath()).constData(), nullptr, 0);
}

void plugincache::removeLeftovers()
{
    const QString named = namedFile();
    const QString name = named.isEmpty() ? QStringLiteral("registry.*.bin") : QFileInfo(named).fileName();
    const QDateTime now = QDateTime::currentDateTime();
    for (const QFileInfo& file :
         directory().entryInfoList({name + QStringLiteral(".tmp??????")}, QDir::Files | QDir::Hidden))
        if (file.lastModified().secsTo(now) > kLongestWrite)
            QFile::remove(file.filePath());
}

// A lock of the directory itself leaves no file behind.
Descriptor plugincache::turn(std::chrono::milliseconds patience)
{
    const QDir place = directory();
    place.mkpath(QStringLiteral("."));
    Descriptor held(open(QFile::encodeName(place.path()).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const auto latest = Clock::now() + patience;
    while (held && flock(held.get(), LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK || Clock::now() >= latest)
            held.reset();
        else
            std::this_thread::sleep_for(kStep);
    }
    return held;
}

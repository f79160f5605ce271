#include "system/desktop/systeminformation.h"

#include "base/dospath.h"
#include "platform/drives.h"

#include <QList>

#include <algorithm>
#include <array>

#include <sys/stat.h>
#include <unistd.h>

namespace {

const QString kKey = QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO");
const QString kName = QStringLiteral("PATH");

// These programs have a window about the machine and need no argument; the most telling come first.
constexpr std::array<QByteArrayView, 6> kPrograms = {
    "hardinfo2", "hardinfo", "kinfocenter", "cpu-x", "lshw-gtk", "xfce4-about",
};

bool isProgram(const QByteArray& file)
{
    struct stat state {};
    return ::stat(file.constData(), &state) == 0 && S_ISREG(state.st_mode) &&
           ::access(file.constData(), X_OK) == 0;
}

QByteArray findProgram(const QByteArray& searchPath)
{
    const QList<QByteArray> directories = searchPath.split(':');
    for (const QByteArrayView program : kPrograms)
        for (const QByteArray& directory : directories) {
            QByteArray file = directory + '/' + program.toByteArray();
            if (directory.startsWith('/') && isProgram(file))
                return file;
        }
    return {};
}

bool isOurs(const QString& path)
{
    const QByteArray name = dospath::fileName(path).toUtf8();
    return std::ranges::find(kPrograms, QByteArrayView(name)) != kPrograms.end();
}

bool isThere(Drives& drives, const QString& path)
{
    const std::optional<QByteArray> file = drives.machinePath(path);
    return file && isProgram(*file);
}

} // namespace

void seedSystemInformation(Registry& registry, Drives& drives, const QByteArray& searchPath)
{
    const std::optional<RegistryValue> known = registry.query(RootKey::LocalMachine, kKey, kName);
    if (known && known->type == kRegSz && isThere(drives, known->text))
        return;
    const QByteArray found = findProgram(searchPath);
    if (!found.isEmpty())
        registry.set(RootKey::LocalMachine, kKey, kName, {kRegSz, drives.drivePath(found), {}});
    else if (known && known->type == kRegSz && isOurs(known->text))
        registry.remove(RootKey::LocalMachine, kKey, kName);
}

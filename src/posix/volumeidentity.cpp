#include "posix/volumeidentity.h"

#include "posix/mounttable.h"
#include "posix/volumelabel.h"

namespace {

bool holds(const Mount& mount, const QByteArray& directory)
{
    const QByteArray place = mount.directory.endsWith('/') ? mount.directory : mount.directory + '/';
    return directory.startsWith(place) || directory + '/' == place;
}

} // namespace

QByteArray VolumeIdentity::ofDirectory(const QByteArray& directory) const
{
    Mount innermost;
    for (const Mount& mount : MountTable(m_mounts).read())
        if (holds(mount, directory) && mount.directory.size() > innermost.directory.size())
            innermost = mount;
    if (innermost.directory.isEmpty())
        return {};
    const QString uuid = volumelabel::ofLinks(m_uuids, innermost.source);
    return uuid.isEmpty() ? innermost.type + ' ' + innermost.source : "UUID " + uuid.toUtf8();
}

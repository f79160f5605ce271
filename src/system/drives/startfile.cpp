#include "system/drives/startfile.h"

#include "system/drives/systemdrives.h"

#include <sys/stat.h>

#include <cerrno>
#include <optional>

namespace {

bool isAbsent(const QByteArray& path)
{
    struct stat status {};
    return stat(path.constData(), &status) != 0 && (errno == ENOENT || errno == ENOTDIR);
}

// Decodes the path of an address; it is nothing for a file of another machine.
std::optional<QByteArray> pathOf(const QByteArray& file)
{
    if (file.startsWith('/'))
        return file;
    const QByteArray rest = file.mid(qstrlen("file://"));
    const qsizetype slash = rest.indexOf('/');
    const QByteArray machine = rest.left(slash);
    if (slash < 0 || !(machine.isEmpty() || machine.compare("localhost", Qt::CaseInsensitive) == 0))
        return std::nullopt;
    return rest.mid(slash).percentDecoded();
}

// Makes "D:\Music\a.mp3" of "/D:/Music/a.mp3", and else leaves a path of this machine.
QString programPath(const QByteArray& path, SystemDrives& drives)
{
    const bool namesDrive = path.size() > 2 && path[2] == ':';
    return namesDrive ? QString::fromUtf8(path.mid(1)).replace(u'/', u'\\') : drives.drivePath(path);
}

} // namespace

bool mayBeThere(const QByteArray& file, const UserDirectories& user, const QByteArray& declaredDrives)
{
    const std::optional<QByteArray> path = pathOf(file);
    if (!path || !isAbsent(*path))
        return true;
    SystemDrives drives({.user = user, .declared = declaredDrives});
    const std::optional<QByteArray> found = drives.machinePath(programPath(*path, drives));
    return found && !isAbsent(*found);
}

QByteArray notThere(const QByteArray& file)
{
    QByteArray name = file;
    for (char& byte : name)
        if (static_cast<unsigned char>(byte) < ' ' || byte == 0x7F)
            byte = '?';
    return "Songbin: there is no file " + name + '\n';
}

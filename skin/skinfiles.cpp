#include "skin/skinfiles.h"

#include "player/modcommon.h"

namespace {

const QString& baseOf(const SkinDirectories& directories)
{
    if (!directories.skins.isEmpty())
        return directories.skins;
    return directories.before.isEmpty() ? directories.program : directories.before;
}

} // namespace

QString skinFileName(const QString& name, int screenWidth)
{
    if (!name.endsWith(u'*'))
        return name;
    return name.chopped(1) + QString::number(screenWidth) + QStringLiteral(".skin");
}

std::optional<QString> findSkin(const QString& name, const SkinDirectories& directories,
                                const std::function<bool(const QString&)>& exists)
{
    const QString path = name.contains(u':') ? name : AddSlash(baseOf(directories)) + name;
    if (exists(path))
        return path;
    const QString beside = AddSlash(directories.program) + GetFileName(name);
    return exists(beside) ? std::optional(beside) : std::nullopt;
}

#include "player/tonedeck/skinfiles.h"

#include "base/runtimeerror.h"
#include "platform/filenumbers.h"
#include "player/playlist/modcommon.h"

#include <QScopeGuard>

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

std::optional<QByteArray> readWhole(FileNumbers& numbers, const QString& path, qint64 most)
{
    try {
        const int number = numbers.freeFile();
        const auto close = qScopeGuard([&] { numbers.close(number); });
        numbers.openBinary(number, path);
        const qint64 length = numbers.length(number);
        if (length > most)
            return std::nullopt;
        return numbers.get(number, 1, static_cast<int>(length));
    } catch (const RunTimeError&) {
        return std::nullopt;
    }
}

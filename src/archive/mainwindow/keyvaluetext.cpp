#include "archive/mainwindow/keyvaluetext.h"

#include "base/runtimeerror.h"
#include "platform/files.h"

#include <algorithm>

namespace {

QString numberText(const QByteArray& bytes)
{
    QByteArray reversed = bytes;
    std::ranges::reverse(reversed);
    const QString digits = QString::fromLatin1(reversed.toHex().toUpper());
    bool ok = false;
    const quint64 number = digits.toULongLong(&ok, 16);
    if (!ok)
        return QStringLiteral("&h") + digits;
    if (bytes.size() <= qsizetype(sizeof(qint32)))
        return QString::number(static_cast<qint32>(number));
    return QString::number(number);
}

} // namespace

KeyValueResult GetKeyValue(Registry& registry, RootKey root, const QString& key, const QString& name)
{
    try {
        const std::optional<RegistryValue> value = registry.query(root, key, name);
        if (!value)
            return {false, {}};
        if (value->type == kRegSz)
            return {true, value->text.left(value->text.indexOf(QChar(u'\0')))};
        return {true, numberText(value->bytes)};
    } catch (const RunTimeError&) {
        return {false, {}};
    }
}

std::optional<QString> findSystemInformation(Registry& registry, Files& files)
{
    const KeyValueResult path =
        GetKeyValue(registry, RootKey::LocalMachine,
                    QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO"), QStringLiteral("PATH"));
    if (path.found)
        return path.text;
    const KeyValueResult place =
        GetKeyValue(registry, RootKey::LocalMachine,
                    QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools Location"), QStringLiteral("MSINFO"));
    const QString program = place.text + QStringLiteral("\\MSINFO32.EXE");
    if (place.found && files.exists(program))
        return program;
    return {};
}

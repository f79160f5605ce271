#include "system/settings/fileregistry.h"

#include <QtEndian>

namespace {

const QString kString = QStringLiteral("sz:");
const QString kNumber = QStringLiteral("dword:");
const QString kBinary = QStringLiteral("hex:");
const QString kOther = QStringLiteral("hex(");

QString sectionOf(RootKey root, QString key)
{
    while (key.endsWith(u'\\'))
        key.chop(1);
    return (root == RootKey::LocalMachine ? QStringLiteral("HKEY_LOCAL_MACHINE\\")
                                          : QStringLiteral("HKEY_CURRENT_USER\\")) +
           key;
}

QString hexadecimal(const QByteArray& bytes)
{
    return QString::fromLatin1(bytes.toHex());
}

QString lineOf(const RegistryValue& value)
{
    if (value.type == kRegSz) {
        qsizetype size = value.text.size();
        while (size > 0 && value.text[size - 1].isNull())
            --size;
        return kString + value.text.left(size);
    }
    if (value.type == kRegDword && value.bytes.size() == sizeof(quint32))
        return kNumber + QString::number(qFromLittleEndian<quint32>(value.bytes.constData()));
    if (value.type == kRegBinary)
        return kBinary + hexadecimal(value.bytes);
    return kOther + QString::number(value.type) + QStringLiteral("):") + hexadecimal(value.bytes);
}

std::optional<RegistryValue> numberOf(QStringView text)
{
    bool ok = false;
    const quint32 number = text.toUInt(&ok);
    if (!ok)
        return {};
    QByteArray bytes(sizeof number, '\0');
    qToLittleEndian(number, bytes.data());
    return RegistryValue{kRegDword, {}, bytes};
}

std::optional<RegistryValue> bytesOf(int type, QStringView digits)
{
    const QByteArray text = digits.toUtf8();
    const QByteArray bytes = QByteArray::fromHex(text);
    if (bytes.toHex() != text.toLower()) // fromHex() skips what is no digit
        return {};
    return RegistryValue{type, {}, bytes};
}

std::optional<RegistryValue> otherOf(QStringView text)
{
    const qsizetype close = text.indexOf(u"):");
    bool ok = false;
    const int type = text.first(std::max(close, qsizetype(0))).toInt(&ok);
    if (!ok || type == kRegSz)
        return {};
    return bytesOf(type, text.sliced(close + 2));
}

std::optional<RegistryValue> valueOf(QStringView line)
{
    if (line.startsWith(kString))
        return RegistryValue{kRegSz, line.sliced(kString.size()).toString(), {}};
    if (line.startsWith(kNumber))
        return numberOf(line.sliced(kNumber.size()));
    if (line.startsWith(kBinary))
        return bytesOf(kRegBinary, line.sliced(kBinary.size()));
    if (line.startsWith(kOther))
        return otherOf(line.sliced(kOther.size()));
    return {};
}

} // namespace

std::optional<RegistryValue> FileRegistry::query(RootKey root, const QString& key, const QString& name)
{
    const std::optional<QString> line = m_file.value(sectionOf(root, key), name);
    return line ? valueOf(*line) : std::nullopt;
}

bool FileRegistry::wasRead(RootKey root, const QString& key, const QString& name) const
{
    return m_file.wasRead(sectionOf(root, key), name);
}

bool FileRegistry::set(RootKey root, const QString& key, const QString& name, const RegistryValue& value)
{
    return m_file.set(sectionOf(root, key), name, lineOf(value));
}

bool FileRegistry::remove(RootKey root, const QString& key, const QString& name)
{
    return m_file.remove(sectionOf(root, key), name);
}

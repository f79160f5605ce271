#include "archive/core/registryaccess.h"

#include "base/codepage.h"
#include "base/runtimeerror.h"

#include <QtEndian>

#include <cmath>
#include <limits>

namespace {

constexpr qsizetype kBufferSize = 2048;

// Kept: a number leaves the buffer as text, but as many characters of it count as a number has bytes, less
// one for the zero that ends a string; 12345 reads as "123".
QString firstOfNumber(const QByteArray& buffer, qsizetype length)
{
    const quint32 number = qFromLittleEndian<quint32>(buffer.constData());
    return QString::number(number).rightJustified(3, u'0').left(std::max(length - 1, qsizetype(0)));
}

QString textOf(const RegistryValue& value)
{
    if (value.type == kRegSz)
        return value.text;
    if (value.type == kRegBinary)
        return QString::fromLatin1(value.bytes.toHex().toUpper());
    QByteArray buffer(kBufferSize, ' ');
    buffer.replace(0, value.bytes.size(), value.bytes);
    if (value.type == kRegDword)
        return firstOfNumber(buffer, value.length());
    return CodePage::windows1252().toText(buffer.first(std::max(value.length() - 1, qsizetype(0))));
}

std::optional<qint32> numberOf(const SettingValue& value)
{
    if (const int* number = std::get_if<int>(&value))
        return *number;
    bool ok = false;
    const double number = std::nearbyint(std::get<QString>(value).toDouble(&ok)); // a half to the even one
    if (!ok ||
        !(number >= std::numeric_limits<qint32>::min() && number <= std::numeric_limits<qint32>::max()))
        return {};
    return static_cast<qint32>(number);
}

RegistryValue dword(qint32 number)
{
    QByteArray bytes(sizeof number, '\0');
    qToLittleEndian(number, bytes.data());
    return {kRegDword, {}, bytes};
}

// The text's own end counts to its length only where the caller's value is text.
RegistryValue string(int type, const SettingValue& value)
{
    if (const int* number = std::get_if<int>(&value))
        return {kRegSz, QString::number(*number), {}};
    QString text = std::get<QString>(value);
    if (type == kRegSz)
        text += QChar(u'\0');
    return {kRegSz, text, {}};
}

} // namespace

QString GetRegString(Registry& registry, RootKey root, const QString& subkey, const QString& name)
{
    try {
        const std::optional<RegistryValue> value = registry.query(root, subkey, name);
        return value && value->length() <= kBufferSize ? textOf(*value) : kNotFound;
    } catch (const RunTimeError&) {
        return kNotFound;
    }
}

void SaveRegValue(Registry& registry, RootKey root, const QString& subkey, const QString& name, int type,
                  const SettingValue& value)
{
    resumeNext([&] {
        if (type != kRegDword)
            registry.set(root, subkey, name, string(type, value));
        else if (const std::optional<qint32> number = numberOf(value))
            registry.set(root, subkey, name, dword(*number));
    });
}

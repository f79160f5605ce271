// Takes any settings file, any name and value: what is set is read back, what is removed is gone, and the
// other keys are as they were. The input is section, key, value and the file's bytes, parted by the byte 1.
#include "system/settings/keyvaluelines.h"
#include "tests/fuzz/demand.h"

#include <cstddef>
#include <cstdint>

namespace {

QByteArray takePart(QByteArray& rest)
{
    const qsizetype end = rest.indexOf('\1');
    const QByteArray part = rest.left(end);
    rest = end < 0 ? QByteArray() : rest.mid(end + 1);
    return part;
}

// The byte 2 becomes half a surrogate pair, which UTF-8 cannot say.
QString takeText(QByteArray& rest)
{
    return QString::fromUtf8(takePart(rest)).replace(QChar(2), QChar(0xD800));
}

void demandOthersKept(const KeyValueLines& before, const KeyValueLines& after, const QString& section,
                      const QString& changed)
{
    for (const QString& key : before.keys(section))
        if (key.compare(changed, Qt::CaseInsensitive) != 0)
            demand(after.value(section, key) == before.value(section, key), "other keys are kept");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    QByteArray rest(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QString section = takeText(rest);
    const QString key = takeText(rest);
    const QString value = takeText(rest);

    const KeyValueLines before(rest);
    const KeyValueLines set(before.with(section, key, value));
    demand(set.value(section, key) == value, "a value set is read back");
    demand(set.keys(section).contains(key, Qt::CaseInsensitive), "a key set is listed");
    demand(set.with(section, key, value) == set.content(), "setting again changes nothing");
    demandOthersKept(before, set, section, key);

    const KeyValueLines removed(set.without(section, key));
    demand(!removed.value(section, key), "a key removed is gone");
    demandOthersKept(before, removed, section, key);
    return 0;
}

// Takes any file as a packed set of pictures: what comes out of it stays within its limits, under plain
// names.
#include "player/packedsets/packedset.h"
#include "tests/fuzz/demand.h"

#include <cstddef>
#include <cstdint>
#include <set>

namespace {

bool isPlain(const QString& name)
{
    return !name.isEmpty() && !name.contains(u'/') && !name.contains(u'\\') && !name.startsWith(u'.') &&
           name == name.toLower();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const ZipFiles read =
        readZip(bytes, [](const QString& name) { return !packedset::fileName(name).isEmpty(); });
    demand(read.fault == ZipFiles::Fault::None || read.files.empty(), "a fault gives no files");
    demand(read.files.size() <= kMostZipFiles, "files within the limit");
    qint64 content = 0;
    for (const ZipFile& file : read.files) {
        demand(file.content.size() <= kMostZipFileBytes, "a file within the limit");
        content += file.content.size();
    }
    demand(content <= kMostZipContent, "all files within the limit");
    std::set<QString> names;
    for (const ZipFile& file : packedset::filesOfSet(read.files)) {
        demand(isPlain(file.name), "a name that stays in its directory");
        demand(names.insert(file.name).second, "each name once");
    }
    demand(names.empty() || names.contains(QStringLiteral("main.bmp")) ||
               names.contains(QStringLiteral("main.png")),
           "a set has a main picture");
    return 0;
}

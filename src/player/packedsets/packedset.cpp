#include "player/packedsets/packedset.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <optional>

#include <cstdlib>
#include <unistd.h>

namespace packedset {

namespace {

constexpr qsizetype kLongestName = 64;
constexpr qsizetype kHashDigits = 16;

bool isPlain(QChar c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'0' && c <= u'9') || c == u'_' || c == u'-' || c == u' ';
}

QString lastPart(const QString& name)
{
    return name.mid(std::max(name.lastIndexOf(u'/'), name.lastIndexOf(u'\\')) + 1);
}

QString directoryPart(const QString& name)
{
    return name.chopped(lastPart(name).size());
}

bool isMainPicture(const QString& file)
{
    return file == u"main.bmp" || file == u"main.png";
}

// Returns the directory of the main picture that lies least deep, with its slash.
std::optional<QString> directoryOfSet(const std::vector<ZipFile>& files)
{
    std::optional<QString> found;
    const auto depth = [](const QString& path) { return path.count(u'/') + path.count(u'\\'); };
    for (const ZipFile& file : files)
        if (const QString directory = directoryPart(file.name);
            isMainPicture(fileName(file.name)) && (!found || depth(directory) < depth(*found)))
            found = directory;
    return found;
}

Fault faultOf(ZipFiles::Fault fault)
{
    switch (fault) {
    case ZipFiles::Fault::None:
        return Fault::None;
    case ZipFiles::Fault::Damaged:
        return Fault::Damaged;
    case ZipFiles::Fault::Protected:
        return Fault::Protected;
    case ZipFiles::Fault::TooLarge:
        return Fault::TooLarge;
    case ZipFiles::Fault::NoReader:
        return Fault::NoReader;
    }
    return Fault::Damaged;
}

// Makes such a name as "gold deck-0123456789abcdef".
QString directoryName(const QByteArray& archive, const QString& name)
{
    QString text;
    const QString base = lastPart(name).section(u'.', 0, 0).toLower();
    for (const QChar c : base.left(kLongestName))
        text += isPlain(c) ? c : u'_';
    const QByteArray hash = QCryptographicHash::hash(archive, QCryptographicHash::Sha256).toHex();
    return text + u'-' + QString::fromLatin1(hash.left(kHashDigits));
}

bool isDirectoryName(const QString& name)
{
    const QString hash = name.section(u'-', -1);
    return name.contains(u'-') && hash.size() == kHashDigits && std::ranges::all_of(name, isPlain);
}

// Removes files directly in it; what somebody else put deeper stays, and then the directory too.
void removeDirectory(const QString& path)
{
    QDir directory(path);
    if (QFileInfo(path).isSymLink())
        return;
    for (const QString& file : directory.entryList(QDir::Files | QDir::Hidden | QDir::System))
        directory.remove(file);
    QDir().rmdir(path);
}

bool write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::NewOnly) && file.write(content) == content.size() &&
           file.flush() && fsync(file.handle()) == 0;
}

bool writeAll(const QString& directory, const std::vector<ZipFile>& files)
{
    return std::ranges::all_of(files, [&directory](const ZipFile& file) {
        return write(directory + u'/' + file.name, file.content);
    });
}

// The new directory is made beside, and then put in the old one's place.
bool replaceSet(const QString& store, const QString& name, const std::vector<ZipFile>& files)
{
    QByteArray pattern = QFile::encodeName(store + QStringLiteral("/.new-XXXXXX"));
    if (!mkdtemp(pattern.data()))
        return false;
    const QString made = QFile::decodeName(pattern);
    const QString place = store + u'/' + name;
    bool done = writeAll(made, files);
    if (done) {
        removeDirectory(place);
        done = rename(pattern.constData(), QFile::encodeName(place).constData()) == 0;
    }
    if (!done)
        removeDirectory(made);
    return done;
}

// The oldest go; so do the beginnings that killed programs left, once they are an hour old.
void tidy(const QString& store)
{
    constexpr qint64 kHour = 3600;
    int sets = 0;
    for (const QFileInfo& entry :
         QDir(store).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden, QDir::Time)) {
        const bool isLeft = entry.fileName().startsWith(u".new-") &&
                            entry.lastModified().secsTo(QDateTime::currentDateTime()) > kHour;
        if (isLeft || (isDirectoryName(entry.fileName()) && ++sets > kMostSets))
            removeDirectory(entry.filePath());
    }
}

} // namespace

bool isName(const QString& path)
{
    return path.endsWith(u".wsz", Qt::CaseInsensitive) || path.endsWith(u".zip", Qt::CaseInsensitive);
}

QString fileName(const QString& nameInArchive)
{
    const QString name = lastPart(nameInArchive).toLower();
    const QString base = name.chopped(std::min<qsizetype>(4, name.size()));
    const bool isKind = name.endsWith(u".bmp") || name.endsWith(u".png") || name.endsWith(u".txt");
    return isKind && !base.isEmpty() && base.size() <= kLongestName && std::ranges::all_of(base, isPlain)
               ? name
               : QString();
}

std::vector<ZipFile> filesOfSet(const std::vector<ZipFile>& files)
{
    std::vector<ZipFile> set;
    const std::optional<QString> directory = directoryOfSet(files);
    for (const ZipFile& file : files) {
        const QString name = fileName(file.name);
        if (!directory || name.isEmpty() || directoryPart(file.name) != *directory)
            continue;
        if (std::ranges::none_of(set, [&name](const ZipFile& other) { return other.name == name; }))
            set.push_back({name, file.content});
    }
    return set;
}

Unpacked unpack(const QByteArray& archive, const QString& name, const QByteArray& store)
{
    const ZipFiles read = readZip(archive, [](const QString& file) { return !fileName(file).isEmpty(); });
    if (read.fault != ZipFiles::Fault::None)
        return {.fault = faultOf(read.fault)};
    const std::vector<ZipFile> files = filesOfSet(read.files);
    if (files.empty())
        return {.fault = Fault::NoPicture};
    const QString place = QFile::decodeName(store);
    const QString directory = directoryName(archive, name);
    if (store.isEmpty() || !QDir().mkpath(place) || !replaceSet(place, directory, files))
        return {.fault = Fault::CannotWrite};
    tidy(place);
    return {.directory = store + '/' + QFile::encodeName(directory)};
}

} // namespace packedset

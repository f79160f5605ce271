#include "system/drives/driveletters.h"

#include "system/drives/drivepath.h"

#include <QList>

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <functional>

namespace {

constexpr char kFirstForVolumes = 'D';
constexpr char kLastForVolumes = 'Y';

bool isLetter(const QString& text)
{
    return text.size() == 1 && driveLetter(QString(text + u':')) != '\0';
}

// Is true for what is certainly clean; a path with hidden names is not sure to be.
bool isClean(const QByteArray& path)
{
    for (qsizetype slash = 0; (slash = path.indexOf('/', slash)) >= 0; ++slash) {
        const QByteArrayView behind = QByteArrayView(path).sliced(slash + 1);
        if (behind.startsWith('/') || behind.startsWith('.'))
            return false;
    }
    return path.startsWith('/') && (path.size() == 1 || !path.endsWith('/'));
}

// Returns the first letter that a rule allows among those that nothing stands at, 0 when there is none.
char freeLetter(const DriveTable& drives, const std::function<bool(char)>& allows)
{
    for (char letter = kFirstForVolumes; letter <= kLastForVolumes; ++letter)
        if (!drives.contains(letter) && allows(letter))
            return letter;
    return '\0';
}

char rememberedLetter(const DriveTable& drives, const QByteArray& identity, const LetterMemory& memory)
{
    for (const auto& [letter, owner] : memory)
        if (owner == identity && !drives.contains(letter))
            return letter;
    return '\0';
}

char newLetter(const DriveTable& drives, const LetterMemory& memory)
{
    const char letter = freeLetter(drives, [&](char candidate) { return !memory.contains(candidate); });
    return letter != '\0' ? letter : freeLetter(drives, [](char) { return true; });
}

void addAt(DriveTable& drives, char letter, const Volume& volume)
{
    drives.emplace(letter, DriveEntry{volume.kind, volume.directory, volume.device, {}});
}

bool isThere(const QByteArray& path)
{
    struct stat status {};
    return path.startsWith('/') && stat(path.constData(), &status) == 0;
}

// Both the directory and the name may hold commas: the longest beginning that is there is the directory. Of
// one that is not there now the last comma begins the name.
qsizetype endOfDirectory(const QByteArray& directoryAndName)
{
    const qsizetype last = directoryAndName.lastIndexOf(',');
    if (last < 0 || isThere(directoryAndName))
        return directoryAndName.size();
    for (qsizetype comma = last; comma > 0; comma = directoryAndName.lastIndexOf(',', comma - 1))
        if (isThere(directoryAndName.left(comma)))
            return comma;
    return last;
}

} // namespace

QByteArray cleanedPath(const QByteArray& path)
{
    if (isClean(path))
        return path;
    std::string clean = std::filesystem::path(path.toStdString()).lexically_normal().string();
    const std::size_t slashes = clean.find_first_not_of('/'); // two in front would stay two
    clean.erase(0, std::min(slashes, clean.size()));
    clean.insert(0, 1, '/');
    if (clean.size() > 1 && clean.back() == '/')
        clean.pop_back();
    return QByteArray::fromStdString(clean);
}

void addDeclared(DriveTable& drives, const QString& letter, const QByteArray& directoryAndName)
{
    const qsizetype end = endOfDirectory(directoryAndName);
    const QByteArray directory = directoryAndName.left(end);
    // Z: stays the root: every path of this machine, the program's own too, has a place on some drive.
    if (!isLetter(letter) || letter.toUpper() == u"Z" || !directory.startsWith('/') ||
        directory.contains('\0'))
        return;
    const QString name = QString::fromUtf8(directoryAndName.mid(end + 1)).trimmed();
    drives.insert_or_assign(driveLetter(QString(letter + u':')),
                            DriveEntry{DriveKind::Declared, cleanedPath(directory), {}, name});
}

void addDeclared(DriveTable& drives, QByteArrayView entries)
{
    QByteArray lines = entries.toByteArray();
    lines.replace(';', '\n');
    for (const QByteArray& line : lines.split('\n')) {
        const QByteArray entry = line.trimmed();
        const qsizetype equals = entry.indexOf('=');
        if (equals >= 0)
            addDeclared(drives, QString::fromUtf8(entry.left(equals)).trimmed(),
                        entry.mid(equals + 1).trimmed());
    }
}

void addVolumes(DriveTable& drives, const std::vector<Volume>& volumes, LetterMemory& memory)
{
    std::vector<const Volume*> strangers;
    for (const Volume& volume : volumes) {
        if (const char letter = rememberedLetter(drives, volume.identity, memory))
            addAt(drives, letter, volume);
        else
            strangers.push_back(&volume);
    }
    for (const Volume* volume : strangers) {
        const char letter = newLetter(drives, memory);
        if (letter == '\0')
            return;
        memory.insert_or_assign(letter, volume->identity);
        addAt(drives, letter, *volume);
    }
}

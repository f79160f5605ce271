#include "player/playlistentry.h"

#include "base/codepage.h"
#include "platform/drives.h"
#include "platform/files.h"
#include "platform/nametext.h"
#include "platform/platform.h"

#include <QStringBuilder>

namespace {

bool hasDrive(QStringView text)
{
    return text.size() > 1 && text[1] == u':';
}

// A name that is no UTF-8 is the file with these very bytes, or one that the text was meant for.
QString pathOfMachine(QByteArrayView path, const PlaylistSeams& seams, MachinePaths& paths)
{
    QString exact = paths.drivePath(path);
    if (path.isValidUtf8() || seams.platform.files.exists(exact))
        return exact;
    return paths.drivePath(textOfBytes(path, seams.codePage).toUtf8());
}

// "/home/me/a.mp3" of "file:///home/me/a.mp3", still encoded; nothing for a file of another machine.
std::optional<QByteArrayView> pathOfAddress(QByteArrayView address)
{
    constexpr QByteArrayView kScheme("file://");
    constexpr QByteArrayView kThisMachine("localhost");
    const auto begins = [](QByteArrayView text, QByteArrayView start) {
        return text.size() >= start.size() &&
               text.first(start.size()).compare(start, Qt::CaseInsensitive) == 0;
    };
    if (!begins(address, kScheme))
        return std::nullopt;
    QByteArrayView rest = address.sliced(kScheme.size());
    if (begins(rest, kThisMachine))
        rest = rest.sliced(kThisMachine.size());
    return rest.startsWith('/') ? std::optional(rest) : std::nullopt;
}

// Backslashes become "/", so that one that is encoded ("%2F") stays what it is.
QString addressOf(const QString& path)
{
    QByteArray encoded = path.toUtf8().toPercentEncoding("\\:", "%");
    return QStringLiteral("file:///") + QString::fromLatin1(encoded.replace('\\', '/'));
}

std::optional<QString> pathOfFileAddress(QByteArrayView address, const PlaylistSeams& seams,
                                         MachinePaths& paths)
{
    const std::optional<QByteArrayView> encoded = pathOfAddress(address);
    if (!encoded)
        return std::nullopt;
    const auto decoded = [](const QByteArray& text) { return QByteArray::fromPercentEncoding(text); };
    const QByteArray held = encoded->contains('%') ? decoded(encoded->toByteArray()) : QByteArray();
    const QByteArrayView path = held.isNull() ? *encoded : QByteArrayView(held);
    if (path.contains(':')) {
        const QByteArray drivePath = decoded(encoded->sliced(1).toByteArray().replace('/', '\\'));
        const QString text = textOfBytes(drivePath, seams.codePage);
        if (hasDrive(text))
            return text;
    }
    return pathOfMachine(path, seams, paths);
}

} // namespace

QString MachinePaths::drivePath(QByteArrayView path)
{
    const qsizetype nameStart = path.lastIndexOf('/') + 1;
    const QByteArrayView name = path.sliced(nameStart);
    if (name.isEmpty() || name == "." || name == "..")
        return m_drives.drivePath(path.toByteArray());
    const auto known = m_directories.constFind(QByteArray::fromRawData(path.data(), nameStart));
    if (known != m_directories.cend())
        return nametext::appended(*known, name);
    QString whole = m_drives.drivePath(path.toByteArray());
    const QString last = nametext::toText(name);
    if (whole.endsWith(u'\\' + last)) // otherwise it is the very directory of a drive
        m_directories.insert(path.first(nameStart).toByteArray(), whole.chopped(last.size()));
    return whole;
}

QByteArrayView lineWithoutBlanks(QByteArrayView line)
{
    while (line.startsWith(' '))
        line = line.sliced(1);
    while (line.endsWith(' '))
        line.chop(1);
    return line;
}

std::optional<QString> pathOfFileAddress(QByteArrayView address, const PlaylistSeams& seams)
{
    MachinePaths paths(seams.platform.drives);
    return pathOfFileAddress(address, seams, paths);
}

QString entryText(QByteArrayView line, const PlaylistSeams& seams, MachinePaths& paths)
{
    if (line.startsWith('/'))
        return pathOfMachine(line, seams, paths);
    if (std::optional<QString> path = pathOfFileAddress(line, seams, paths))
        return *path;
    QString text = textOfBytes(line, seams.codePage);
    if (line.contains('/') && !text.startsWith(u'#'))
        text.replace(u'/', u'\\');
    return text;
}

QString entryPath(const QString& text, const QString& directory)
{
    if (text.startsWith(u'\\'))
        return QStringView(directory).left(2) % text;
    // Kept: a drive counts before a directory only, so that "C:a.mp3" is relative.
    const bool absolute = hasDrive(text) && text.indexOf(u'\\', 2) >= 0;
    return absolute ? text : QString(directory % text);
}

QString entryLine(const QString& path, const QString& directory, const PlaylistSeams& seams)
{
    const bool below = !directory.isEmpty() && path.startsWith(directory);
    QString line = below ? path.mid(directory.size()) : path;
    const bool isOne = !line.contains(u'\r') && !line.contains(u'\n');
    const QByteArray bytes = line.toUtf8();
    MachinePaths paths(seams.platform.drives);
    if (isOne && entryPath(entryText(lineWithoutBlanks(bytes), seams, paths), directory) == path)
        return line;
    return isOne && !hasDrive(path) ? line : addressOf(path);
}

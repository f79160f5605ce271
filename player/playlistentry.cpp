#include "player/playlistentry.h"

#include "base/codepage.h"
#include "platform/drives.h"
#include "platform/files.h"
#include "platform/platform.h"

namespace {

bool hasDrive(QStringView text)
{
    return text.size() > 1 && text[1] == u':';
}

// A name that is no UTF-8 is the file with these very bytes, or one that the text was meant for.
QString pathOfMachine(QByteArrayView path, const PlaylistSeams& seams)
{
    Drives& drives = seams.platform.drives;
    QString exact = drives.drivePath(path.toByteArray());
    if (path.isValidUtf8() || seams.platform.files.exists(exact))
        return exact;
    return drives.drivePath(textOfBytes(path, seams.codePage).toUtf8());
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

} // namespace

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
    const std::optional<QByteArrayView> encoded = pathOfAddress(address);
    if (!encoded)
        return std::nullopt;
    const auto decoded = [](QByteArray text) { return QByteArray::fromPercentEncoding(text); };
    const QByteArray drivePath = decoded(encoded->sliced(1).toByteArray().replace('/', '\\'));
    const QString text = textOfBytes(drivePath, seams.codePage);
    return hasDrive(text) ? text : pathOfMachine(decoded(encoded->toByteArray()), seams);
}

QString entryText(QByteArrayView line, const PlaylistSeams& seams)
{
    if (line.startsWith('/'))
        return pathOfMachine(line, seams);
    if (std::optional<QString> path = pathOfFileAddress(line, seams))
        return *path;
    QString text = textOfBytes(line, seams.codePage);
    if (line.contains('/') && !text.startsWith(u'#'))
        text.replace(u'/', u'\\');
    return text;
}

QString entryPath(const QString& text, const QString& directory)
{
    if (text.startsWith(u'\\'))
        return directory.left(2) + text;
    // Kept: a drive counts before a directory only, so that "C:a.mp3" is relative.
    const bool absolute = hasDrive(text) && text.lastIndexOf(u'\\') > 1;
    return absolute ? text : QString(directory + text);
}

QString entryLine(const QString& path, const QString& directory, const PlaylistSeams& seams)
{
    const bool below = !directory.isEmpty() && path.startsWith(directory);
    QString line = below ? path.mid(directory.size()) : path;
    const bool isOne = !line.contains(u'\r') && !line.contains(u'\n');
    const QByteArray bytes = line.toUtf8();
    if (isOne && entryPath(entryText(lineWithoutBlanks(bytes), seams), directory) == path)
        return line;
    return isOne && !hasDrive(path) ? line : addressOf(path);
}

#include "player/playlist/playlistentry.h"

#include "base/codepage.h"
#include "base/filenametext.h"
#include "platform/drives.h"
#include "platform/files.h"
#include "platform/platform.h"

#include <QStringBuilder>

#include <algorithm>
#include <cstring>

namespace {

bool hasDrive(QStringView text)
{
    return text.size() > 1 && text[1] == u':';
}

// It is the library's own search; a view's goes byte by byte.
qsizetype lengthUpToLast(char byte, QByteArrayView bytes)
{
    const void* const last = memrchr(bytes.data(), byte, static_cast<std::size_t>(bytes.size()));
    return last ? static_cast<const char*>(last) + 1 - bytes.data() : 0;
}

// Tells whether the end of a path is no name of a directory's entry.
bool isNoName(QByteArrayView end)
{
    return end.size() <= 2 && (end.isEmpty() || end == "." || end == "..");
}

// A name that is no UTF-8 is the file with these very bytes, or one that the text was meant for.
void pathOfMachine(QString& text, QByteArrayView path, const PlaylistSeams& seams, MachinePaths& paths)
{
    if (!paths.drivePath(text, path) && !seams.platform.files.exists(text))
        paths.drivePath(text, textOfBytes(path, seams.codePage).toUtf8());
}

// Makes "/home/me/a.mp3" of "file:///home/me/a.mp3", still encoded; it is nothing for a file of another
// machine.
std::optional<QByteArrayView> pathOfAddress(QByteArrayView address)
{
    constexpr QByteArrayView kScheme("file://");
    constexpr QByteArrayView kThisMachine("localhost");
    const auto begins = [](QByteArrayView text, QByteArrayView start) {
        return text.size() >= start.size() &&
               text.first(start.size()).compare(start, Qt::CaseInsensitive) == 0;
    };
    const bool mayBegin = address.startsWith('f') || address.startsWith('F'); // most lines do not
    if (!mayBegin || !begins(address, kScheme))
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

// Is false for any other text, and then what `text` is means nothing.
bool pathOfFileAddress(QString& text, QByteArrayView address, const PlaylistSeams& seams, MachinePaths& paths)
{
    const std::optional<QByteArrayView> encoded = pathOfAddress(address);
    if (!encoded)
        return false;
    const auto decoded = [](const QByteArray& bytes) { return bytes.percentDecoded(); };
    const QByteArray held = encoded->contains('%')
                                ? decoded(QByteArray::fromRawData(encoded->data(), encoded->size()))
                                : QByteArray();
    const QByteArrayView path = held.isNull() ? *encoded : QByteArrayView(held);
    if (path.contains(':')) {
        text = textOfBytes(decoded(encoded->sliced(1).toByteArray().replace('/', '\\')), seams.codePage);
        if (hasDrive(text))
            return true;
    }
    pathOfMachine(text, path, seams, paths);
    return true;
}

} // namespace

bool MachinePaths::drivePath(QString& text, QByteArrayView path)
{
    const qsizetype nameStart = lengthUpToLast('/', path);
    const QByteArrayView name = path.sliced(nameStart);
    if (isNoName(name))
        return wholePath(text, path);
    const QByteArrayView directory = path.first(nameStart);
    if (isKnown(directory)) {
        text.resize(0);
        text.append(m_lastDirectory.text);
        return filenametext::append(text, name) && m_lastDirectory.isUtf8;
    }
    const bool isUtf8 = wholePath(text, path);
    const QString last = filenametext::toText(name);
    const QStringView before = QStringView(text).chopped(std::min(last.size(), text.size()));
    if (before.endsWith(u'\\') && text.endsWith(last)) { // otherwise it is the very directory of a drive
        m_last = directory.toByteArray();
        m_lastDirectory = {before.toString(), isUtf8 || directory.isValidUtf8()};
        m_directories.insert(m_last, m_lastDirectory);
    }
    return isUtf8;
}

// It is the last one then.
bool MachinePaths::isKnown(QByteArrayView directory)
{
    if (!directory.isEmpty() && directory == m_last)
        return true;
    const auto known = m_directories.constFind(QByteArray::fromRawData(directory.data(), directory.size()));
    if (known == m_directories.cend())
        return false;
    m_last = known.key();
    m_lastDirectory = *known;
    return true;
}

bool MachinePaths::wholePath(QString& text, QByteArrayView path)
{
    text.resize(0); // its room stays
    text.append(m_drives.drivePath(path.toByteArray()));
    return path.isValidUtf8();
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
    QString text;
    return pathOfFileAddress(text, address, seams, paths) ? std::optional(text) : std::nullopt;
}

void entryText(QString& text, QByteArrayView line, const PlaylistSeams& seams, MachinePaths& paths)
{
    if (line.startsWith('/'))
        return pathOfMachine(text, line, seams, paths);
    if (pathOfFileAddress(text, line, seams, paths))
        return;
    text.resize(0);
    appendTextOfBytes(text, line, seams.codePage);
    if (line.contains('/') && !text.startsWith(u'#'))
        text.replace(u'/', u'\\');
}

QString entryPath(QStringView text, const QString& directory)
{
    if (text.startsWith(u'\\'))
        return QStringView(directory).left(2) % text;
    // Kept: a drive counts before a directory only, so that "C:a.mp3" is relative.
    const bool absolute = hasDrive(text) && std::find(text.begin() + 2, text.end(), u'\\') != text.end();
    return absolute ? text.toString() : QString(directory % text);
}

QString entryLine(const QString& path, const QString& directory, const PlaylistSeams& seams)
{
    const bool below = !directory.isEmpty() && path.startsWith(directory);
    QString line = below ? path.mid(directory.size()) : path;
    const bool isOne = !line.contains(u'\r') && !line.contains(u'\n');
    const QByteArray bytes = line.toUtf8();
    MachinePaths paths(seams.platform.drives);
    QString text;
    entryText(text, lineWithoutBlanks(bytes), seams, paths);
    if (isOne && entryPath(text, directory) == path)
        return line;
    return isOne && !hasDrive(path) ? line : addressOf(path);
}

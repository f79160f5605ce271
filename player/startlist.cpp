#include "player/startlist.h"

#include "base/codepage.h"
#include "base/runtimeerror.h"
#include "base/textrules.h"
#include "platform/drives.h"
#include "platform/filenumbers.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "platform/program.h"
#include "platform/replacedfile.h"
#include "player/modcommon.h"

namespace {

QString beside(const PlaylistSeams& seams, const QString& name)
{
    return AddSlash(seams.platform.program.directory()) + name;
}

// Nothing of a file that nobody can have made by hand.
QByteArray wholeFile(const QString& path, FileNumbers& numbers)
{
    constexpr qint64 kLargest = qint64(16) << 20;
    const int number = numbers.freeFile();
    numbers.openBinary(number, path);
    const qint64 length = numbers.length(number);
    QByteArray content;
    if (length <= kLargest)
        content = numbers.get(number, 1, static_cast<int>(length));
    numbers.close(number);
    return content;
}

const QString kStartList = QStringLiteral("playlist.m3u");
const QString kAutoList = QStringLiteral("autolist.txt");

} // namespace

void readStartList(Playlist& list, int lastTrack, bool friendlyNames, const PlaylistSeams& seams)
{
    if (const QString file = beside(seams, kStartList); FileExists(seams.platform.files, file))
        PlRead(list, file, friendlyNames, seams);
    const bool isEntry = lastTrack >= 1 && lastTrack <= list.count();
    list.select(isEntry ? lastTrack - 1 : -1);
    list.setCurTrack(isEntry ? lastTrack : 1);
}

bool writeStartList(const Playlist& list, const PlaylistSeams& seams)
{
    return WritePL(list, beside(seams, kStartList), seams);
}

QStringList readAutoList(bool on, const PlaylistSeams& seams)
{
    QByteArray content;
    if (on)
        resumeNext([&] { content = wholeFile(beside(seams, kAutoList), seams.fileNumbers); });
    QStringList items;
    for (const QByteArray& line : content.replace('\r', '\n').split('\n'))
        if (const QString item = textrules::withoutBlanks(textOfBytes(line, seams.codePage)); !item.isEmpty())
            items += item;
    return items;
}

bool writeAutoList(bool on, const QStringList& items, const PlaylistSeams& seams)
{
    if (!on)
        return true;
    const auto file = seams.platform.drives.machinePath(beside(seams, kAutoList));
    QByteArray content;
    for (QString item : items) // an item is one line
        content += item.replace(u'\r', u' ').replace(u'\n', u' ').toUtf8() + "\r\n";
    return file && replaceFile(*file, content);
}

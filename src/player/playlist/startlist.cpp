#include "player/playlist/startlist.h"

#include "base/codepage.h"
#include "base/runtimeerror.h"
#include "base/textrules.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "platform/program.h"
#include "player/playlist/modcommon.h"

namespace {

QString beside(const PlaylistSeams& seams, const QString& name)
{
    return AddSlash(seams.platform.program.directory()) + name;
}

const QString kAutoList = QStringLiteral("autolist.txt");
constexpr qint64 kLargest = qint64(16) << 20; // nobody can have made a larger one by hand

} // namespace

// --- the playlist ---------------------------------------------------------------------------------

QString StartList::file() const
{
    return beside(m_seams, QStringLiteral("playlist.m3u"));
}

// A list that is not there has no name to show.
ListRead StartList::read(Playlist& list, int lastTrack, bool friendlyNames)
{
    const Playlist::Batch batch(list);
    const ListRead result = PlRead(list, file(), friendlyNames, m_seams);
    m_wasRead = result != ListRead::Failed;
    m_holdsMore = result == ListRead::Full;
    if (result == ListRead::Missing)
        list.setFile(Playlist().name(), {});
    const bool isEntry = lastTrack >= 1 && lastTrack <= list.count();
    list.select(isEntry ? lastTrack - 1 : -1);
    list.setCurTrack(isEntry ? lastTrack : 1);
    return result;
}

void StartList::write(const Playlist& list)
{
    if (!isKept())
        return;
    if (m_holdsMore)
        m_seams.platform.files.copy(file(), freeName());
    m_holdsMore = false;
    writeList(list, file(), m_seams);
}

QString StartList::freeName() const
{
    QString name = beside(m_seams, QStringLiteral("playlist.whole.m3u"));
    for (int number = 2; m_seams.platform.files.exists(name); ++number)
        name = beside(m_seams, QStringLiteral("playlist.whole-%1.m3u").arg(number));
    return name;
}

// --- the automatic list ---------------------------------------------------------------------------

ListRead AutoList::read(bool on)
{
    items.clear();
    m_isKept = true;
    if (!on)
        return ListRead::Whole;
    try {
        QByteArray content = m_seams.platform.files.read(beside(m_seams, kAutoList), kLargest);
        for (const QByteArray& line : content.replace('\r', '\n').split('\n'))
            if (const QString item = textrules::withoutBlanks(textOfBytes(line, m_seams.codePage));
                !item.isEmpty())
                items += item;
        return ListRead::Whole;
    } catch (const RunTimeError& error) {
        m_isKept = error.number() == numberOf(ErrorNumber::FileNotFound);
        return m_isKept ? ListRead::Missing : ListRead::Failed;
    }
}

void AutoList::write(bool on)
{
    if (!on || !m_isKept)
        return;
    QByteArray content;
    for (QString item : items) // an item is one line
        content += item.replace(u'\r', u' ').replace(u'\n', u' ').toUtf8() + "\r\n";
    m_seams.platform.files.replace(beside(m_seams, kAutoList), content);
}

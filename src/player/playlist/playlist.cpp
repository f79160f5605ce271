#include "player/playlist/playlist.h"

#include "base/runtimeerror.h"
#include "base/textrules.h"

#include <algorithm>
#include <limits>

namespace {

const QString kNotFound = QStringLiteral(" [FILE NOT FOUND]");

} // namespace

QString Playlist::entryCountText() const
{
    return textrules::str(count());
}

void Playlist::select(int index)
{
    m_selected = isEntry(index) ? index : -1;
    tell();
}

void Playlist::setCurTrack(int track)
{
    if (track < std::numeric_limits<qint16>::min() || track > std::numeric_limits<qint16>::max())
        throw RunTimeError(ErrorNumber::Overflow);
    m_curTrack = static_cast<qint16>(track);
    tell();
}

void Playlist::setFile(const QString& name, const QString& file)
{
    m_name = name;
    m_file = file;
    tell();
}

void Playlist::expect(int more)
{
    m_entries.reserve(m_entries.size() + static_cast<std::size_t>(more));
}

bool Playlist::add(QString name, QString path)
{
    if (isFull())
        return false;
    m_entries.push_back({std::move(name), std::move(path)});
    ++m_changes;
    if (m_batches > 0)
        m_untold = true;
    else
        tell();
    return true;
}

// Kept: the current entry's number stays, so that one removed above it shifts what is played next.
void Playlist::remove(int index)
{
    if (!isEntry(index))
        return;
    m_entries.erase(m_entries.begin() + index);
    ++m_changes;
    m_selected = std::min(index, count() - 1);
    tell();
}

void Playlist::PlMoveEntry(int direction)
{
    const int target = m_selected + direction;
    if (!isEntry(m_selected) || !isEntry(target))
        return;
    std::swap(at(m_selected), at(target));
    m_selected = target;
    ++m_changes;
    tell();
}

void Playlist::PlClear()
{
    m_entries.clear();
    ++m_changes;
    m_selected = -1;
    m_curTrack = 1;
    m_name = QStringLiteral("untitled");
    m_file.clear();
    tell();
}

void Playlist::markNotFound(int index)
{
    if (!isEntry(index))
        return;
    PlaylistEntry& entry = at(index);
    entry.path.clear();
    if (!entry.name.contains(QStringView(kNotFound).mid(1)))
        entry.name += kNotFound;
    tell();
}

void Playlist::tell()
{
    m_untold = false;
    if (m_observer)
        m_observer();
}

void Playlist::endBatch()
{
    if (--m_batches == 0 && m_untold)
        tell();
}

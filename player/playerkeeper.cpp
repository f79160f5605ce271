#include "player/playerkeeper.h"

#include "base/runtimeerror.h"
#include "platform/platform.h"

namespace {

constexpr std::chrono::seconds kSoon{2};
constexpr std::chrono::seconds kLater{30}; // after a failure, which may take its time

} // namespace

// --- start ----------------------------------------------------------------------------------------

// Options that were not read do not tell whether the list was to be read, so it is not written either.
void PlayerKeeper::loadOptions()
{
    if (!loadSettings(m_store, m_settings)) {
        m_startList.leaveAlone();
        m_unread += QStringLiteral("The settings could not be read. They stay as they are.");
    }
    if (m_autoList.read(m_settings.Auto != 0) == ListRead::Failed)
        m_unread += QStringLiteral("autolist.txt could not be read. It stays as it is.");
}

void PlayerKeeper::restoreList(Playlist& list)
{
    loadLast(m_store, m_settings);
    const ListRead result = m_startList.read(list, m_settings.LastTrack, m_settings.FriendlyNames != 0);
    if (result == ListRead::Failed)
        m_unread +=
            QStringLiteral("playlist.m3u could not be read. It stays as it is; this list is not kept.");
    if (result == ListRead::Full)
        m_unread += QStringLiteral("playlist.m3u holds more than %1 entries. The first ones were read.")
                        .arg(kMostEntries);
}

void PlayerKeeper::begin()
{
    m_hasBegun = true;
    noteSaved();
}

QString PlayerKeeper::unread() const
{
    return m_unread.join(u' ');
}

// --- changes --------------------------------------------------------------------------------------

bool PlayerKeeper::isChanged() const
{
    return !(m_saved == m_settings) || (m_startList.isKept() && m_savedChanges != m_list.changes());
}

void PlayerKeeper::noteSaved()
{
    m_saved = m_settings;
    m_savedChanges = m_list.changes();
    m_due.reset();
}

// Of many changes the first one counts, so that no end of them keeps them from being saved.
QString PlayerKeeper::look(Clock::time_point now)
{
    if (!m_hasBegun || !isChanged()) {
        m_due.reset();
        return {};
    }
    if (!m_due)
        m_due = now + kSoon;
    if (now < *m_due || trySave())
        return {};
    m_due = now + kLater;
    return std::exchange(m_hasFailed, true) ? QString()
                                            : QStringLiteral("What has changed could not be saved yet.");
}

void PlayerKeeper::saveChanges()
{
    if (m_hasBegun && isChanged())
        trySave();
}

bool PlayerKeeper::trySave()
{
    const bool optionsSaved = m_saved == m_settings || saveOptions();
    try {
        if (m_savedChanges != m_list.changes())
            m_startList.write(m_list);
    } catch (const RunTimeError&) {
        return false;
    }
    if (optionsSaved)
        noteSaved();
    return optionsSaved;
}

// The number and the cover belong to the list, and stay with that which stays.
bool PlayerKeeper::saveOptions()
{
    const bool options = saveSettings(m_store, m_settings);
    const bool place = m_settings.WinSavePos == 0 || savePosition(m_store, m_settings);
    const bool last = !m_startList.isKept() || saveLast(m_store, m_settings);
    return (options && place && last) || !m_unread.isEmpty();
}

// --- the end --------------------------------------------------------------------------------------

void PlayerKeeper::saveAll()
{
    saveSettings(m_store, m_settings);
    if (m_settings.WinSavePos != 0)
        savePosition(m_store, m_settings);
    told([this] { m_autoList.write(m_settings.Auto != 0); });
    if (!std::exchange(m_hasBegun, false) || !m_startList.isKept())
        return;
    saveLast(m_store, m_settings);
    told([this] { m_startList.write(m_list); });
}

void PlayerKeeper::told(const std::function<void()>& write)
{
    try {
        write();
    } catch (const RunTimeError&) {
        tellNotWritten(m_seams.platform);
    }
}

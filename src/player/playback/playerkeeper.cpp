#include "player/playback/playerkeeper.h"

#include "base/runtimeerror.h"
#include "platform/platform.h"

#include <functional>
#include <utility>

namespace {

constexpr std::chrono::seconds kSoon{2};
constexpr std::chrono::seconds kLater{30}; // after a failure, which may take its time

bool isWritten(const std::function<void()>& write)
{
    try {
        write();
        return true;
    } catch (const RunTimeError&) {
        return false;
    }
}

} // namespace

// --- start ----------------------------------------------------------------------------------------

// As long as nobody knows whether the list was to be read it is not written either.
void PlayerKeeper::loadOptions()
{
    if (!loadSettings(m_store, m_settings))
        m_unread += QStringLiteral("The settings could not be read. They stay as they are.");
    if (!isStartModeRead(m_store)) {
        m_startList.leaveAlone();
        m_unread += QStringLiteral("This list is not kept.");
    }
    m_stored = m_settings;
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
        m_savedChanges = m_list.changes();
    } catch (const RunTimeError&) {
        return false;
    }
    if (optionsSaved)
        noteSaved();
    return optionsSaved;
}

// What stays as it was is not written: another program, or a hand, may have changed it meanwhile. The number
// and the cover belong to the list, and stay with that which stays.
bool PlayerKeeper::saveOptions()
{
    const bool options = saveChanged(m_store, m_settings, m_stored);
    const bool moved = m_settings.X != m_saved.X || m_settings.Y != m_saved.Y || m_saved.WinSavePos == 0;
    const bool place = m_settings.WinSavePos == 0 || !moved || savePosition(m_store, m_settings);
    const bool last = !m_startList.isKept() || saveLast(m_store, m_settings);
    if (options)
        m_stored = m_settings;
    return options && place && last;
}

// --- the end --------------------------------------------------------------------------------------

// It tells when all is done: while a message is there to be read the program may be killed.
void PlayerKeeper::saveAll()
{
    saveSettings(m_store, m_settings);
    if (m_settings.WinSavePos != 0)
        savePosition(m_store, m_settings);
    int failures = isWritten([this] { m_autoList.write(m_settings.Auto != 0); }) ? 0 : 1;
    if (std::exchange(m_hasBegun, false) && m_startList.isKept()) {
        saveLast(m_store, m_settings);
        failures += isWritten([this] { m_startList.write(m_list); }) ? 0 : 1;
    }
    for (; failures > 0; --failures)
        tellNotWritten(m_seams.platform);
}

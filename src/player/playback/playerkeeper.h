// Keeps from one run of the player to the next its options and its lists. They are saved when its window
// unloads, and two seconds after they changed, because many an end comes without that. What could not be read
// is left as it is.
#pragma once

#include "player/playback/playersettings.h"
#include "player/playlist/startlist.h"

#include <chrono>
#include <optional>

class PlayerKeeper {
public:
    using Clock = std::chrono::steady_clock;

    PlayerKeeper(UserSettings& store, PlayerSettings& settings, const Playlist& list,
                 const PlaylistSeams& seams)
        : m_store(store), m_settings(settings), m_list(list), m_seams(seams), m_startList(seams),
          m_autoList(seams)
    {
    }

    // --- at start, in this order ---

    void loadOptions();               // also the automatic list
    void restoreList(Playlist& list); // with its current entry, and the LastCover
    // From now on there is something to save.
    void begin();
    bool hasBegun() const { return m_hasBegun; }
    // Returns what was not read, in one line, which is empty when all was.
    QString unread() const;

    // --- while the player runs ---

    // Is called again and again, with the window's place and the current entry in the settings. It gives one
    // line when saving fails for the first time, otherwise nothing.
    QString look(Clock::time_point now);
    void saveChanges(); // at an end without unloading

    // --- when the window unloads ---

    // Saves all in the order of old; whatever fails leaves the rest saved, and a list that could not be
    // written is told in a message. A player that never began saves its options and the automatic list alone.
    void saveAll();

private:
    bool isChanged() const;
    bool saveOptions();
    bool trySave();
    void noteSaved();

    UserSettings& m_store;
    PlayerSettings& m_settings;
    const Playlist& m_list;
    PlaylistSeams m_seams;
    StartList m_startList;
    AutoList m_autoList;

    PlayerSettings m_stored; // what the store holds, as far as this program knows
    PlayerSettings m_saved;
    int m_savedChanges = 0;
    std::optional<Clock::time_point> m_due; // when what has changed is saved
    QStringList m_unread;
    bool m_hasBegun = false;
    bool m_hasFailed = false;
};

// Owns all that plays: the playlist, two devices, the volume, the engine, and what is kept of them from one
// run to the next. It knows no window: what is shown goes to the PlaybackView.
#pragma once

#include "player/playback/playbackengine.h"
#include "player/playback/playercontext.h"
#include "player/playback/playerkeeper.h"
#include "player/playback/volumelevel.h"
#include "player/playlist/playlist.h"

#include <QByteArrayView>
#include <QStringList>

#include <array>
#include <functional>
#include <memory>

class MediaElement;
class PlaylistCommands;
class WaveVolume;

class Player {
public:
    Player(PlayerContext& context, PlaybackView& view);
    ~Player();
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;

    const PlayerContext& context() const { return m_context; }
    PlayerSettings& settings() const { return m_context.settings; }
    Playlist& list() { return m_list; }
    const Playlist& list() const { return m_list; }
    PlaybackEngine& engine() { return m_engine; }
    const PlaybackEngine& engine() const { return m_engine; }
    VolumeLevel& volume() { return m_volume; }
    PlayerKeeper& keeper() { return m_keeper; }
    const PlayerKeeper& keeper() const { return m_keeper; }

    // --- start ---

    // Brings back the list that the settings ask for: the last one with its cover, or the start file.
    void restore();
    // Plays what waits, or else what the settings say. From now on a file from outside is played at once.
    void playFirst();

    // --- the list ---

    void PlAddFileFromEditor(const QString& path); // one entry
    void PlClear();                                // the cover goes too
    // Takes a file, a directory or a playlist: a path of the program or of this machine, or a file address.
    // It is added and played; before playFirst it waits for that.
    void openAndPlay(const QString& path);
    void playEntry(int index);

    // Each asks for files first.
    void EjectDirect();
    void loadPlaylist();
    void savePlaylist();
    void addFile();
    void addDirectory();
    // Adds the bytes of a dropped text/uri-list, without those that are taken for something else than an
    // entry.
    void addDropped(QByteArrayView list, const std::function<bool(const QString& path)>& takes);

    void removeSelected();
    // Returns the entry that is heard now, -1 for none. Entries may have been removed and moved since it
    // began.
    int playingRow() const;

    // --- modes ---

    void toggle(bool PlaybackEngine::*mode);
    void toggleTime(); // the time that has passed, or the one that remains

private:
    PlaylistSeams seams() const;
    void withPlaylist(const std::function<void(PlaylistCommands&)>& command,
                      const std::function<bool(const QString&)>& takes = {});
    void playFile(const QString& path);
    void playList(const QString& path, bool replaces);
    QString nameOfOpened(const QString& path) const;

    PlayerContext& m_context;
    PlaybackView& m_view;
    Playlist m_list;
    std::array<std::unique_ptr<MediaElement>, 2> m_devices; // MMControl(0) and (1)
    std::unique_ptr<WaveVolume> m_waveVolume;
    VolumeLevel m_volume;
    PlaybackEngine m_engine;
    PlayerKeeper m_keeper;
    QStringList m_waiting; // files that were to be played before the start
    bool m_started = false;
};

// Keeps what the player has beside the program from one run to the next: the playlist and the automatic list.
// A file that could not be read, or of which only a part was, is not written over.
#pragma once

#include "player/playlist/playlistfile.h"

#include <QStringList>

// Is "playlist.m3u". One that was not to be read is written at the end as any other.
class StartList {
public:
    explicit StartList(const PlaylistSeams& seams) : m_seams(seams) {}

    // The entry with that 1-based number is selected and current again; where there is none, nothing is
    // selected and the first one is current.
    ListRead read(Playlist& list, int lastTrack, bool friendlyNames);
    // Serves whoever could not find out whether it is to be read.
    void leaveAlone() { m_isLeftAlone = true; }
    bool isKept() const { return m_wasRead && !m_isLeftAlone; } // false: write() does nothing

    // Of a file with more entries than a list takes a copy lies beside before it is written over,
    // "playlist.whole.m3u" or the like. Throws RunTimeError as writeList does.
    void write(const Playlist& list);

private:
    QString file() const;
    QString freeName() const;

    PlaylistSeams m_seams;
    bool m_wasRead = true; // as far as it was to be
    bool m_isLeftAlone = false;
    bool m_holdsMore = false;
};

// Is "autolist.txt", an item a line.
class AutoList {
public:
    explicit AutoList(const PlaylistSeams& seams) : m_seams(seams) {}

    // The list is empty when the option is off.
    ListRead read(bool on);
    void write(bool on); // nothing when the option is off; throws RunTimeError

    QStringList items;

private:
    PlaylistSeams m_seams;
    bool m_isKept = true;
};

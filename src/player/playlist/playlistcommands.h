// Does what the player's window does with files and its playlist: it adds paths, loads, saves and opens
// media.
#pragma once

#include "player/playlist/playlistfile.h"

#include <QByteArrayView>
#include <QStringList>

#include <functional>
#include <optional>

// These come from the player's settings; whoever holds those fills it before a command and takes `path` back.
struct PlaylistOptions {
    bool friendlyNames = true;
    QString validExt{};
    QString path{}; // where file dialogs begin; saving a playlist changes it, and the stored one
    std::function<void()> clearFirst{};        // of the list and what shows with it; none: it stays
    std::function<void(const QString&)> say{}; // one line, what could not be read; none: nobody is told
    std::function<bool()> closed{}; // ends a directory's walk; none: nothing but the program's end does
    // Tells of dropped paths those that are taken for something else than an entry; without it no path is.
    std::function<bool(const QString& path)> takes{};
    QString startDirectory{}; // of relative paths from outside; empty: the program's directory
};

class PlaylistCommands {
public:
    PlaylistCommands(Playlist& list, PlaylistOptions& options, const PlaylistSeams& seams)
        : m_list(list), m_options(options), m_seams(seams)
    {
    }

    // Each adds as much as the list takes, and says in a message that there was more.

    // Adds a playlist's entries, a directory's media files, else one entry. In a path from outside "/" counts
    // as "\"; paths of this machine, file addresses and relative ones are taken. An empty one adds nothing.
    void addPath(const QString& path);
    void addPaths(const QStringList& paths); // in their order
    // Takes the bytes of a dropped text/uri-list; addresses that are no files of this machine are left out.
    void addUriList(QByteArrayView list);
    // Adds always one entry.
    void PlAddFileFromEditor(const QString& path);

    // Asks for a playlist; one that the user chooses replaces what is in the list when clearFirst says so. It
    // returns the index of its first entry, and nothing when no playlist was chosen.
    std::optional<int> PlLoad();
    // A playlist from outside takes the place of what is in the list, which `clear` empties once all of it
    // was read; without that, and what could be read of a damaged one, it comes behind. It returns the index
    // of its first entry.
    int openList(const QString& path, const std::function<void()>& clear);
    void save();
    void openMedia();
    QString GetOneFileDirect(); // empty: none was chosen
    void AddFromDir();

private:
    void adding(const std::function<void()>& add);
    QString fullPath(const QString& path) const;
    void addFull(const QString& path);
    void addList(const QString& file);
    int replaceBy(const QString& file, const std::function<void()>& clear);
    bool canBeRead(const QString& file);
    void sayUnread(const QString& file, ListRead result, bool isPart);
    bool addEntry(const QString& path);
    bool isDirectory(const QString& path) const;

    Playlist& m_list;
    PlaylistOptions& m_options;
    PlaylistSeams m_seams;
    bool m_isOver = false; // something found no place
};

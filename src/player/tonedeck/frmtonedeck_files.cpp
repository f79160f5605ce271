// The window's playlist, the files that come from outside, and the skins to switch to.
#include "platform/dialogs.h"
#include "platform/program.h"
#include "player/packedsets/packedset.h"
#include "player/playback/playersettings.h"
#include "player/playlist/modcommon.h"
#include "player/tonedeck/frmtonedeck.h"

#include <QScopeGuard>
#include <QSignalBlocker>

#include <algorithm>
#include <utility>

PlaylistSeams frmTonedeck::seams() const
{
    return {m_context.platform, m_context.fileNumbers, m_context.codePage};
}

void frmTonedeck::playlistChanged()
{
    const QSignalBlocker itself(controls.PlNames); // where its rows come and go, it chooses none
    m_names->refresh();
    m_paths->refresh();
    markPlaying();
    controls.PlNames->showSelected(m_playlist.selected());
    controls.Lbl[Label::EntryCount]->setCaption(m_playlist.entryCountText());
    controls.Lbl[Label::ListName]->setCaption(m_playlist.name());
    // Not of every change: in the midst of one to the next entry it would be told half of it.
    if (const int entries = m_playlist.count(); std::exchange(m_entriesTold, entries) != entries)
        m_desktop.refresh();
}

// By its path: entries may have been removed and moved since it began.
void frmTonedeck::markPlaying()
{
    int row = -1;
    if (m_engine.IsPlaying() && !m_engine.halted()) {
        const std::vector<PlaylistEntry>& entries = m_playlist.entries();
        const auto isIt = [this](const PlaylistEntry& entry) { return entry.path == m_engine.CurPath(); };
        const auto current = static_cast<std::size_t>(m_playlist.CurTrack()) - 1;
        if (current < entries.size() && isIt(entries[current]))
            row = static_cast<int>(current);
        else if (const auto found = std::find_if(entries.begin(), entries.end(), isIt);
                 found != entries.end())
            row = static_cast<int>(found - entries.begin());
    }
    m_names->setPlaying(row, m_engine.IsPaused());
}

void frmTonedeck::withPlaylist(const std::function<void(PlaylistCommands&)>& command)
{
    PlayerSettings& settings = m_context.settings;
    PlaylistOptions options{
        .friendlyNames = settings.FriendlyNames != 0, .validExt = settings.ValidExt, .path = settings.Path};
    options.say = [this](const QString& text) { say(text); };
    options.closed = [this] { return closing(); };
    options.takes = [this](const QString& path) { return takesSet(path); };
    if (settings.ClearPLFirst != 0)
        options.clearFirst = [this] { PlClear(); };
    PlaylistCommands commands(m_playlist, options, seams());
    command(commands);
    settings.Path = options.path;
}

// A packed set of pictures is worn, not played; of several the last one.
bool frmTonedeck::takesSet(const QString& path)
{
    const bool isSet = packedset::isName(path) && FileExists(m_context.platform.files, path);
    if (isSet)
        m_droppedSet = path;
    return isSet;
}

void frmTonedeck::PlAddFileFromEditor(const QString& path)
{
    withPlaylist([&path](PlaylistCommands& list) { list.PlAddFileFromEditor(path); });
}

void frmTonedeck::PlClear()
{
    m_playlist.PlClear();
    m_cover.clear();
    m_desktop.refresh();
}

void frmTonedeck::loadPlaylist()
{
    std::optional<int> first;
    withPlaylist([&first](PlaylistCommands& list) { first = list.PlLoad(); });
    if (first && m_context.settings.AutoPlay == 1 && *first < m_playlist.count())
        playEntry(*first);
}

// Nothing in a window that was closed while a file was asked for.
void frmTonedeck::playEntry(int index)
{
    if (closing())
        return;
    m_playlist.setCurTrack(index + 1);
    m_engine.PlayIt();
}

void frmTonedeck::EjectDirect()
{
    QString file;
    withPlaylist([&file](PlaylistCommands& list) { file = list.GetOneFileDirect(); });
    if (file.isEmpty())
        return;
    if (!FileExists(m_context.platform.files, file))
        return tell(
            QStringLiteral("It is a special character in your MP3 filename. You have to open it manually"));
    if (isPlaylist(file))
        return playList(file, true);
    PlClear();
    withPlaylist([&file](PlaylistCommands& list) { list.addPath(file); });
    playEntry(0);
}

// Of one that could not be read nothing is played, and the list that is there stays.
void frmTonedeck::playList(const QString& path, bool replaces)
{
    const auto clear = replaces ? std::function<void()>([this] { PlClear(); }) : nullptr;
    int first = 0;
    withPlaylist([&](PlaylistCommands& list) { first = list.openList(path, clear); });
    if (first < m_playlist.count())
        playEntry(first);
}

void frmTonedeck::openAndPlay(const QString& path)
{
    if (m_started)
        playFile(path);
    else
        m_commandLine += path;
}

// An address names its file in a way of its own; its entry knows better.
QString frmTonedeck::nameOfOpened(const QString& path) const
{
    return path.contains(u'\\') ? FriendlyName(path, m_context.settings.FriendlyNames != 0)
                                : m_playlist.entries().front().name;
}

bool frmTonedeck::isPlaylist(const QString& path)
{
    const QString extension = GetExtension(path).toUpper();
    return extension == u"M3U" || extension == u"PLS";
}

// A single file begins a list of its own name; a playlist brings its own.
void frmTonedeck::playFile(const QString& path)
{
    if (isPlaylist(path))
        return playList(path, m_context.settings.ClearPLFirst != 0);
    const int first = m_playlist.count();
    withPlaylist([&path](PlaylistCommands& list) { list.addPath(path); });
    if (first == m_playlist.count())
        return;
    if (first == 0)
        m_playlist.setFile(QStringLiteral("Commandline: ") + nameOfOpened(path), {});
    playEntry(first);
}

void frmTonedeck::switchSkin(Command command)
{
    if (const QString name = m_loader.switchName(command); !name.isEmpty())
        LoadSkin(name, false);
}

void frmTonedeck::LoadCover(const QString& path)
{
    m_cover.LoadCover(path);
    m_desktop.refresh();
}

void frmTonedeck::LoadTagCover(const QString& directory, TagRecord& tag)
{
    m_cover.LoadTagCover(directory, tag);
}

bool frmTonedeck::yield()
{
    program().yield();
    return !closing();
}

// One box at a time: the desktop's keys get through to a window that tells something, and each of them may be
// answered with another error. Of those that come meanwhile the last one is told.
void frmTonedeck::tell(const QString& text)
{
    m_untold = text;
    if (std::exchange(m_telling, true))
        return;
    const auto end = qScopeGuard([this] { m_telling = false; });
    while (!m_untold.isEmpty() && !closing())
        dialogs().message({.text = std::exchange(m_untold, {}), .title = program().title()});
}

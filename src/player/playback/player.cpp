#include "player/playback/player.h"

#include "platform/mediamachine.h"
#include "player/playback/playbackview.h"
#include "player/playback/playersettings.h"
#include "player/playlist/modcommon.h"
#include "player/playlist/playlistcommands.h"

#include <algorithm>
#include <utility>

namespace {

// It goes by the name alone.
bool isPlaylist(const QString& path)
{
    const QString extension = GetExtension(path).toUpper();
    return extension == u"M3U" || extension == u"PLS";
}

} // namespace

Player::Player(PlayerContext& context, PlaybackView& view)
    : m_context(context), m_view(view), m_devices{context.media.makeDevice(), context.media.makeDevice()},
      m_waveVolume(context.media.makeVolume()),
      m_volume(*m_waveVolume, context.platform.settings, context.platform.program),
      m_engine(m_list, view,
               {context.platform,
                context.fileNumbers,
                context.codePage,
                context.settings,
                {m_devices[0].get(), m_devices[1].get()}}),
      m_keeper(context.platform.settings, context.settings, m_list, seams())
{
}

Player::~Player() = default;

PlaylistSeams Player::seams() const
{
    return {m_context.platform, m_context.fileNumbers, m_context.codePage};
}

// --- start ----------------------------------------------------------------------------------------

// The settings outlive a player: the cover in them is one that another window has shown.
void Player::restore()
{
    constexpr int kLastPlaylist = 1;
    constexpr int kStartFile = 2;
    settings().LastCover.clear();
    if (settings().StartMd == kLastPlaylist) {
        m_keeper.restoreList(m_list);
        if (const QString cover = settings().LastCover; !cover.isEmpty())
            m_view.loadCover(cover);
    } else if (settings().StartMd == kStartFile) {
        withPlaylist([this](PlaylistCommands& list) { list.addPath(settings().StartFile); });
    }
}

void Player::playFirst()
{
    m_started = true;
    const QStringList files = std::exchange(m_waiting, {});
    for (const QString& file : files)
        playFile(file);
    if (files.isEmpty() && settings().AutoPlay == 1 && !m_view.closed())
        m_engine.PlayIt();
}

// --- the list -------------------------------------------------------------------------------------

void Player::withPlaylist(const std::function<void(PlaylistCommands&)>& command,
                          const std::function<bool(const QString&)>& takes)
{
    PlaylistOptions options{.friendlyNames = settings().FriendlyNames != 0,
                            .validExt = settings().ValidExt,
                            .path = settings().Path};
    options.say = [this](const QString& text) { m_view.say(text); };
    options.closed = [this] { return m_view.closed(); };
    options.takes = takes;
    if (settings().ClearPLFirst != 0)
        options.clearFirst = [this] { PlClear(); };
    PlaylistCommands commands(m_list, options, seams());
    command(commands);
    settings().Path = options.path;
}

void Player::PlAddFileFromEditor(const QString& path)
{
    withPlaylist([&path](PlaylistCommands& list) { list.PlAddFileFromEditor(path); });
}

void Player::PlClear()
{
    m_list.PlClear();
    m_view.clearCover();
}

// It does nothing in a window that was closed while a file was asked for.
void Player::playEntry(int index)
{
    if (m_view.closed())
        return;
    m_list.setCurTrack(index + 1);
    m_engine.PlayIt();
}

void Player::EjectDirect()
{
    QString file;
    withPlaylist([&file](PlaylistCommands& list) { file = list.GetOneFileDirect(); });
    if (file.isEmpty())
        return;
    if (!FileExists(m_context.platform.files, file))
        return m_view.reportError(
            QStringLiteral("It is a special character in your MP3 filename. You have to open it manually"));
    if (isPlaylist(file))
        return playList(file, true);
    PlClear();
    withPlaylist([&file](PlaylistCommands& list) { list.addPath(file); });
    playEntry(0);
}

void Player::loadPlaylist()
{
    std::optional<int> first;
    withPlaylist([&first](PlaylistCommands& list) { first = list.PlLoad(); });
    if (first && settings().AutoPlay == 1 && *first < m_list.count())
        playEntry(*first);
}

void Player::savePlaylist()
{
    withPlaylist([](PlaylistCommands& list) { list.save(); });
}

void Player::addFile()
{
    withPlaylist([](PlaylistCommands& list) { list.openMedia(); });
}

void Player::addDirectory()
{
    withPlaylist([](PlaylistCommands& list) { list.AddFromDir(); });
}

void Player::addDropped(QByteArrayView list, const std::function<bool(const QString&)>& takes)
{
    withPlaylist([list](PlaylistCommands& commands) { commands.addUriList(list); }, takes);
}

void Player::removeSelected()
{
    m_list.remove(m_list.selected());
}

int Player::playingRow() const
{
    if (!m_engine.IsPlaying() || m_engine.halted())
        return -1;
    const std::vector<PlaylistEntry>& entries = m_list.entries();
    const auto isIt = [this](const PlaylistEntry& entry) { return entry.path == m_engine.CurPath(); };
    const auto current = static_cast<std::size_t>(m_list.CurTrack()) - 1;
    if (current < entries.size() && isIt(entries[current]))
        return static_cast<int>(current);
    const auto found = std::find_if(entries.begin(), entries.end(), isIt);
    return found == entries.end() ? -1 : static_cast<int>(found - entries.begin());
}

// --- files from outside ---------------------------------------------------------------------------

void Player::openAndPlay(const QString& path)
{
    if (m_started)
        playFile(path);
    else
        m_waiting += path;
}

// A single file begins a list of its own name; a playlist brings its own.
void Player::playFile(const QString& path)
{
    if (isPlaylist(path))
        return playList(path, settings().ClearPLFirst != 0);
    const int first = m_list.count();
    withPlaylist([&path](PlaylistCommands& list) { list.addPath(path); });
    if (first == m_list.count())
        return;
    if (first == 0)
        m_list.setFile(QStringLiteral("Commandline: ") + nameOfOpened(path), {});
    playEntry(first);
}

// Of a list that could not be read nothing is played, and the list that is there stays.
void Player::playList(const QString& path, bool replaces)
{
    const auto clear = replaces ? std::function<void()>([this] { PlClear(); }) : nullptr;
    int first = 0;
    withPlaylist([&](PlaylistCommands& list) { first = list.openList(path, clear); });
    if (first < m_list.count())
        playEntry(first);
}

// An address names its file in a way of its own; its entry knows better.
QString Player::nameOfOpened(const QString& path) const
{
    return path.contains(u'\\') ? FriendlyName(path, settings().FriendlyNames != 0)
                                : m_list.entries().front().name;
}

// --- modes ----------------------------------------------------------------------------------------

void Player::toggle(bool PlaybackEngine::*mode)
{
    m_engine.*mode = !(m_engine.*mode);
    m_view.showLights();
}

void Player::toggleTime()
{
    m_engine.ShowRemaining = !m_engine.ShowRemaining;
    m_engine.showTime();
}

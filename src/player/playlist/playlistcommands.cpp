#include "player/playlist/playlistcommands.h"

#include "base/filenametext.h"
#include "platform/dialogs.h"
#include "platform/drives.h"
#include "platform/files.h"
#include "platform/opennumber.h"
#include "platform/platform.h"
#include "platform/program.h"
#include "platform/usersettings.h"
#include "player/playlist/modcommon.h"
#include "player/playlist/walkdirectory.h"

#include <algorithm>

namespace {

const QString kDialog = QStringLiteral("CommonDialog1");

// Kept: "*FAR" stands here without its dot.
const QString kMediaFilter = QStringLiteral(
    "MPEG Audio Files|*.MP?|ActiveMovie Files|*.MP?;*.MPEG;*.DAT;*.WAV;*.AU;*.MID;*.RMI;*.AIF?;"
    "*.MOV;*.QT;*.AVI;*.M1V;*.RA;*.RAM;*.RM;*.RMM|Music Modules|*.MOD;*.MTM;*FAR;*.669;*.OKT;"
    "*.STM;*.S3M;*.NST;*.WOW;*.XM|Bitmaps|");
const QString kBitmaps = QStringLiteral("*.BMP;*.GIF;*.JPG"); // what counts as a picture

bool hasDrive(const QString& path)
{
    return path.size() > 1 && path[1] == u':';
}

} // namespace

// The list is told once, and complete when a message stands over it.
void PlaylistCommands::adding(const std::function<void()>& add)
{
    m_isOver = false;
    {
        const Playlist::Batch batch(m_list);
        add();
    }
    if (m_isOver)
        m_seams.platform.dialogs.message(
            {.text = QStringLiteral(
                         "The playlist is full: it holds %1 entries. What came after them was not added.")
                         .arg(kMostEntries),
             .title = m_seams.platform.program.title()});
}

void PlaylistCommands::addPath(const QString& path)
{
    addPaths({path});
}

void PlaylistCommands::addPaths(const QStringList& paths)
{
    adding([&] {
        for (const QString& path : paths)
            if (!path.isEmpty())
                addFull(fullPath(path));
    });
}

void PlaylistCommands::addUriList(QByteArrayView list)
{
    adding([&] {
        while (!list.isEmpty()) {
            const auto isEnd = [](char c) { return c == '\r' || c == '\n'; };
            const qsizetype length = std::find_if(list.begin(), list.end(), isEnd) - list.begin();
            const QByteArrayView line = list.first(length);
            list = list.sliced(std::min(length + 1, list.size()));
            if (const auto path = pathOfFileAddress(line, m_seams);
                path && !path->isEmpty() && !(m_options.takes && m_options.takes(*path)))
                addFull(*path);
        }
    });
}

void PlaylistCommands::PlAddFileFromEditor(const QString& path)
{
    if (!path.isEmpty())
        adding([&] { addEntry(fullPath(path)); });
}

std::optional<int> PlaylistCommands::PlLoad()
{
    const std::optional<QString> file = m_seams.platform.dialogs.openFile(
        {.title = QStringLiteral("Load Playlist"),
         .directory = m_options.path,
         .objectName = kDialog,
         .filter = QStringLiteral("MP3 Playlists (*.M3U)|*.M3U|Playlists (*.PLS)|*.PLS")});
    if (!file || file->isEmpty())
        return std::nullopt;
    return openList(*file, m_options.clearFirst);
}

int PlaylistCommands::openList(const QString& path, const std::function<void()>& clear)
{
    int first = m_list.count();
    adding([&] {
        if (clear)
            first = replaceBy(fullPath(path), clear);
        else
            addList(fullPath(path));
    });
    return first;
}

// It is read aside first: a disk may fail in the midst of it, when what it was to replace would be gone.
int PlaylistCommands::replaceBy(const QString& file, const std::function<void()>& clear)
{
    Playlist read;
    const ListRead result = PlRead(read, file, m_options.friendlyNames, m_seams);
    const bool isDone = result == ListRead::Whole || result == ListRead::Full;
    if (isDone && canBeRead(file)) // a file of another extension counts as whole without being opened
        clear();
    const int first = m_list.count();
    m_isOver = m_isOver || result == ListRead::Full;
    for (const PlaylistEntry& entry : read.entries())
        m_isOver = !m_list.add(entry.name, entry.path) || m_isOver;
    m_list.setFile(read.name(), read.file());
    sayUnread(file, result, read.count() > 0);
    return first;
}

bool PlaylistCommands::canBeRead(const QString& file)
{
    try {
        const OpenNumber open(m_seams.fileNumbers);
        m_seams.fileNumbers.openInput(open.number, file);
        m_seams.fileNumbers.endOfFile(open.number);
        return true;
    } catch (const RunTimeError&) {
        return false;
    }
}

void PlaylistCommands::save()
{
    const std::optional<QString> file =
        m_seams.platform.dialogs.saveFile({.title = QStringLiteral("Save Playlist"),
                                           .directory = m_options.path,
                                           .objectName = kDialog,
                                           .filter = QStringLiteral("MP3 Playlists (*.M3U)|*.M3U")});
    if (!file)
        return;
    m_options.path = GetPath(*file);
    m_seams.platform.settings.save(QStringLiteral("tonedeckpro"), QStringLiteral("config"),
                                   QStringLiteral("Path"), m_options.path);
    WritePL(m_list, *file, m_seams);
    m_list.setFile(FriendlyName(*file, m_options.friendlyNames), *file);
}

QString PlaylistCommands::GetOneFileDirect()
{
    return m_seams.platform.dialogs
        .openFile({.title = QStringLiteral("Open Media file"),
                   .directory = m_options.path,
                   .objectName = kDialog,
                   .filter = kMediaFilter + kBitmaps})
        .value_or(QString());
}

void PlaylistCommands::openMedia()
{
    if (const QString file = GetOneFileDirect(); !file.isEmpty())
        adding([&] { addFull(file); });
}

void PlaylistCommands::AddFromDir()
{
    const QString directory =
        BrowseFolder(m_seams.platform.dialogs, QStringLiteral("Select Directory containing Media Files:"));
    if (!directory.isEmpty())
        adding([&] { addFull(directory); });
}

QString PlaylistCommands::fullPath(const QString& path) const
{
    if (const auto found = pathOfFileAddress(path.toUtf8(), m_seams))
        return *found;
    if (path.startsWith(u'/'))
        return m_seams.platform.drives.drivePath(path.toUtf8());
    QString text = path;
    text.replace(u'/', u'\\');
    if (hasDrive(text))
        return text;
    const QString start =
        m_options.startDirectory.isEmpty() ? m_seams.platform.program.directory() : m_options.startDirectory;
    return text.startsWith(u'\\') ? start.left(2) + text : AddSlash(start) + text;
}

void PlaylistCommands::addFull(const QString& path)
{
    const QString extension = GetExtension(path).toUpper();
    if (extension == u"M3U" || extension == u"PLS") {
        addList(path);
    } else if (isDirectory(path)) {
        WalkCounters counters;
        const WalkOptions options{.extensions = validExtensions(m_options.validExt)};
        WalkDirectory(m_seams.platform.files, m_seams.platform.program, path, options, counters,
                      [this](const QString& file) {
                          return addEntry(file) && !(m_options.closed && m_options.closed());
                      });
    } else {
        addEntry(path);
    }
}

void PlaylistCommands::addList(const QString& file)
{
    const int before = m_list.count();
    const ListRead result = PlRead(m_list, file, m_options.friendlyNames, m_seams);
    m_isOver = m_isOver || result == ListRead::Full;
    sayUnread(file, result, m_list.count() > before);
}

void PlaylistCommands::sayUnread(const QString& file, ListRead result, bool isPart)
{
    if (!m_options.say || result == ListRead::Whole || result == ListRead::Full)
        return;
    const QString text = result == ListRead::Missing ? QStringLiteral("There is no playlist %1.")
                         : isPart                    ? QStringLiteral("Only a part of %1 could be read.")
                                                     : QStringLiteral("%1 could not be read.");
    m_options.say(text.arg(filenametext::readable(GetFileName(file), m_seams.codePage)));
}

bool PlaylistCommands::addEntry(const QString& path)
{
    const bool added = m_list.add(entryName(path, m_options.friendlyNames, m_seams.codePage), path);
    m_isOver = m_isOver || !added;
    return added;
}

bool PlaylistCommands::isDirectory(const QString& path) const
{
    Files& files = m_seams.platform.files;
    const QString name = path.size() > 2 && path.endsWith(u'\\') ? path.chopped(1) : path;
    const bool pattern = name.contains(u'*') || name.contains(u'?');
    return !pattern && !files.exists(name) && !files.dir(name, kDirectory).isEmpty();
}

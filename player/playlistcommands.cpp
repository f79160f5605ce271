#include "player/playlistcommands.h"

#include "platform/dialogs.h"
#include "platform/drives.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "platform/program.h"
#include "platform/usersettings.h"
#include "player/modcommon.h"
#include "player/walkdirectory.h"

#include <algorithm>

namespace {

const QString kDialog = QStringLiteral("CommonDialog1");

// Kept: "*FAR" without its dot.
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

void PlaylistCommands::addPath(const QString& path)
{
    if (!path.isEmpty())
        addFull(fullPath(path));
}

void PlaylistCommands::addPaths(const QStringList& paths)
{
    const Playlist::Batch batch(m_list);
    for (const QString& path : paths)
        addPath(path);
}

void PlaylistCommands::addUriList(QByteArrayView list)
{
    const Playlist::Batch batch(m_list);
    while (!list.isEmpty()) {
        const auto isEnd = [](char c) { return c == '\r' || c == '\n'; };
        const qsizetype length = std::find_if(list.begin(), list.end(), isEnd) - list.begin();
        const QByteArrayView line = list.first(length);
        list = list.sliced(std::min(length + 1, list.size()));
        if (const auto path = pathOfFileAddress(line, m_seams);
            path && !path->isEmpty() && !(m_options.takes && m_options.takes(*path)))
            addFull(*path);
    }
}

void PlaylistCommands::PlAddFileFromEditor(const QString& path)
{
    if (!path.isEmpty())
        addEntry(fullPath(path));
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
    if (m_options.clearFirst)
        m_options.clearFirst();
    const int first = m_list.count();
    PlRead(m_list, *file, m_options.friendlyNames, m_seams);
    return first;
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
        addFull(file);
}

void PlaylistCommands::AddFromDir()
{
    const QString directory =
        BrowseFolder(m_seams.platform.dialogs, QStringLiteral("Select Directory containing Media Files:"));
    if (!directory.isEmpty())
        addFull(directory);
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
        PlRead(m_list, path, m_options.friendlyNames, m_seams);
    } else if (isDirectory(path)) {
        const Playlist::Batch batch(m_list);
        WalkCounters counters;
        const WalkOptions options{.extensions = validExtensions(m_options.validExt)};
        WalkDirectory(m_seams.platform.files, m_seams.platform.program, path, options, counters,
                      [this](const QString& file) {
                          addEntry(file);
                          return !(m_options.closed && m_options.closed());
                      });
    } else {
        addEntry(path);
    }
}

void PlaylistCommands::addEntry(const QString& path)
{
    m_list.add(entryName(path, m_options.friendlyNames, m_seams.codePage), path);
}

bool PlaylistCommands::isDirectory(const QString& path) const
{
    Files& files = m_seams.platform.files;
    const QString name = path.size() > 2 && path.endsWith(u'\\') ? path.chopped(1) : path;
    const bool pattern = name.contains(u'*') || name.contains(u'?');
    return !pattern && !files.exists(name) && !files.dir(name, kDirectory).isEmpty();
}

#include "player/playlist/playlistfile.h"

#include "base/codepage.h"
#include "base/filenametext.h"
#include "base/runtimeerror.h"
#include "platform/dialogs.h"
#include "platform/drives.h"
#include "platform/filenumbers.h"
#include "platform/files.h"
#include "platform/opennumber.h"
#include "platform/platform.h"
#include "platform/program.h"
#include "player/playlist/modcommon.h"
#include "player/playlist/playlistentry.h"

#include <algorithm>

namespace {

constexpr qint64 kMostBytes = qint64(256) << 20; // eight thousand for each entry, twice what a path may have

constexpr qint64 kShortLine = 32;

// Takes of a PLS line all that stands behind the first "=". Kept: "File" counts in this very case alone, and
// whatever stands between is skipped.
std::optional<QByteArrayView> valueOfPls(QByteArrayView line)
{
    const qsizetype equals = line.indexOf('=');
    if (!line.startsWith("File") || equals < 1)
        return std::nullopt;
    return line.sliced(equals + 1);
}

class Reader {
public:
    Reader(Playlist& list, const QString& file, bool friendlyNames, const PlaylistSeams& seams)
        : m_list(list), m_directory(GetPath(file)), m_friendlyNames(friendlyNames), m_seams(seams),
          m_paths(seams.platform.drives)
    {
    }

    ListRead read(const QString& file, bool pls)
    {
        FileNumbers& numbers = m_seams.fileNumbers;
        const OpenNumber open(numbers);
        numbers.openInput(open.number, file);
        const qint64 room = kMostEntries - m_list.count();
        m_list.expect(static_cast<int>(std::min(numbers.length(open.number) / kShortLine, room)));
        qint64 taken = 0;
        bool isText = true;
        for (bool first = true; !numbers.endOfFile(open.number); first = false) {
            const QByteArrayView bytes = numbers.lineView(open.number);
            taken += bytes.size() + 1;
            if (taken > kMostBytes)
                return ListRead::Failed;
            isText = isText && !bytes.contains('\0');
            const QByteArrayView line = lineWithoutBlanks(first ? withoutMark(bytes) : bytes);
            const auto entry = pls ? valueOfPls(line) : std::optional(line);
            if (entry && !add(*entry))
                return ListRead::Full;
        }
        // No path holds a null character: it is some other kind of file, or a list in letters of two bytes,
        // and what was made of it must not take its place.
        return isText ? ListRead::Whole : ListRead::Failed;
    }

private:
    static QByteArrayView withoutMark(QByteArrayView line)
    {
        constexpr QByteArrayView kMark("\xEF\xBB\xBF");
        return line.startsWith(kMark) ? line.sliced(kMark.size()) : line;
    }

    bool add(QByteArrayView line)
    {
        if (m_list.isFull())
            return false;
        entryText(m_text, line, m_seams, m_paths);
        return m_list.add(entryName(m_text, m_friendlyNames, m_seams.codePage),
                          entryPath(m_text, m_directory));
    }

    Playlist& m_list;
    const QString m_directory;
    const bool m_friendlyNames;
    const PlaylistSeams& m_seams;
    MachinePaths m_paths;
    QString m_text; // of the line in work
};

} // namespace

QString entryName(const QString& path, bool friendlyNames, const CodePage& codePage)
{
    constexpr char16_t kFirstCarried = 0xEF80; // base/filenametext.h
    QString name = FriendlyName(path, friendlyNames);
    // Every character is looked at, for that can be done to many of them at once.
    char16_t greatest = 0;
    for (const QChar c : std::as_const(name))
        greatest = std::max(greatest, c.unicode());
    if (greatest >= kFirstCarried)
        name = filenametext::readable(name, codePage);
    if (IsPicture(path))
        name += QStringLiteral(" (picture)");
    return name;
}

ListRead PlRead(Playlist& list, const QString& file, bool friendlyNames, const PlaylistSeams& seams)
{
    const Playlist::Batch batch(list);
    const HeldDrives drives(seams.platform.drives);
    list.setFile(FriendlyName(file, friendlyNames), file);
    const QString extension = GetExtension(file).toUpper();
    const bool pls = extension == u"PLS";
    if (!pls && extension != u"M3U")
        return ListRead::Whole;
    try {
        return Reader(list, file, friendlyNames, seams).read(file, pls);
    } catch (const RunTimeError& error) {
        const bool isMissing = error.number() == numberOf(ErrorNumber::FileNotFound);
        return isMissing ? ListRead::Missing : ListRead::Failed;
    }
}

void writeList(const Playlist& list, const QString& file, const PlaylistSeams& seams)
{
    const QString directory = GetPath(file);
    QByteArray content;
    for (const PlaylistEntry& entry : list.entries())
        if (!entry.path.isEmpty() && !entry.path.contains(QStringLiteral("**")))
            content += entryLine(entry.path, directory, seams).toUtf8() + "\r\n";
    seams.platform.files.replace(file, content);
}

bool WritePL(const Playlist& list, const QString& file, const PlaylistSeams& seams)
{
    try {
        writeList(list, file, seams);
        return true;
    } catch (const RunTimeError&) {
        tellNotWritten(seams.platform);
        return false;
    }
}

void tellNotWritten(const Platform& platform)
{
    platform.dialogs.message({.text = QStringLiteral("Unable to write Playlist! Is the file read-only?"),
                              .title = platform.program.title()});
}

#include "player/playlistfile.h"

#include "base/codepage.h"
#include "base/runtimeerror.h"
#include "platform/dialogs.h"
#include "platform/drives.h"
#include "platform/filenumbers.h"
#include "platform/nametext.h"
#include "platform/platform.h"
#include "platform/program.h"
#include "player/modcommon.h"
#include "player/playlistentry.h"

#include <algorithm>

namespace {

constexpr qint64 kLargest = qint64(64) << 20; // two thousand bytes for each entry that may be read

constexpr qint64 kShortLine = 32;

// What a PLS line gives: all behind the first "=". Kept: "File" in this very case, and whatever stands
// between.
std::optional<QByteArrayView> valueOfPls(QByteArrayView line)
{
    const qsizetype equals = line.indexOf('=');
    if (!line.startsWith("File") || equals < 1)
        return std::nullopt;
    return line.sliced(equals + 1);
}

// An open file number, free again whatever happens.
class OpenNumber {
public:
    explicit OpenNumber(FileNumbers& numbers) : m_numbers(numbers), number(numbers.freeFile()) {}
    ~OpenNumber()
    {
        resumeNext([this] { m_numbers.close(number); });
    }
    OpenNumber(const OpenNumber&) = delete;
    OpenNumber& operator=(const OpenNumber&) = delete;

private:
    FileNumbers& m_numbers;

public:
    const int number;
};

class Reader {
public:
    Reader(Playlist& list, const QString& file, bool friendlyNames, const PlaylistSeams& seams)
        : m_list(list), m_directory(GetPath(file)), m_friendlyNames(friendlyNames), m_seams(seams),
          m_paths(seams.platform.drives)
    {
    }

    void read(const QString& file, bool pls)
    {
        FileNumbers& numbers = m_seams.fileNumbers;
        const OpenNumber open(numbers);
        numbers.openInput(open.number, file);
        const qint64 length = numbers.length(open.number);
        if (length > kLargest)
            return;
        const qint64 room = std::max(kMostReadEntries - m_list.count(), 0);
        m_list.expect(static_cast<int>(std::min(length / kShortLine, room)));
        for (bool first = true; m_list.count() < kMostReadEntries && !numbers.endOfFile(open.number);
             first = false) {
            const QByteArrayView bytes = numbers.lineView(open.number);
            const QByteArrayView line = lineWithoutBlanks(first ? withoutMark(bytes) : bytes);
            if (!pls)
                add(line);
            else if (const auto value = valueOfPls(line))
                add(*value);
        }
    }

private:
    static QByteArrayView withoutMark(QByteArrayView line)
    {
        constexpr QByteArrayView kMark("\xEF\xBB\xBF");
        return line.startsWith(kMark) ? line.sliced(kMark.size()) : line;
    }

    void add(QByteArrayView line)
    {
        entryText(m_text, line, m_seams, m_paths);
        m_list.add(entryName(m_text, m_friendlyNames, m_seams.codePage), entryPath(m_text, m_directory));
    }

    Playlist& m_list;
    const QString m_directory;
    const bool m_friendlyNames;
    const PlaylistSeams& m_seams;
    MachinePaths m_paths;
    QString m_text; // of the line in work
};

void write(const Playlist& list, const QString& file, const PlaylistSeams& seams)
{
    FileNumbers& numbers = seams.fileNumbers;
    const QString directory = GetPath(file);
    const OpenNumber open(numbers);
    numbers.openOutput(open.number, file);
    for (const PlaylistEntry& entry : list.entries())
        if (!entry.path.isEmpty() && !entry.path.contains(QStringLiteral("**")))
            numbers.print(open.number, entryLine(entry.path, directory, seams) + QStringLiteral("\r\n"));
    numbers.close(open.number); // tells what the disk did not take
}

} // namespace

QString entryName(const QString& path, bool friendlyNames, const CodePage& codePage)
{
    constexpr char16_t kFirstCarried = 0xEF80; // platform/nametext.h
    QString name = FriendlyName(path, friendlyNames);
    // Every character is looked at, for that can be done to many of them at once.
    char16_t greatest = 0;
    for (const QChar c : std::as_const(name))
        greatest = std::max(greatest, c.unicode());
    if (greatest >= kFirstCarried)
        name = nametext::readable(name, codePage);
    if (IsPicture(path))
        name += QStringLiteral(" (picture)");
    return name;
}

void PlRead(Playlist& list, const QString& file, bool friendlyNames, const PlaylistSeams& seams)
{
    const Playlist::Batch batch(list);
    const HeldDrives drives(seams.platform.drives);
    list.setFile(FriendlyName(file, friendlyNames), file);
    const QString extension = GetExtension(file).toUpper();
    const bool pls = extension == u"PLS";
    if (pls || extension == u"M3U")
        resumeNext([&] { Reader(list, file, friendlyNames, seams).read(file, pls); });
}

bool WritePL(const Playlist& list, const QString& file, const PlaylistSeams& seams)
{
    try {
        write(list, file, seams);
        return true;
    } catch (const RunTimeError&) {
        seams.platform.dialogs.message(
            {.text = QStringLiteral("Unable to write Playlist! Is the file read-only?"),
             .title = seams.platform.program.title()});
        return false;
    }
}

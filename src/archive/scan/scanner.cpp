#include "archive/scan/scanner.h"

#include "archive/core/sharedvalues.h"
#include "archive/scan/nameparts.h"
#include "archive/scan/tagtext.h"
#include "base/codepage.h"
#include "base/dospath.h"
#include "base/filenametext.h"
#include "base/runtimeerror.h"
#include "base/textrules.h"
#include "platform/drives.h"
#include "platform/filenumbers.h"
#include "platform/files.h"
#include "platform/program.h"

#include <algorithm>

namespace {

constexpr int kTail = 256;
constexpr qsizetype kExtensionLength = 3;
const QChar kNul = u'\0';
const QChar kApostrophe = u'\'';

// The archive's statements quote with apostrophes and escape nothing; its fields hold no NUL.
QString storable(QString text)
{
    return text.replace(kNul, QStringLiteral("  ")).replace(kApostrophe, u'-');
}

// Takes the last characters of the upper-cased name; a character may become several, a pair of surrogates
// stays one.
QString upperEnd(const QString& fileName)
{
    return fileName.right(2 * kExtensionLength).toUpper().right(kExtensionLength);
}

} // namespace

Scanner::Scanner(ArchiveContext& context, SetupSource setup, ScanView& view)
    : m_context(context), m_setup(std::move(setup)), m_view(view)
{
}

void Scanner::readVolumeName()
{
    const QString root = dospath::drive(m_context.shared.SearchRoot) + QStringLiteral("\\*.*");
    m_context.shared.CurrentVolume = m_context.platform.files.dir(root, kVolumeLabel).value(0);
}

void Scanner::scanTree()
{
    readVolumeName();
    dospath::Split search = dospath::splitAtLastBackslash(m_setup().searchString());
    m_view.clearFiles();
    begin({.directory = search.directory, .pattern = search.rest});
    FilesSearch(search.directory, search.rest);
    tellWhyEmpty();
    const auto seconds = static_cast<float>(m_context.platform.program.secondsSinceMidnight());
    m_view.setLabel5(QStringLiteral("Time taken: ") +
                     textrules::singleText((seconds - m_context.shared.ScanStartTime) / 1000) +
                     QStringLiteral(" seconds"));
}

void Scanner::scanDirectory()
{
    readVolumeName();
    const dospath::Split search = dospath::splitAtLastBackslash(m_setup().searchString());
    begin({.directory = search.directory, .pattern = search.rest, .subdirectories = false});
    const QStringList names = m_context.platform.files.dir(m_setup().searchString());
    m_tally.matched = static_cast<int>(names.size());
    m_context.platform.files.expectTails(m_setup().directory(), names, kTail + 1);
    for (const QString& name : names) {
        if (m_view.stopWished())
            return;
        // Kept: at the root of a drive this doubles the backslash, and the path is stored that way.
        m_context.shared.CurrentFile = m_setup().directory() + u'\\' + name;
        AddFileToResult();
    }
    if (names.isEmpty())
        resumeNext([this] { lookRound(); });
    tellWhyEmpty();
}

void Scanner::begin(const ScanTally& tally)
{
    m_entered = {};
    m_tally = tally;
    m_tally.extension = m_setup().customExt();
    m_view.setNote({});
    m_view.setEmptyReason({});
}

void Scanner::tellWhyEmpty()
{
    if (m_tally.rows > 0 || m_view.closing())
        return;
    const QString letter = m_tally.directory.left(1).toUpper();
    const std::vector<Drive> drives = m_context.platform.drives.list();
    m_tally.hasDrive =
        std::any_of(drives.begin(), drives.end(), [&](const Drive& drive) { return letter == drive.letter; });
    m_tally.isKernels = m_entered.metKernel() && m_tally.directoriesBelow == 0;
    m_view.setEmptyReason(whyEmpty(m_tally));
}

// Counts what the directory alone holds, when none of it matched.
void Scanner::lookRound()
{
    for (const DirEntry& entry : enter(m_tally.directory).value_or(std::vector<DirEntry>()))
        if (entry.attributes & kDirectory)
            ++m_tally.directoriesBelow;
        else
            note(entry);
}

void Scanner::note(const DirEntry& other)
{
    if (m_tally.others++ == 0)
        m_tally.other = filenametext::readable(other.name, m_context.codePage);
}

std::optional<std::vector<DirEntry>> Scanner::enter(const QString& dirPath)
{
    try {
        return m_context.platform.files.enter(dirPath, m_entered);
    } catch (const RunTimeError& error) {
        if (++m_tally.unreadable == 1 && m_tally.directoriesBelow == 0)
            m_tally.error = error.number();
        throw;
    }
}

void Scanner::FilesSearch(QString& dirPath, const QString& filePattern)
{
    dirPath = dospath::withTrailingBackslash(dirPath);
    m_view.setLabel1(QStringLiteral("Searching... ") + dirPath);
    m_view.showProgress();
    m_context.platform.program.yield();
    if (m_view.closing())
        return;
    resumeNext([&] { searchDirectory(dirPath, filePattern); });
}

void Scanner::searchDirectory(const QString& dirPath, const QString& filePattern)
{
    QStringList subdirectories;
    QStringList names;
    const std::optional<std::vector<DirEntry>> entries = enter(dirPath);
    if (!entries)
        return;
    for (const DirEntry& entry : *entries) {
        if (entry.attributes & kDirectory)
            subdirectories += dirPath + entry.name + u'\\';
        else if (filePattern.isEmpty() || dospath::matches(entry.name, filePattern))
            names += entry.name;
        else
            note(entry);
    }
    m_tally.directoriesBelow += static_cast<int>(subdirectories.size());
    m_tally.matched += static_cast<int>(names.size());
    m_context.platform.files.expectTails(dirPath, names, kTail + 1);
    for (const QString& name : std::as_const(names)) {
        if (m_view.stopWished())
            return;
        takeFile(dirPath + name);
    }
    for (QString& subdirectory : subdirectories) {
        if (m_view.closing())
            return;
        FilesSearch(subdirectory, filePattern);
    }
}

void Scanner::takeFile(const QString& path)
{
    m_view.addFile(path);
    m_view.setLabel1(QString::number(m_view.fileCount()) +
                     QStringLiteral(" Items was found in this search."));
    m_context.shared.CurrentFile = path;
    resumeNext([this] { AddFileToResult(); });
}

void Scanner::AddFileToResult()
{
    SharedValues& shared = m_context.shared;
    for (QString* value :
         {&shared.ScanArtist, &shared.ScanSong, &shared.ScanAlbum, &shared.ScanYear, &shared.ScanComment})
        value->clear();
    shared.CurrentFile.remove(kNul);
    const QString fileName = dospath::fileName(shared.CurrentFile);
    if (upperEnd(fileName) != m_setup().customExt()) {
        ++m_tally.ofOtherType;
        return;
    }
    const NameParts parts = partsOfName(filenametext::readable(fileName, m_context.codePage));
    shared.ScanArtist = parts.artist;
    shared.ScanSong = parts.song;
    GetIDTag();
    for (QString* value : {&shared.CurrentFile, &shared.ScanArtist, &shared.ScanSong, &shared.ScanAlbum,
                           &shared.ScanYear, &shared.ScanComment})
        *value = storable(*value);
    if (shared.ScanSong.startsWith(u' '))
        shared.ScanSong.remove(0, 1);
    ++m_tally.rows;
    m_view.addRow({storedVolume(), shared.CurrentFile, shared.ScanArtist, shared.ScanSong, shared.ScanAlbum,
                   shared.ScanYear, shared.ScanComment});
}

// Its statement breaks at an apostrophe. The disk keeps its name, by which it is known when something is
// played.
QString Scanner::storedVolume()
{
    const QString& volume = m_context.shared.CurrentVolume;
    if (!volume.contains(kApostrophe))
        return volume;
    QString stored = storable(volume);
    m_view.setNote(
        QStringLiteral(
            "The disk is called \"%1\". The archive cannot hold its apostrophe, so the rows say \"%2\": "
            "Play will tell you that the names differ, and play all the same.")
            .arg(volume, stored));
    return stored;
}

void Scanner::GetIDTag()
{
    SharedValues& shared = m_context.shared;
    if (shared.CurrentFile.isEmpty())
        return;
    const std::optional<TagText> tag = findTag(readTail(shared.CurrentFile));
    if (!tag)
        return;
    shared.ScanSong = tag->song;
    shared.ScanArtist = tag->artist;
    shared.ScanAlbum = tag->album;
    shared.ScanYear = tag->year;
    shared.ScanComment = tag->comment;
}

QString Scanner::readTail(const QString& path)
{
    FileNumbers& files = m_context.fileNumbers;
    const int number = files.freeFile();
    files.openBinary(number, path);
    QByteArray tail;
    try {
        const qint64 length = files.length(number);
        // Kept: the window begins one byte early and so ends one byte before the file does.
        if (length > kTail)
            tail = files.get(number, length - kTail, kTail);
    } catch (const RunTimeError&) {
        files.close(number);
        throw;
    }
    files.close(number);
    return m_context.codePage.toText(tail);
}

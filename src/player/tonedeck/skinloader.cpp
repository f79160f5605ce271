#include "player/tonedeck/skinloader.h"

#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/program.h"
#include "player/packedsets/packedset.h"
#include "player/playback/playersettings.h"
#include "player/playlist/modcommon.h"
#include "player/skin/sethints.h"
#include "player/skin/skinelements.h"
#include "player/skin/skininterpreter.h"
#include "player/skin/skinreader.h"
#include "player/tonedeck/skinfiles.h"

#include <QScopedValueRollback>

#include <utility>

namespace {

constexpr qint64 kLargest = qint64(64) << 20;

constexpr qsizetype kMostShown = 2000; // of a text that a file may make a megabyte long

QString cut(const QString& text)
{
    return text.size() > kMostShown ? text.left(kMostShown) + QStringLiteral("...") : text;
}

const QString kDialog = QStringLiteral("CommonDialog1");

} // namespace

SkinLoader::SkinLoader(const PlayerContext& context, SkinTarget& target, SkinScreen screen)
    : m_context(context), m_target(target), m_screen(std::move(screen)),
      m_sets(context, [this](const QString& text) { message(text); })
{
}

void SkinLoader::LoadSkin(const QString& name, bool silent, SkinDiagnostics* notes)
{
    if (m_loading)
        return;
    const QScopedValueRollback<bool> loading(m_loading, true);
    m_silent = silent;
    m_stopped = false;
    if (const std::optional<QString> path = foundOrTold(wanted(name)))
        packedset::isName(*path) ? wear(*path, notes) : load(*path, notes);
}

std::optional<QString> SkinLoader::foundOrTold(const QString& file)
{
    std::optional<QString> path = found(file);
    if (!path)
        message(QStringLiteral("Skin not found!\rSkinName=%1\rSkinPath=%2")
                    .arg(file, m_context.settings.SkinPath));
    return path;
}

// A set has no control file of its own: the skin that wears sets does, and is not asked for its pictures.
void SkinLoader::wear(const QString& set, SkinDiagnostics* notes)
{
    const std::optional<QString> skin = foundOrTold(QStringLiteral("classic.skin"));
    if (!skin)
        return;
    m_set = m_sets.unpacked(set);
    if (m_set)
        load(*skin, notes);
    m_set.reset();
}

void SkinLoader::SelectSkin()
{
    if (m_loading)
        return;
    const QString& path = m_context.settings.SkinPath;
    const std::optional<QString> file = m_context.platform.dialogs.openFile(
        {.title = QStringLiteral("Select Skin"),
         .directory = path.isEmpty() ? m_context.platform.program.directory() : path,
         .objectName = kDialog,
         .filter = QStringLiteral("Skin control file (*.skin)|*.skin")});
    if (file)
        LoadSkin(*file, false);
}

std::optional<QString> SkinLoader::find(const QString& name) const
{
    return found(wanted(name));
}

QString SkinLoader::switchName(Command command) const
{
    static_assert(kPreviousSkinButton == codeOf(Command::PreviousSkin));
    static_assert(kNextSkinButton == codeOf(Command::NextSkin));
    return command == Command::PreviousSkin ? m_texts.previousSkin : m_texts.nextSkin;
}

void SkinLoader::switchSkin(Command command)
{
    if (const QString name = switchName(command); !name.isEmpty())
        LoadSkin(name, false);
}

QString SkinLoader::wanted(const QString& name) const
{
    return skinFileName(name, m_screen.width());
}

std::optional<QString> SkinLoader::found(const QString& wantedName) const
{
    return findSkin(wantedName,
                    {.skins = m_context.settings.SkinPath,
                     .before = m_skinDir,
                     .program = m_context.platform.program.directory()},
                    [this](const QString& path) { return FileExists(m_context.platform.files, path); });
}

void SkinLoader::load(const QString& path, SkinDiagnostics* notes)
{
    const std::optional<QByteArray> bytes = readWhole(m_context.fileNumbers, path, kLargest);
    const SkinTexts before = m_texts;
    SkinReader reader(bytes.value_or(QByteArray()), m_context.codePage);
    SkinInterpreter interpreter({reader, m_target, *this, m_texts}, notes);
    if (!bytes || !interpreter.isSkin()) {
        message(QStringLiteral("Invalid Skin!"));
        return;
    }
    m_skin = path;
    const QString directoryBefore = std::exchange(m_skinDir, GetPath(path));
    const QString skinBefore = m_context.settings.Skin;
    const QString importBefore = m_context.settings.SkinImport;
    m_cancelled = false;
    interpreter.load(m_skinDir);
    // Otherwise the next start would take as long, or put the skin before on with other pictures.
    if (m_stopped || closed()) {
        m_context.settings.Skin = skinBefore;
        m_context.settings.SkinImport = importBefore;
    }
    if (m_cancelled) { // the skin before is the player's still, and looks for its neighbours where it lies
        m_texts = before;
        m_skinDir = directoryBefore;
    }
}

std::optional<QString> SkinLoader::importDirectory(const SkinImport& proposed)
{
    QString& directory = m_context.settings.SkinImport;
    const QString own =
        proposed.directory.contains(u':') ? proposed.directory : m_skinDir + proposed.directory;
    if (m_set)
        return directory = *m_set;
    if (m_silent)
        return AddSlash(directory.isEmpty() ? own : directory);
    const std::optional<QString> file =
        m_context.platform.dialogs.openFile({.title = QStringLiteral("Import Skin"),
                                             .fileName = cut(proposed.file),
                                             .directory = own,
                                             .objectName = kDialog,
                                             .filter = cut(proposed.filter)});
    std::optional<QString> chosen = file ? directoryOf(*file) : std::nullopt;
    m_cancelled = !chosen;
    if (chosen)
        directory = *chosen;
    return chosen;
}

// Returns that of a picture, or of the set in an archive; nothing when that was told to be none.
std::optional<QString> SkinLoader::directoryOf(const QString& file) const
{
    return packedset::isName(file) ? m_sets.unpacked(file) : GetPath(file);
}

std::optional<QByteArray> SkinLoader::hints(const QString& path)
{
    return readWhole(m_context.fileNumbers, path, kMostHintBytes);
}

void SkinLoader::chosen()
{
    m_context.settings.Skin = m_skin;
}

void SkinLoader::message(const QString& text)
{
    m_context.platform.dialogs.message({.text = cut(text), .title = m_context.platform.program.title()});
}

void SkinLoader::yield()
{
    m_context.platform.program.yield();
}

bool SkinLoader::closed() const
{
    return m_screen.closed();
}

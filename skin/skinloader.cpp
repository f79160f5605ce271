#include "skin/skinloader.h"

#include "base/runtimeerror.h"
#include "platform/dialogs.h"
#include "platform/filenumbers.h"
#include "platform/files.h"
#include "platform/program.h"
#include "player/modcommon.h"
#include "player/playersettings.h"
#include "skin/skinfiles.h"
#include "skin/skininterpreter.h"
#include "skin/skinreader.h"

#include <QScopeGuard>
#include <QScopedValueRollback>

#include <utility>

namespace {

constexpr qint64 kLargest = qint64(64) << 20;
constexpr int kFirstSwitch = 49;

constexpr qsizetype kMostShown = 2000; // of a text that a file may make a megabyte long

QString cut(const QString& text)
{
    return text.size() > kMostShown ? text.left(kMostShown) + QStringLiteral("...") : text;
}

const QString kDialog = QStringLiteral("CommonDialog1");

} // namespace

SkinLoader::SkinLoader(const PlayerContext& context, SkinTarget& target, SkinScreen screen)
    : m_context(context), m_target(target), m_screen(std::move(screen))
{
}

void SkinLoader::LoadSkin(const QString& name, bool silent, SkinNotes* notes)
{
    if (m_loading)
        return;
    const QScopedValueRollback<bool> loading(m_loading, true);
    m_silent = silent;
    m_stopped = false;
    const QString file = wanted(name);
    if (const std::optional<QString> path = found(file))
        load(*path, notes);
    else
        message(QStringLiteral("Skin not found!\rSkinName=%1\rSkinPath=%2")
                    .arg(file, m_context.settings.SkinPath));
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

QString SkinLoader::switchName(int button) const
{
    return m_texts.switchNames.at(static_cast<std::size_t>(button - kFirstSwitch));
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

// Nothing for a file that cannot be read, and for one that is larger than any skin: that is no skin then.
std::optional<QByteArray> SkinLoader::content(const QString& path) const
{
    FileNumbers& numbers = m_context.fileNumbers;
    try {
        const int number = numbers.freeFile();
        const auto close = qScopeGuard([&] { numbers.close(number); });
        numbers.openBinary(number, path);
        const qint64 length = numbers.length(number);
        if (length > kLargest)
            return std::nullopt;
        return numbers.get(number, 1, static_cast<int>(length));
    } catch (const RunTimeError&) {
        return std::nullopt;
    }
}

void SkinLoader::load(const QString& path, SkinNotes* notes)
{
    const std::optional<QByteArray> bytes = content(path);
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
    m_cancelled = false;
    interpreter.load(m_skinDir);
    if (m_stopped) // else the next start would take as long
        m_context.settings.Skin = skinBefore;
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
    if (m_silent)
        return AddSlash(directory.isEmpty() ? own : directory);
    const std::optional<QString> file =
        m_context.platform.dialogs.openFile({.title = QStringLiteral("Import Skin"),
                                             .fileName = cut(proposed.file),
                                             .directory = own,
                                             .objectName = kDialog,
                                             .filter = cut(proposed.filter)});
    m_cancelled = !file;
    if (m_cancelled)
        return std::nullopt;
    directory = GetPath(*file);
    return directory;
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

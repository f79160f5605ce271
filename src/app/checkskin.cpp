#include "app/checkskin.h"

#include "app/checkedface.h"
#include "base/runtimeerror.h"
#include "platform/dialogs.h"
#include "platform/drives.h"
#include "platform/files.h"
#include "platform/program.h"
#include "player/packedsets/packedset.h"
#include "player/playback/playersettings.h"
#include "player/playlist/modcommon.h"
#include "player/skin/skindiagnostics.h"
#include "system/media/silentmedia.h"

#include <QDir>
#include <QFileInfo>
#include <QPainter>
#include <QTemporaryDir>

#include <cstdio>
#include <set>

namespace {

const QString kSkinOfSets = QStringLiteral("classic.skin");

// Tells whether it can be the main picture of a set.
bool isPicture(const QString& path)
{
    return path.endsWith(u".bmp", Qt::CaseInsensitive) || path.endsWith(u".png", Qt::CaseInsensitive);
}

void say(const QString& text)
{
    std::puts(text.toLocal8Bit().constData());
}

class PrintedNotes : public SkinDiagnostics {
public:
    PrintedNotes(QString file, bool isSet) : m_file(std::move(file)), m_isSet(isSet) {}

    void note(int line, const QString& text) override
    {
        if (m_isSet) // the lines are another file's
            return note(text);
        say(QStringLiteral("%1:%2: %3").arg(m_file, QString::number(line), text));
        any = true;
    }

    void used(const QString& path) override { m_known.insert(GetFileName(path).toLower()); }
    void lacks(const QString& path) override
    {
        const QString name = StripExtension(GetFileName(path));
        if (m_isSet && m_lacking.insert(name).second)
            note(QStringLiteral("there is no picture \"%1\", what is made of it is left out").arg(name));
    }
    void unusedOf(const std::vector<DirEntry>& entries)
    {
        QStringList names;
        for (const DirEntry& entry : entries)
            if (entry.attributes == kNormal && !m_known.contains(entry.name.toLower()))
                names += entry.name;
        if (m_isSet && !names.isEmpty())
            say(QStringLiteral("%1: not used: %2").arg(m_file, names.join(QStringLiteral(", "))));
    }

    void note(const QString& text) // of no line
    {
        say(m_file + QStringLiteral(": ") + text);
        any = true;
    }

    bool any = false;

private:
    QString m_file;
    bool m_isSet; // of pictures
    std::set<QString> m_known;
    std::set<QString> m_lacking;
};

// Nobody is asked, because an import skin's pictures are where its file says.
class ProposedAnswers : public Dialogs {
public:
    Answer message(const Message& message) override
    {
        QString text = message.text;
        said += text.replace(u'\r', u' ') + u'\n';
        return Answer::Ok;
    }
    std::optional<QString> inputBox(const QString&, const QString&) override { return std::nullopt; }
    std::optional<QString> openFile(const FileQuestion& question) override
    {
        return picture.isEmpty() ? AddSlash(question.directory) + question.fileName : picture;
    }
    std::optional<QString> saveFile(const FileQuestion&) override { return std::nullopt; }
    std::optional<QString> browseFolder(const QString&) override { return std::nullopt; }
    void runTimeError(const RunTimeError& error) override { said += error.text() + u'\n'; }

    QString said;
    QString picture; // of the set that is to be checked
};

// What is cut from the resource bitmap has to lie in it; this and the outline are what only the whole skin
// tells.
QStringList misfits(const Face& face)
{
    const SkinState& skin = face.skin();
    const QRect parts = face.controls.ResBmp->picture().rect();
    QStringList found;
    const auto check = [&](const QString& what, int number, const QRect& part) {
        if (!parts.contains(part))
            found += QStringLiteral("the %1%2 lies outside the resource bitmap").arg(what).arg(number);
    };
    for (int n = 1; n <= kButtons; ++n)
        if (const HotArea& button = *face.controls.Btn[n]; !button.isHidden())
            check(QStringLiteral("pressed picture of B"), n,
                  {skin.buttons[static_cast<std::size_t>(n)].pressed, button.place().size()});
    for (int n = 1; n <= kSliders; ++n)
        if (!face.controls.iSlider[n]->isHidden())
            check(QStringLiteral("thumb of S"), n, skin.sliders[static_cast<std::size_t>(n)].thumb);
    for (int n = 1; n <= kDisplays; ++n)
        if (!face.controls.Dig[n]->isHidden()) {
            const DisplayFont& font = skin.displays[static_cast<std::size_t>(n)];
            check(QStringLiteral("glyph table of D"), n, {font.origin, font.cell});
        }
    if (!skin.outline.empty() && face.mask().isEmpty())
        found +=
            QStringLiteral("the outline leaves nothing of the window, or is too intricate; it is not used");
    return found;
}

QImage picture(Face& face)
{
    QImage image(face.size() * face.devicePixelRatioF(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(face.devicePixelRatioF());
    image.fill(Qt::transparent);
    QPainter painter(&image);
    if (const QRegion outline = face.mask(); !outline.isEmpty())
        painter.setClipRegion(outline);
    painter.drawPixmap(0, 0, face.grab());
    return image;
}

} // namespace

int checkSkin(const PlayerContext& context, const QString& file)
{
    ProposedAnswers answers;
    const Platform& p = context.platform;
    PlayerSettings settings;
    settings.FriendlyNames = 1;
    SilentMediaMachine silence(QStringLiteral("Nothing is played while a skin is checked."));
    const QTemporaryDir sets;
    PlayerContext own{{p.drives, p.files, p.registry, p.settings, p.launcher, p.printer, answers, p.program},
                      context.fileNumbers,
                      settings,
                      context.codePage,
                      silence,
                      context.moduleWindow,
                      {},
                      QFile::encodeName(sets.path())};
    const QFileInfo info(file);
    if (!info.isFile()) { // the player would look for that name beside the program
        std::fprintf(stderr, "%s: no such file\n", qPrintable(file));
        return 2;
    }
    const QString path = p.drives.drivePath(info.absoluteFilePath().toLocal8Bit());
    if (isPicture(path))
        answers.picture = path;
    PrintedNotes notes(file, isPicture(path) || packedset::isName(path));
    CheckedFace checked(own);
    checked.loader.LoadSkin(isPicture(path) ? AddSlash(p.program.directory()) + kSkinOfSets : path, false,
                            &notes);
    if (settings.Skin.isEmpty()) {
        std::fputs(answers.said.toLocal8Bit().constData(), stderr);
        return 2;
    }
    for (const QString& misfit : misfits(checked.face))
        notes.note(misfit);
    resumeNext([&] { notes.unusedOf(p.files.list(settings.SkinImport)); });
    checked.showSample();
    const QString preview = info.completeBaseName() + QStringLiteral("-preview.png");
    if (!picture(checked.face).save(preview)) {
        std::fprintf(stderr, "%s cannot be written\n", qPrintable(preview));
        return 2;
    }
    say(QStringLiteral("%1: %2, drawn in %3")
            .arg(file, notes.any ? QStringLiteral("see above") : QStringLiteral("nothing is wrong"),
                 preview));
    return notes.any ? 1 : 0;
}

#include "app/checkskin.h"

#include "platform/dialogs.h"
#include "platform/drives.h"
#include "player/modcommon.h"
#include "player/playersettings.h"
#include "skin/frmtonedeck.h"
#include "skin/skinnotes.h"

#include <QDir>
#include <QFileInfo>
#include <QPainter>

#include <cstdio>

namespace {

void say(const QString& text)
{
    std::puts(text.toLocal8Bit().constData());
}

class PrintedNotes : public SkinNotes {
public:
    explicit PrintedNotes(QString file) : m_file(std::move(file)) {}

    void note(int line, const QString& text) override
    {
        say(QStringLiteral("%1:%2: %3").arg(m_file).arg(line).arg(text));
        any = true;
    }

    bool any = false;

private:
    QString m_file;
};

// Nobody is asked: an import skin's pictures are where its file says.
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
        return AddSlash(question.directory) + question.fileName;
    }
    std::optional<QString> saveFile(const FileQuestion&) override { return std::nullopt; }
    std::optional<QString> browseFolder(const QString&) override { return std::nullopt; }
    void runTimeError(const RunTimeError& error) override { said += error.text() + u'\n'; }

    QString said;
};

// What a player in use would show.
void showSample(frmTonedeck& window)
{
    constexpr double kSeconds = 227;
    constexpr double kTrack = 7;
    const struct {
        int label;
        const char* text;
    } captions[] = {{1, "3:47"},  {2, "Artist - Title of the track"},
                    {4, " 7"},    {10, "192"},
                    {11, "44"},   {12, "joint stereo"},
                    {13, "4:12"}, {18, "80%"}};
    for (const auto& caption : captions)
        window.controls.Lbl[caption.label]->setCaption(QLatin1String(caption.text));
    for (int entry = 1; entry <= 12; ++entry)
        window.PlAddFileFromEditor(QStringLiteral("C:\\Music\\Artist - Title of track %1.mp3").arg(entry));
    window.SetDD(kTimeDisplay, kSeconds);
    window.SetDD(kTrackDisplay, kTrack);
    window.SetDD(kFirstInfoDisplay, QStringLiteral("192"));
    window.SetDD(kSecondInfoDisplay, QStringLiteral("44"));
    window.SetDD(kNameDisplay, QStringLiteral("Artist - Title of the track"));
}

QImage picture(frmTonedeck& window)
{
    QImage image(window.size() * window.devicePixelRatioF(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(window.devicePixelRatioF());
    image.fill(Qt::transparent);
    QPainter painter(&image);
    if (const QRegion outline = window.mask(); !outline.isEmpty())
        painter.setClipRegion(outline);
    painter.drawPixmap(0, 0, window.grab());
    return image;
}

} // namespace

int checkSkin(const PlayerContext& context, const QString& file)
{
    ProposedAnswers answers;
    const Platform& p = context.platform;
    PlayerSettings settings;
    settings.FriendlyNames = 1;
    PlayerContext own{{p.drives, p.files, p.registry, p.settings, p.shell, p.printer, answers, p.program},
                      context.fileNumbers,
                      settings,
                      context.codePage};
    const QFileInfo info(file);
    PrintedNotes notes(file);
    frmTonedeck window(own);
    window.LoadSkin(p.drives.drivePath(info.absoluteFilePath().toLocal8Bit()), false, &notes);
    if (settings.Skin.isEmpty()) {
        std::fputs(answers.said.toLocal8Bit().constData(), stderr);
        return 2;
    }
    showSample(window);
    const QString preview = info.completeBaseName() + QStringLiteral("-preview.png");
    if (!picture(window).save(preview)) {
        std::fprintf(stderr, "%s cannot be written\n", qPrintable(preview));
        return 2;
    }
    say(QStringLiteral("%1: %2, drawn in %3")
            .arg(file, notes.any ? QStringLiteral("see above") : QStringLiteral("nothing is wrong"),
                 preview));
    return notes.any ? 1 : 0;
}

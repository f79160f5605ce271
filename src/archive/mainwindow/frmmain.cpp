#include "archive/mainwindow/frmmain.h"

#include "archive/core/archivestore.h"
#include "archive/core/backup.h"
#include "archive/core/registryaccess.h"
#include "archive/core/settings.h"
#include "archive/core/sharedvalues.h"
#include "archive/mainwindow/frmoptions.h"
#include "base/textrules.h"
#include "platform/dialogs.h"
#include "platform/launcher.h"
#include "platform/program.h"
#include "platform/usersettings.h"
#include "toolkit/widgets/picturebutton.h"
#include "toolkit/widgets/windowing.h"

#include <QCheckBox>
#include <QFrame>
#include <QToolButton>

namespace {

// Start-up stops at it each time, so that whoever reads it has to know the way out.
RunTimeError badWindowState(ErrorNumber number, const QString& stored, const QString& file)
{
    return RunTimeError(number, QStringLiteral("the setting %1 is \"%2\"").arg(settings::kVindu, stored))
        .withAdvice(QStringLiteral("In the file %1 write %2=sz:0 for a normal window, 1 for a minimised, 2 "
                                   "for a maximised one, or remove that line; then start again.")
                        .arg(file, settings::kVindu));
}

int windowStateOf(const QString& stored, const QString& file)
{
    try {
        return textrules::toInteger(stored);
    } catch (const RunTimeError& error) {
        throw badWindowState(static_cast<ErrorNumber>(error.number()), stored, file);
    }
}

} // namespace

frmMain::frmMain(ArchiveContext& context)
    : Form(context.platform.dialogs, context.platform.program, "frmMain", QStringLiteral("Songbin")),
      m_context(context)
{
    makeMenus();
    makeBigButtons();
    makeCommand1();
    makePicture();
    setMinimumSize(smallestSize());
    resize(fittingSize(m_size.window));
}

void frmMain::Form_Load()
{
    stopOnError([this] {
        // Kept: whatever was chosen last time, each run begins with the installed player.
        SaveRegValue(m_context.platform.registry, RootKey::LocalMachine, settings::kKeyForWriting,
                     settings::kMP3player, kRegSz, 1);
        m_context.store.createOnFirstRun(dialogs());
        m_context.store.recover(m_context.platform.drives);
        program().yield();
        m_context.store.SelectData.connectionText = m_context.store.sharedConnectionText();
        m_context.store.DataEnvironment1.connectionText = m_context.store.sharedConnectionText();
        const QString drive = GetRegString(m_context.platform.registry, RootKey::LocalMachine,
                                           settings::kKeyForReading, settings::kInitDrive);
        m_context.shared.InitDrive = drive == kNotFound ? QStringLiteral("C:\\") : drive;
        showTipIfWanted();
        restoreWindowState();
        restorePlayerChoice();
        tellUnread();
    });
}

void frmMain::showTipIfWanted()
{
    const QString wanted = m_context.platform.settings.get(
        program().executableName(), settings::kOptionsSection, settings::kShowTips, QStringLiteral("1"));
    if (textrules::val(wanted) != 1)
        return;
    mnuTipSh->setChecked(true);
    m_context.windows.show(WindowId::frmTip);
}

void frmMain::restoreWindowState()
{
    QString stored = GetRegString(m_context.platform.registry, RootKey::LocalMachine,
                                  settings::kKeyForReading, settings::kVindu);
    if (stored == kNotFound)
        stored = QStringLiteral("0");
    switch (windowStateOf(stored, m_context.platform.registry.file())) {
    case kNormalWindow:
        return;
    case kMinimizedWindow:
        setWindowState(Qt::WindowMinimized);
        return;
    case kMaximizedWindow:
        setWindowState(Qt::WindowMaximized);
        return;
    default:
        throw badWindowState(ErrorNumber::InvalidPropertyValue, stored, m_context.platform.registry.file());
    }
}

void frmMain::restorePlayerChoice()
{
    const QString player = GetRegString(m_context.platform.registry, RootKey::LocalMachine,
                                        settings::kKeyForReading, settings::kMP3player);
    if (player == u"1")
        m_context.windows.options().chkOwnPlayer->setChecked(true);
}

// Of what was not read nothing is written either, whatever changes until the end.
void frmMain::tellUnread()
{
    QStringList files;
    for (const QString& name : {settings::kInitDrive, settings::kVindu, settings::kMP3player})
        if (!m_context.platform.registry.wasRead(RootKey::LocalMachine, settings::kKeyForReading, name))
            files = {QStringLiteral("registry.conf")};
    if (!m_context.platform.settings.wasRead(program().executableName(), settings::kOptionsSection,
                                             settings::kShowTips))
        files += QStringLiteral("settings.conf");
    if (!files.isEmpty())
        showNotice(
            tr("The settings in %1 could not be read. They stay as they are; what changes is not kept.")
                .arg(files.join(tr(" and "))));
}

void frmMain::Form_Resize()
{
    Frame1->resize(innerSize().width() - fromTwips(100), Frame1->height());
    Command1->move(innerSize().width() - fromTwips(650), Command1->y());
}

int frmMain::currentWindowState() const
{
    if (isMinimized())
        return kMinimizedWindow;
    return isMaximized() ? kMaximizedWindow : kNormalWindow;
}

void frmMain::Form_Unload()
{
    SaveRegValue(m_context.platform.registry, RootKey::LocalMachine, settings::kKeyForWriting,
                 settings::kInitDrive, kRegSz, m_context.shared.InitDrive);
    SaveRegValue(m_context.platform.registry, RootKey::LocalMachine, settings::kKeyForWriting,
                 settings::kVindu, kRegSz, currentWindowState());
    program().end();
}

void frmMain::Scan_Click()
{
    m_context.windows.show(WindowId::frmSearch);
}

void frmMain::Search_Click()
{
    m_context.windows.show(WindowId::SearchForm);
}

void frmMain::Edit_Click()
{
    m_context.windows.show(WindowId::frmEditor);
}

void frmMain::mnuListe_Click()
{
    m_context.windows.show(WindowId::rptListing);
}

void frmMain::mnuArtistSong_Click()
{
    m_context.windows.show(WindowId::ArtistSong);
}

void frmMain::report_Click()
{
    m_context.windows.show(WindowId::rptFullListe);
}

void frmMain::mnuOptions_Click()
{
    m_context.windows.show(WindowId::frmOptions);
}

void frmMain::mnuAbout_Click()
{
    m_context.windows.show(WindowId::frmAbout);
}

void frmMain::Image1_Click()
{
    m_context.windows.show(WindowId::frmTonedeck);
}

// Kept: this way out saves nothing; only closing the window does.
void frmMain::Exit_Click()
{
    program().end();
}

void frmMain::mnyMP3Player_Click()
{
    try {
        m_context.platform.launcher.open(program().directory() + QStringLiteral("\\mp1.mp3"));
    } catch (const RunTimeError&) {
        dialogs().message(
            {.text = tr("Dette er en feil"), .title = tr("Missing program"), .icon = MessageIcon::Critical});
    }
}

// Kept: it only switches the tips on, for the next start; switching off is done in the tip window.
void frmMain::mnuTipSh_Click()
{
    m_context.platform.settings.save(program().executableName(), settings::kOptionsSection,
                                     settings::kShowTips, QStringLiteral("1"));
    mnuTipSh->setChecked(true);
}

void frmMain::mnuBackup_Click()
{
    stopOnError([this] { makeBackup(m_context); });
}

void frmMain::mnuRestore_Click()
{
    restoreBackup(m_context);
}

void frmMain::mnuUpdateHist_Click()
{
    m_context.windows.showText(program().directory() + QStringLiteral("\\uphist.txt"));
}

void frmMain::mnuUpdates_Click()
{
    m_context.windows.showText(program().directory() + QStringLiteral("\\update.txt"));
}

void frmMain::mnuHomePage_Click()
{
    m_context.platform.launcher.open(m_context.windows.homePageAddress());
}

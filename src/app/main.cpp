// Builds the program's contexts and starts it.
#include "app/checkskin.h"
#include "app/commandline.h"
#include "app/defaultinstances.h"
#include "app/leftsilence.h"
#include "archive/core/archivestore.h"
#include "archive/core/settings.h"
#include "archive/core/sharedvalues.h"
#include "base/codepage.h"
#include "player/playback/playersettings.h"
#include "posix/codepages.h"
#include "posix/xdg.h"
#include "system/desktop/desktoplauncher.h"
#include "system/desktop/handover.h"
#include "system/desktop/handoverlistener.h"
#include "system/desktop/printerturn.h"
#include "system/desktop/qtdialogs.h"
#include "system/desktop/qtprinter.h"
#include "system/desktop/qtprogram.h"
#include "system/desktop/systeminformation.h"
#include "system/desktop/termination.h"
#include "system/desktop/x11modulewindow.h"
#include "system/drives/startfile.h"
#include "system/drives/systemdrives.h"
#include "system/files/programdirectory.h"
#include "system/files/systemfilenumbers.h"
#include "system/files/systemfiles.h"
#include "system/media/medialoader.h"
#include "system/media/mediapreparation.h"
#include "system/mpris/mpris.h"
#include "system/settings/fileregistry.h"
#include "system/settings/fileusersettings.h"
#include "toolkit/widgets/menustyle.h"

#include <QApplication>
#include <QByteArrayList>
#include <QFileInfo>
#include <QIcon>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <utility>

namespace {

constexpr const char* kVersion = "Songbin " SONGBIN_VERSION "\n";
constexpr const char* kHelp =
    "Usage: Songbin [FILE]\n"
    "       Songbin --check-skin FILE | --prepare-media | --help | --version\n"
    "An archive of the music on your disks, and a player for it.\n"
    "\n"
    "  FILE                a piece of music, a film or a playlist to play: a path or a file:// address. A\n"
    "                      Songbin that runs on this display plays it\n"
    "  --                  what follows is no option\n"
    "  --check-skin FILE   tell what is wrong with a skin, by its lines, and draw it into a PNG file; or "
    "what\n"
    "                      a set of classic pictures lacks (FILE is a .wsz or .zip, or its main.bmp)\n"
    "  --prepare-media     look at the media library's plug-ins, as the first start does by itself\n"
    "\n"
    "Environment:\n"
    "  SONGBIN_HOME        program directory to use instead of the executable's own\n"
    "  SONGBIN_DRIVES      drives to declare, one a line or parted by ';':\n"
    "                      D=/absolute/directory,VOLUME NAME. Of several commas that one parts the two\n"
    "                      before which the longest directory stands that is there, else the last one\n"
    "  SONGBIN_PRINT_FILE  PDF file to print to instead of the default printer\n";

constexpr int kBehindTheFirstPaint = 1000; // milliseconds

int complain(const QByteArray& reason)
{
    std::fprintf(stderr, "Songbin: %s\nSongbin --help tells what there is.\n", reason.constData());
    return 2;
}

int refuse(const QByteArray& oneLine)
{
    std::fputs(oneLine.constData(), stderr);
    return 1;
}

// Outlines, positions and topmost windows are X11's; on a Wayland desktop it is there as XWayland.
bool choosePlatform()
{
    if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        return true;
    if (!qEnvironmentVariableIsEmpty("DISPLAY"))
        return qputenv("QT_QPA_PLATFORM", "xcb");
    std::fputs("Songbin: no X display to show its windows on (DISPLAY is not set)\n", stderr);
    return false;
}

// Names what plays, beside the executable.
QByteArray mediaModule(const QByteArray& executable)
{
    return installedDirectory(executable, {}) + "/songbin-media.so";
}

CodePage codePageOfSettings(UserSettings& settings, const QString& application)
{
    const QString name = settings.get(application, settings::kOptionsSection, settings::kCodePage,
                                      QStringLiteral("windows-1252"));
    return singleByteCodePage(name).value_or(CodePage::windows1252());
}

// The main window stands first, then its first questions are answered, then files are opened.
class FilesToOpen {
public:
    FilesToOpen(DefaultInstances& windows, Program& program, const QByteArray& first)
        : m_windows(windows), m_program(program)
    {
        if (!first.isEmpty())
            m_waiting += first;
    }

    void open(const QByteArray& file)
    {
        if (m_begun)
            m_windows.openFile(file);
        else
            m_waiting += file;
    }
    void begin()
    {
        m_begun = true;
        for (const QByteArray& file : std::exchange(m_waiting, {}))
            if (!m_program.ending())
                m_windows.openFile(file);
    }

private:
    DefaultInstances& m_windows;
    Program& m_program;
    QByteArrayList m_waiting;
    bool m_begun = false;
};

// `socket` is null for one that only checks a skin.
int run(const UserDirectories& user, const QByteArray& file, const HandOverSocket* socket)
{
    const QByteArray executable = executableFile();
    SystemDrives drives({.user = user, .declared = qgetenv("SONGBIN_DRIVES")});
    const QByteArray directory =
        programDirectory(installedDirectory(executable, qgetenv("SONGBIN_HOME")), user.data);
    QtProgram program(drives.drivePath(directory),
                      {.title = QStringLiteral("Songbin"),
                       .version = QStringLiteral(SONGBIN_VERSION),
                       .executableName = QFileInfo(QString::fromLocal8Bit(executable)).completeBaseName()});
    SystemFiles files(drives);
    SystemFileNumbers archiveFiles(drives);
    FileRegistry registry(user.config + "/registry.conf");
    FileUserSettings settings(user.config + "/settings.conf");
    DesktopLauncher launcher(drives);
    QtPrinter printer(qEnvironmentVariable("SONGBIN_PRINT_FILE"));
    QtDialogs dialogs(program, drives);
    const Termination termination(program);
    seedSystemInformation(registry, drives, qgetenv("PATH"));

    ArchiveStore store(files, program, user.state);
    SharedValues shared;
    const CodePage codePage = codePageOfSettings(settings, program.executableName());
    const Platform platform{drives, files, registry, settings, launcher, printer, dialogs, program};
    SystemFileNumbers playerFiles(drives);
    PlayerSettings options;
    LoadedMediaMachine media(mediaModule(executable), drives);
    X11ModuleWindow moduleWindow;
    const PlayerContext player{platform, playerFiles,  options,           codePage,
                               media,    moduleWindow, makeMprisControls, user.data + "/sets"};
    if (!socket)
        return checkSkin(player, QString::fromLocal8Bit(file));
    DefaultInstances windows(platform, archiveFiles, store, shared, player);
    FilesToOpen toOpen(windows, program, file);
    const HandOverListener listener(*socket, {.isReady = [&] { return !program.ending(); },
                                              .open = [&](const QByteArray& other) { toOpen.open(other); }});
    MediaPreparation preparation(executable);
    QTimer begin;
    begin.setSingleShot(true);
    QObject::connect(&begin, &QTimer::timeout, [&] { preparation.begin(); });
    begin.start(kBehindTheFirstPaint);
    windows.show(WindowId::frmMain);
    toOpen.begin();
    const LeftSilence silence(media, settings, program);
    if (!program.ending())
        QApplication::exec();
    resumeNext([&] { printer.endDocument(); });
    return program.status();
}

// A thread that still waits for the printing system would go on in a toolkit that is gone.
void leaveAtOnceIfAsking(int status)
{
    constexpr std::chrono::milliseconds kPatience{200};
    if (PrinterTurn::takeForGood(kPatience))
        return;
    std::fflush(nullptr);
    std::_Exit(status);
}

} // namespace

int main(int argc, char** argv)
{
    CommandLine line = CommandLine::parse({argv + std::min(argc, 1), argv + argc});
    if (line.wish == CommandLine::Wish::Help || line.wish == CommandLine::Wish::Version)
        return std::fputs(line.wish == CommandLine::Wish::Help ? kHelp : kVersion, stdout) < 0 ? 1 : 0;
    if (line.wish == CommandLine::Wish::Wrong)
        return complain(line.reason);
    if (line.wish == CommandLine::Wish::PrepareMedia)
        return prepareMedia(mediaModule(executableFile()));
    const bool checks = line.wish == CommandLine::Wish::CheckSkin;
    if (checks ? !qputenv("QT_QPA_PLATFORM", "offscreen") : !choosePlatform())
        return 1;
    const UserDirectories user = UserDirectories::fromEnvironment();
    if (!checks && !line.file.isEmpty()) {
        const std::optional<QByteArray> file = handover::absoluteFile(line.file);
        if (!file)
            return complain("there is no current directory that FILE could lie in");
        if (!mayBeThere(*file, user, qgetenv("SONGBIN_DRIVES")))
            return refuse(notThere(line.file));
        line.file = *file;
    }
    std::unique_ptr<HandOverSocket> socket =
        checks ? nullptr : handover::offerOrListen(handover::placesOfEnvironment(user), line.file);
    if (!checks && !socket)
        return 0;
    // What is ours is kept from the toolkit, which has options of the same form.
    char option[] = "-session";
    char* words[] = {argv[0], option, line.session.data(), nullptr};
    int count = line.session.isEmpty() ? 1 : 3;
    QApplication application(count, words);
    QApplication::setStyle(new MenuStyle);
    QApplication::setApplicationName(QStringLiteral("Songbin"));
    QApplication::setApplicationVersion(QStringLiteral(SONGBIN_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("songbin"));
    QApplication::setQuitOnLastWindowClosed(false);
    // It is set in the first turn of the event loop, because the first window need not wait for the icon to
    // be drawn.
    QTimer::singleShot(0, [] { QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/songbin.svg"))); });
    const int status = run(user, line.file, socket.get());
    socket.reset();
    leaveAtOnceIfAsking(status);
    return status;
}

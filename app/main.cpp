// Builds the program's contexts and starts it.
#include "app/checkskin.h"
#include "app/defaultinstances.h"
#include "base/codepage.h"
#include "platform/codepages.h"
#include "platform/dialogs_qt.h"
#include "platform/drives_system.h"
#include "platform/filenumbers_system.h"
#include "platform/files_system.h"
#include "platform/loadedmedia.h"
#include "platform/printer_qt.h"
#include "platform/program_qt.h"
#include "platform/programdirectory.h"
#include "platform/quickstyle.h"
#include "platform/registry_file.h"
#include "platform/shell_desktop.h"
#include "platform/systeminformation.h"
#include "platform/termination.h"
#include "platform/usersettings_file.h"
#include "platform/xdg.h"
#include "player/playersettings.h"
#include "shell/archivestore.h"
#include "shell/settings.h"
#include "shell/sharedvalues.h"

#include <QApplication>
#include <QFileInfo>
#include <QIcon>
#include <QTimer>

#include <cstdio>
#include <string_view>

namespace {

constexpr const char* kHelp =
    "Usage: Songbin [--help | --version | --check-skin FILE]\n"
    "An archive of the music on your disks, and a player for it.\n"
    "\n"
    "  --check-skin FILE   tell what is wrong with a skin, by its lines, and draw it into a PNG file\n"
    "\n"
    "Environment:\n"
    "  SONGBIN_HOME        program directory to use instead of the executable's own\n"
    "  SONGBIN_DRIVES      drives to declare, one a line or parted by ';':\n"
    "                      D=/absolute/directory,VOLUME NAME\n"
    "  SONGBIN_PRINT_FILE  PDF file to print to instead of the default printer\n";

// True when the command line is answered without a window.
bool answered(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument(argv[i]);
        if (argument == "--version" || argument == "--help") {
            argument == "--version" ? std::puts("Songbin " SONGBIN_VERSION) : std::fputs(kHelp, stdout);
            return true;
        }
    }
    return false;
}

// The file of "--check-skin FILE"; null for any other command line.
const char* skinToCheck(int argc, char** argv)
{
    return argc == 3 && std::string_view(argv[1]) == "--check-skin" ? argv[2] : nullptr;
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

QByteArray executablePath()
{
    return QFileInfo(QCoreApplication::applicationFilePath()).canonicalFilePath().toLocal8Bit();
}

QByteArray installedDirectory(const QByteArray& executable)
{
    const QByteArray named = qgetenv("SONGBIN_HOME");
    const QString directory = named.isEmpty() ? QFileInfo(QString::fromLocal8Bit(executable)).path()
                                              : QFileInfo(QString::fromLocal8Bit(named)).absoluteFilePath();
    return directory.toLocal8Bit();
}

CodePage codePageOfSettings(UserSettings& settings, const QString& application)
{
    const QString name = settings.get(application, settings::kOptionsSection, settings::kCodePage,
                                      QStringLiteral("windows-1252"));
    return singleByteCodePage(name).value_or(CodePage::windows1252());
}

int run(const UserDirectories& user, const char* skin)
{
    const QByteArray executable = executablePath();
    SystemDrives drives({.user = user, .declared = qgetenv("SONGBIN_DRIVES")});
    const QByteArray directory = programDirectory(installedDirectory(executable), user.data);
    QtProgram program(drives.drivePath(directory),
                      {.title = QStringLiteral("Songbin"),
                       .version = QStringLiteral(SONGBIN_VERSION),
                       .executableName = QFileInfo(QString::fromLocal8Bit(executable)).completeBaseName()});
    SystemFiles files(drives);
    SystemFileNumbers archiveFiles(drives);
    FileRegistry registry(user.config + "/registry.conf");
    FileUserSettings settings(user.config + "/settings.conf");
    DesktopShell shell(drives);
    QtPrinter printer(qEnvironmentVariable("SONGBIN_PRINT_FILE"));
    QtDialogs dialogs(program, drives);
    const Termination termination(program);
    seedSystemInformation(registry, drives, qgetenv("PATH"));

    ArchiveStore store(files, program);
    SharedValues shared;
    const CodePage codePage = codePageOfSettings(settings, program.executableName());
    const Platform platform{drives, files, registry, settings, shell, printer, dialogs, program};
    SystemFileNumbers playerFiles(drives);
    PlayerSettings options;
    LoadedMediaMachine media(
        QFileInfo(QString::fromLocal8Bit(executable)).path().toLocal8Bit() + "/songbin-media.so", drives);
    const PlayerContext player{platform, playerFiles, options, codePage, media};
    if (skin)
        return checkSkin(player, QString::fromLocal8Bit(skin));
    DefaultInstances windows(platform, archiveFiles, store, shared, player);
    windows.show(WindowId::frmMain);
    if (!program.ending())
        QApplication::exec();
    resumeNext([&] { printer.endDocument(); });
    return program.status();
}

} // namespace

int main(int argc, char** argv)
{
    if (answered(argc, argv))
        return 0;
    const char* skin = skinToCheck(argc, argv);
    if (skin ? !qputenv("QT_QPA_PLATFORM", "offscreen") : !choosePlatform())
        return 1;
    QApplication application(argc, argv);
    QApplication::setStyle(new QuickStyle);
    QApplication::setApplicationName(QStringLiteral("Songbin"));
    QApplication::setApplicationVersion(QStringLiteral(SONGBIN_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("songbin"));
    QApplication::setQuitOnLastWindowClosed(false);
    // In the first turn of the event loop: the first window need not wait for the icon to be drawn.
    QTimer::singleShot(0, [] { QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/songbin.svg"))); });
    return run(UserDirectories::fromEnvironment(), skin);
}

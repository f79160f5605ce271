#include "system/desktop/desktoplauncher.h"

#include "base/filenametext.h"
#include "base/runtimeerror.h"
#include "platform/drives.h"
#include "tests/support/errorof.h"
#include "tests/support/rerun.h"
#include "tests/support/temporary.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <thread>

#include <sys/stat.h>
#include <sys/wait.h>

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

// D: is one directory, and there is no other drive.
class OneDrive : public Drives {
public:
    explicit OneDrive(QByteArray directory) : m_directory(std::move(directory)) {}

    std::vector<Drive> list() override { return {{u'D', DriveKind::Declared}}; }
    QString volumeName(const QString&) override { return {}; }
    std::optional<QByteArray> machinePath(const QString& path) override
    {
        if (!path.startsWith(text("D:\\")))
            return {};
        return m_directory + filenametext::toBytes(path.mid(2)).replace('\\', '/');
    }
    QString drivePath(const QByteArray&) override { return {}; }

private:
    QByteArray m_directory;
};

void makeScript(const Temporary& directory, const char* name, const QByteArray& lines)
{
    directory.write(name, "#!/bin/sh\n" + lines);
    ASSERT_EQ(chmod(directory.at(name).constData(), 0755), 0);
}

// Returns the file's lines in order of their bytes, as soon as there are so many, or what there is after
// twenty seconds.
QByteArrayList sortedLines(const Temporary& directory, const char* name, qsizetype count)
{
    QByteArrayList lines;
    for (int tries = 0; tries < 400 && lines.size() < count; ++tries) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        if (directory.exists(name))
            lines = directory.read(name).split('\n');
        lines.removeAll(QByteArray());
    }
    std::ranges::sort(lines);
    return lines;
}

// Of names that are no UTF-8 a temporary directory cannot rid itself.
void removeAll(const QByteArray& path)
{
    std::filesystem::remove_all(path.toStdString());
}

bool hasChildren()
{
    return waitpid(-1, nullptr, WNOHANG) != -1;
}

int errorOfStart(const Temporary& directory, const QString& program)
{
    OneDrive drives(directory.path());
    return errorOf([&] { DesktopLauncher(drives).start(program); });
}

// Has a screen, and a home in which one handler of our own writes down what it is asked to open.
class PrivateDesktop {
public:
    PrivateDesktop()
    {
        const QByteArray at = m_home.path();
        makeScript(m_home, "handler", "printf '%s\\n' \"$1\" >> '" + at + "/log'\n");
        m_home.write(
            ".local/share/applications/handler.desktop",
            "[Desktop Entry]\nType=Application\nName=Handler\nExec=" + at +
                "/handler %u\nMimeType=audio/mpeg;x-scheme-handler/https;x-scheme-handler/mailto;\n");
        m_home.write(".config/mimeapps.list", "[Default Applications]\naudio/mpeg=handler.desktop\n"
                                              "x-scheme-handler/https=handler.desktop\n"
                                              "x-scheme-handler/mailto=handler.desktop\n");
        m_screen.start(text("Xvfb"), {text("-displayfd"), text("1"), text("-nolisten"), text("tcp")});
        if (m_screen.waitForStarted() && m_screen.waitForReadyRead(10000))
            m_display = ':' + m_screen.readAllStandardOutput().trimmed();
    }
    ~PrivateDesktop()
    {
        m_screen.terminate();
        if (!m_screen.waitForFinished(5000))
            m_screen.kill();
        m_screen.waitForFinished();
    }
    PrivateDesktop(const PrivateDesktop&) = delete;
    PrivateDesktop& operator=(const PrivateDesktop&) = delete;

    bool isReady() const { return !m_display.isEmpty(); }
    const Temporary& home() const { return m_home; }
    QProcessEnvironment environment() const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* name : {"XDG_CONFIG_DIRS", "BROWSER", "WAYLAND_DISPLAY", "DESKTOP_SESSION"})
            environment.remove(text(name));
        const QString at = QString::fromUtf8(m_home.path());
        environment.insert(text("HOME"), at);
        environment.insert(text("XDG_CONFIG_HOME"), at + text("/.config"));
        environment.insert(text("XDG_DATA_HOME"), at + text("/.local/share"));
        environment.insert(text("XDG_DATA_DIRS"), text("/usr/share"));
        environment.insert(text("XDG_CURRENT_DESKTOP"), text("X-Generic"));
        environment.insert(text("DBUS_SESSION_BUS_ADDRESS"), text("unix:path=/nonexistent/bus"));
        environment.insert(text("DISPLAY"), QString::fromUtf8(m_display));
        environment.insert(text("QT_QPA_PLATFORM"), text("xcb"));
        return environment;
    }

private:
    Temporary m_home;
    QProcess m_screen;
    QByteArray m_display;
};

// The names are as they are on the disk; the last holds a byte that is no UTF-8.
const QByteArrayList kNames = {
    "plain.mp3",     "two  blanks.mp3",       "it's \"quoted\".mp3",   "Bl\xC3\xA5 b\xC3\xA6r.mp3",
    "100%25 a%.mp3", "a#b?c&d;e=f+g$h`i.mp3", "latin \xE6\xF8\xE5.mp3"};
constexpr QByteArrayView kMusic("ID3\x03\0\0\0\0\0\0\xFF\xFB\x90\0", 14);

} // namespace

TEST(DesktopLauncher, DISABLED_opensInItsHome)
{
    OneDrive drives(qgetenv("HOME") + "/music");
    DesktopLauncher launcher(drives);
    QElapsedTimer timer;
    timer.start();
    for (const QByteArray& name : kNames)
        launcher.open(text("D:\\") + filenametext::toText(name));
    launcher.open(text("https://songbin.example/a?b=c&d=%20"));
    launcher.open(text("mailto:someone@songbin.example"));
    launcher.open(text("D:\\missing.mp3"));
    launcher.open(text("Q:\\no drive.mp3"));
    launcher.open(QString());
    std::cout << "eleven openings took " << timer.elapsed() << " ms\n";
    EXPECT_LT(timer.elapsed(), 3000);
    EXPECT_FALSE(hasChildren());
}

TEST(DesktopLauncher, opensFilesAndAddressesWithTheirApplication)
{
    const PrivateDesktop desktop;
    if (!desktop.isReady())
        GTEST_SKIP() << "no screen of our own can be started here (Xvfb)";
    for (const QByteArray& name : kNames)
        desktop.home().write("music/" + name, kMusic.toByteArray());
    const Rerun run("DesktopLauncher.DISABLED_opensInItsHome", desktop.environment());
    EXPECT_TRUE(run.passed) << run.output.toStdString();

    QByteArrayList expected = {"https://songbin.example/a?b=c&d=%20", "mailto:someone@songbin.example"};
    for (const QByteArray& name : kNames)
        expected += desktop.home().at("music/" + name);
    std::ranges::sort(expected);
    EXPECT_EQ(sortedLines(desktop.home(), "log", expected.size()), expected);
    removeAll(desktop.home().at("music"));
}

TEST(DesktopLauncher, DISABLED_hasNobodyToAsk)
{
    OneDrive drives(qgetenv("HOME"));
    DesktopLauncher launcher(drives);
    for (const QString& target :
         {text("D:\\plain.mp3"), text("D:\\missing.mp3"), text("https://songbin.example/")})
        try {
            launcher.open(target);
            ADD_FAILURE() << target.toStdString();
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.number(), numberOf(ErrorNumber::FileNotFound));
            EXPECT_TRUE(error.advice().contains(text("xdg-utils"))) << error.advice().toStdString();
        }
    launcher.open(text("Q:\\no drive.mp3")); // there is nothing to hand on
}

TEST(DesktopLauncher, tellsThatNothingTakesSuchRequests)
{
    const PrivateDesktop desktop;
    if (!desktop.isReady())
        GTEST_SKIP() << "no screen of our own can be started here (Xvfb)";
    desktop.home().write("plain.mp3", kMusic.toByteArray());
    QProcessEnvironment environment = desktop.environment();
    environment.insert(text("PATH"), QString::fromUtf8(desktop.home().path()));
    for (const char* name : {"BROWSER", "DEFAULT_BROWSER"})
        environment.remove(text(name));
    const Rerun run("DesktopLauncher.DISABLED_hasNobodyToAsk", environment);
    EXPECT_TRUE(run.passed) << run.output.toStdString();
}

TEST(DesktopLauncher, startsAProgramWithoutWaitingAndLeavesNoChild)
{
    Temporary directory;
    makeScript(directory, "bl\xC3\xA5 tool", "echo $# >> '" + directory.at("log") + "'\nexec sleep 10\n");
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(errorOfStart(directory, text("D:\\bl\xC3\xA5 tool")), 0);
    EXPECT_LT(timer.elapsed(), 5000);
    EXPECT_FALSE(hasChildren());
    EXPECT_EQ(sortedLines(directory, "log", 1), QByteArrayList({"0"}));
}

TEST(DesktopLauncher, tellsThatThereIsNoSuchProgram)
{
    Temporary directory;
    directory.write("no program", "text");
    directory.makeDirectory("directory");
    makeScript(directory, "\xE6", "exit 0\n");
    makeScript(directory, "\xEF\xBF\xBD", "exit 0\n"); // what that name would become as text
    for (const char* name : {"D:\\missing", "D:\\no program", "D:\\directory", "Q:\\x", "sh", ""})
        EXPECT_EQ(errorOfStart(directory, text(name)), numberOf(ErrorNumber::FileNotFound)) << name;
    EXPECT_EQ(errorOfStart(directory, text("D:\\") + filenametext::toText("\xE6")),
              numberOf(ErrorNumber::FileNotFound));
    removeAll(directory.at("\xE6"));
}

TEST(DesktopLauncher, startsTheDesktopsFirstMixerByItsOldName)
{
    Temporary directory;
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", directory.at(""));
    const QString mixer = text("sndvol32.exe");
    EXPECT_EQ(errorOfStart(directory, mixer), numberOf(ErrorNumber::FileNotFound)) << "there is none";
    makeScript(directory, "kmix", "echo kmix $# >> '" + directory.at("log") + "'\n");
    EXPECT_EQ(errorOfStart(directory, mixer), 0);
    EXPECT_EQ(sortedLines(directory, "log", 1), QByteArrayList({"kmix 0"}));
    makeScript(directory, "gnome-control-center", "echo control $@ >> '" + directory.at("log") + "'\n");
    EXPECT_EQ(errorOfStart(directory, mixer), 0);
    EXPECT_EQ(sortedLines(directory, "log", 2), QByteArrayList({"control sound", "kmix 0"}));
    qputenv("PATH", path);
}

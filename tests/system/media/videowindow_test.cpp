// Films open in a window of their own; closing it ends the entry. The tests run on a real X server with a
// window manager.
#include "tests/support/mediafiles.h"
#include "tests/support/soundserver.h"
#include "tests/system/media/mediatest.h"

using namespace mediatest;

namespace {

// As long as it lives this process's DISPLAY is a screen of its own.
class Screen {
public:
    Screen()
    {
        m_server.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
        m_server.start(u"Xvfb"_qs,
                       {u"-displayfd"_qs, u"1"_qs, u"-screen"_qs, u"0"_qs, u"800x600x24"_qs, u"-nolisten"_qs,
                        u"tcp"_qs,
                        u"-noreset"_qs}); // the first client may leave before the window manager comes
        if (!eventually([this] { return m_server.waitForReadyRead(100) || m_server.canReadLine(); }))
            throw std::runtime_error("no X server");
        m_display.emplace("DISPLAY", ":" + m_server.readLine().trimmed());
        m_manager.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
        m_manager.start(u"openbox"_qs, {u"--sm-disable"_qs});
        if (!eventually([] { return said({u"-m"_qs}).contains("Name:"); }))
            throw std::runtime_error("no window manager");
    }
    ~Screen()
    {
        for (QProcess* process : {&m_manager, &m_server}) {
            process->kill();
            process->waitForFinished();
        }
    }
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    static QByteArray windows() { return said({u"-l"_qs}).trimmed(); }
    static void closeWindow()
    {
        said({u"-i"_qs, u"-c"_qs, QString::fromLatin1(windows().split(' ').first())});
    }

private:
    static QByteArray said(const QStringList& arguments)
    {
        QProcess process;
        process.start(u"wmctrl"_qs, arguments);
        process.waitForFinished();
        return process.exitCode() == 0 ? process.readAllStandardOutput() : QByteArray();
    }

    QProcess m_server;
    std::optional<Variable> m_display;
    QProcess m_manager;
};

} // namespace

TEST_F(MediaTest, aFilmHasAWindowAndEndsWithIt)
{
    const Recording recording;
    const Screen screen;
    encodeFilm(world.directory.at("disk/film.avi"), toneFrames(4000), "avenc_mpeg4", "lamemp3enc", "avimux");
    open(u"film.avi"_qs);
    ASSERT_EQ(device.error(), 0) << device.errorMessage().toStdString();
    play();
    ASSERT_TRUE(eventually([] { return !Screen::windows().isEmpty(); }));
    EXPECT_LT(device.position(), 3000);
    Screen::closeWindow();
    EXPECT_TRUE(reaches(device.length(), 1000));
    device.send(u"close"_qs);
    EXPECT_EQ(device.length(), 0);
    EXPECT_TRUE(eventually([] { return Screen::windows().isEmpty(); }));
}

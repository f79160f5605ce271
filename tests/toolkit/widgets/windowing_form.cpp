#include "toolkit/widgets/windowing.h"

#include <QApplication>
#include <QScreen>
#include <QWidget>
#include <QWindow>

#include <gtest/gtest.h>

namespace {

// Counts what a window goes through when it is hidden or made again.
class Upheavals : public QObject {
public:
    explicit Upheavals(QWidget& widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        const QEvent::Type type = event->type();
        count += type == QEvent::Hide || type == QEvent::WinIdChange || type == QEvent::ParentChange ||
                 type == QEvent::PlatformSurface;
        return false;
    }

    int count = 0;
};

bool isTopmost(const QWidget& widget)
{
    return widget.windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint);
}

} // namespace

TEST(windowing, aShownWindowIsTopmostWithoutBeingHidden)
{
    QWidget window(nullptr, Qt::FramelessWindowHint);
    QWidget control(&window);
    window.show();
    const QWindow* handle = window.windowHandle();
    const WId id = window.winId();
    const Upheavals upheavals(window);
    setTopmost(control, true);
    EXPECT_TRUE(isTopmost(window));
    EXPECT_TRUE(window.windowHandle()->flags().testFlag(Qt::FramelessWindowHint));
    setTopmost(control, false);
    EXPECT_FALSE(isTopmost(window));
    EXPECT_EQ(upheavals.count, 0);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.windowHandle(), handle);
    EXPECT_EQ(window.winId(), id);
}

TEST(windowing, aWindowIsTopmostFromItsFirstShowing)
{
    QWidget window;
    setTopmost(window, true);
    EXPECT_FALSE(window.isVisible());
    window.show();
    EXPECT_TRUE(isTopmost(window));
    EXPECT_TRUE(window.windowHandle()->flags().testFlag(Qt::WindowCloseButtonHint));
}

TEST(windowing, aWindowStaysTopmostThroughHiding)
{
    QWidget window;
    window.show();
    setTopmost(window, true);
    window.hide();
    window.show();
    EXPECT_TRUE(isTopmost(window));
    window.setWindowFlag(Qt::FramelessWindowHint, true); // makes it again
    window.show();
    EXPECT_TRUE(isTopmost(window));
}

TEST(windowing, theWorkAreaIsWhatTheScreenLeaves)
{
    QWidget window;
    QWidget control(&window);
    EXPECT_EQ(workArea(control), QGuiApplication::primaryScreen()->availableGeometry());
    EXPECT_FALSE(workArea(window).isEmpty());
}

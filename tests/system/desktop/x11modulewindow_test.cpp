// Finds the window of a module's own player, on a real X server with a real window manager.
#include "system/desktop/x11modulewindow.h"
#include "tests/support/eventually.h"
#include "tests/support/screen.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

namespace {

const QByteArray kBlankKey = "65"; // on the keyboard that the server makes up

} // namespace

struct ModuleWindows : testing::Test {
    Screen screen;
    ScreenClient player{screen}; // another program
    ScreenClient own{screen};
    X11ModuleWindow modules{[this] { return own.connection(); }};

    xcb_window_t titled(const QByteArray& title)
    {
        return player.makeWindow(player.atom("_NET_WM_NAME"), title);
    }
    bool isActive(xcb_window_t window) const
    {
        return player.property(player.root(), "_NET_ACTIVE_WINDOW") == ScreenClient::bytesOf(window);
    }
    // Returns it mapped and known to the window manager, which gives the keyboard to each new window.
    xcb_window_t shown(const QByteArray& title)
    {
        const xcb_window_t window = titled(title);
        EXPECT_TRUE(eventually([&] { return isActive(window); })) << title.constData();
        return window;
    }
    void withManager()
    {
        screen.startWindowManager();
        // What is asked while the manager begins it may leave until something else is asked.
        ASSERT_TRUE(eventually([&] {
            const xcb_window_t window = titled("a first window");
            return eventually([&] { return isActive(window); }, std::chrono::milliseconds(200));
        }));
    }
};

TEST_F(ModuleWindows, isBroughtToTheFrontAndGetsOneBlank)
{
    withManager();
    const xcb_window_t module = shown("MOD");
    const xcb_window_t other = shown("another one");
    player.takeKeys();
    const auto found = modules.bringToFront(u"MOD"_qs);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->id, module);
    EXPECT_TRUE(isActive(module));
    EXPECT_FALSE(isActive(other));
    EXPECT_EQ(player.takeKeys(), QByteArrayList()) << "nothing is typed yet";
    modules.typeBlank(*found);
    own.sync();
    EXPECT_EQ(player.takeKeys(), (QByteArrayList{'+' + kBlankKey, '-' + kBlankKey}));
}

TEST_F(ModuleWindows, areFoundByTheOldTitleToo)
{
    withManager();
    const xcb_window_t module = player.makeWindow(XCB_ATOM_WM_NAME, "MOD");
    ASSERT_TRUE(eventually([&] { return isActive(module); }));
    shown("another one");
    const auto found = modules.bringToFront(u"MOD"_qs);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->id, module);
}

TEST_F(ModuleWindows, areNotThereUnderATitleThatIsNotTheirs)
{
    withManager();
    for (const char* title : {"MODULE", "MO", "mod", "A MOD", "MOD ", ""})
        shown(title);
    const xcb_window_t last = shown("the last one");
    EXPECT_FALSE(modules.bringToFront(u"MOD"_qs));
    EXPECT_TRUE(isActive(last)) << "nobody lost the keyboard";
}

TEST_F(ModuleWindows, getNoKeyOnceTheKeyboardIsAnothers)
{
    withManager();
    shown("MOD");
    const auto found = modules.bringToFront(u"MOD"_qs);
    ASSERT_TRUE(found);
    shown("another one");
    player.takeKeys();
    modules.typeBlank(*found);
    own.sync();
    EXPECT_EQ(player.takeKeys(), QByteArrayList());
}

TEST_F(ModuleWindows, areNotThereWithoutAWindowManager)
{
    titled("MOD");
    player.sync();
    EXPECT_FALSE(modules.bringToFront(u"MOD"_qs));
    modules.typeBlank({77}); // does nothing, and ends
}

// There is a list of windows, but nobody who gives them the keyboard.
TEST_F(ModuleWindows, areNotWaitedForLongerThanHalfASecond)
{
    const xcb_window_t module = titled("MOD");
    player.setProperty(player.root(), player.atom("_NET_CLIENT_LIST"), XCB_ATOM_WINDOW, 32,
                       ScreenClient::bytesOf(module));
    player.sync();
    QElapsedTimer clock;
    clock.start();
    EXPECT_FALSE(modules.bringToFront(u"MOD"_qs));
    EXPECT_GE(clock.elapsed(), 500) << "it may take a while";
    EXPECT_LT(clock.elapsed(), 5000);
    modules.typeBlank({module});
    own.sync();
    EXPECT_EQ(player.takeKeys(), QByteArrayList());
}

TEST_F(ModuleWindows, areNotThereOnceTheServerIsGone)
{
    withManager();
    shown("MOD");
    const auto found = modules.bringToFront(u"MOD"_qs);
    ASSERT_TRUE(found);
    screen.kill();
    EXPECT_FALSE(modules.bringToFront(u"MOD"_qs));
    modules.typeBlank(*found);
}

TEST(ModuleWindowsWithoutX, areNotThere)
{
    X11ModuleWindow nowhere([]() -> xcb_connection_t* { return nullptr; });
    EXPECT_FALSE(nowhere.bringToFront(u"MOD"_qs));
    nowhere.typeBlank({77});
    const std::unique_ptr<xcb_connection_t, void (*)(xcb_connection_t*)> refused(
        xcb_connect("unix:/nowhere/at/all:7", nullptr), xcb_disconnect);
    X11ModuleWindow unreachable([&] { return refused.get(); });
    EXPECT_FALSE(unreachable.bringToFront(u"MOD"_qs));
    unreachable.typeBlank({77});
}

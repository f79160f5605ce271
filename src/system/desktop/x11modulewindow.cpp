#include "system/desktop/x11modulewindow.h"

#include <QByteArray>
#include <QGuiApplication>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <thread>
#include <vector>

#include <xcb/xcb.h>

namespace {

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};
template <typename Reply>
using Answer = std::unique_ptr<Reply, Free>;

constexpr std::uint32_t kMostWords = 16384; // of a property

xcb_connection_t* connectionOfWindows()
{
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

xcb_window_t rootOf(xcb_connection_t* x)
{
    return xcb_setup_roots_iterator(xcb_get_setup(x)).data->root;
}

xcb_atom_t atom(xcb_connection_t* x, const char* name)
{
    const auto cookie = xcb_intern_atom(x, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
    const Answer<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(x, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

QByteArray property(xcb_connection_t* x, xcb_window_t window, xcb_atom_t name)
{
    const auto cookie = xcb_get_property(x, 0, window, name, XCB_ATOM_ANY, 0, kMostWords);
    const Answer<xcb_get_property_reply_t> reply(xcb_get_property_reply(x, cookie, nullptr));
    if (!reply)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            xcb_get_property_value_length(reply.get())};
}

std::vector<xcb_window_t> windowsIn(const QByteArray& value)
{
    std::vector<xcb_window_t> windows(static_cast<std::size_t>(value.size()) / sizeof(xcb_window_t));
    if (!windows.empty())
        std::memcpy(windows.data(), value.constData(), windows.size() * sizeof(xcb_window_t));
    return windows;
}

bool hasTitle(xcb_connection_t* x, xcb_window_t window, const QByteArray& title)
{
    return property(x, window, atom(x, "_NET_WM_NAME")) == title ||
           property(x, window, XCB_ATOM_WM_NAME) == title;
}

bool isActive(xcb_connection_t* x, xcb_window_t window)
{
    const auto active = windowsIn(property(x, rootOf(x), atom(x, "_NET_ACTIVE_WINDOW")));
    return !active.empty() && active.front() == window;
}

void activate(xcb_connection_t* x, xcb_window_t window)
{
    constexpr std::uint32_t kByTheUser = 2;
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(x, "_NET_ACTIVE_WINDOW");
    event.data.data32[0] = kByTheUser;
    xcb_send_event(x, 0, rootOf(x), XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&event));
    xcb_flush(x);
}

xcb_keycode_t keyOfBlank(xcb_connection_t* x)
{
    constexpr xcb_keysym_t kBlank = 0x20;
    const xcb_setup_t* setup = xcb_get_setup(x);
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const auto cookie = xcb_get_keyboard_mapping(x, setup->min_keycode, count);
    const Answer<xcb_get_keyboard_mapping_reply_t> reply(xcb_get_keyboard_mapping_reply(x, cookie, nullptr));
    if (!reply || reply->keysyms_per_keycode == 0)
        return 0;
    const xcb_keysym_t* first = xcb_get_keyboard_mapping_keysyms(reply.get());
    const xcb_keysym_t* end = first + xcb_get_keyboard_mapping_keysyms_length(reply.get());
    const xcb_keysym_t* found = std::find(first, end, kBlank);
    return found == end ? xcb_keycode_t(0)
                        : static_cast<xcb_keycode_t>(setup->min_keycode +
                                                     (found - first) / reply->keysyms_per_keycode);
}

std::optional<xcb_window_t> windowWith(xcb_connection_t* x, const QByteArray& title)
{
    const auto windows = windowsIn(property(x, rootOf(x), atom(x, "_NET_CLIENT_LIST")));
    const auto found = std::find_if(windows.begin(), windows.end(),
                                    [&](xcb_window_t window) { return hasTitle(x, window, title); });
    return found == windows.end() ? std::nullopt : std::optional(*found);
}

bool becomesActive(xcb_connection_t* x, xcb_window_t window)
{
    using Clock = std::chrono::steady_clock;
    constexpr auto kLongest = std::chrono::milliseconds(500);
    for (const auto end = Clock::now() + kLongest; Clock::now() < end;
         std::this_thread::sleep_for(std::chrono::milliseconds(10)))
        if (isActive(x, window))
            return true;
    return false;
}

void sendKey(xcb_connection_t* x, xcb_window_t window, xcb_keycode_t key, std::uint8_t type)
{
    xcb_key_press_event_t event{};
    event.response_type = type;
    event.detail = key;
    event.root = rootOf(x);
    event.event = window;
    event.same_screen = 1;
    xcb_send_event(x, 0, window, XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE,
                   reinterpret_cast<const char*>(&event));
}

} // namespace

X11ModuleWindow::X11ModuleWindow() : X11ModuleWindow(connectionOfWindows) {}

xcb_connection_t* X11ModuleWindow::connection() const
{
    xcb_connection_t* x = m_connection();
    return x && xcb_connection_has_error(x) == 0 ? x : nullptr;
}

std::optional<ForeignWindow> X11ModuleWindow::bringToFront(const QString& title)
{
    xcb_connection_t* x = connection();
    if (!x)
        return std::nullopt;
    const std::optional<xcb_window_t> found = windowWith(x, title.toUtf8());
    if (!found)
        return std::nullopt;
    activate(x, *found);
    return becomesActive(x, *found) ? std::optional(ForeignWindow{*found}) : std::nullopt;
}

void X11ModuleWindow::typeBlank(ForeignWindow window)
{
    xcb_connection_t* x = connection();
    if (!x || !isActive(x, window.id))
        return;
    const xcb_keycode_t key = keyOfBlank(x);
    if (key == 0)
        return;
    sendKey(x, window.id, key, XCB_KEY_PRESS);
    sendKey(x, window.id, key, XCB_KEY_RELEASE);
    xcb_flush(x);
}

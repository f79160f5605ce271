// Starts an X server of its own for one test, with or without a window manager, and programs with windows on
// it.
#pragma once

#include "tests/support/temporary.h"

#include <QProcess>

#include <csignal>
#include <memory>
#include <stdexcept>

#include <sys/prctl.h>
#include <xcb/xcb.h>

class Screen {
public:
    Screen()
    {
        begin(m_server, QStringLiteral("Xvfb"),
              {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-nolisten"),
               QStringLiteral("tcp"), QStringLiteral("-screen"), QStringLiteral("0"),
               QStringLiteral("640x480x24")});
        while (!m_name.endsWith('\n') && m_server.waitForReadyRead(10'000))
            m_name += m_server.readAllStandardOutput();
        if (!m_name.endsWith('\n'))
            throw std::runtime_error("no X server: " + m_server.readAllStandardError().toStdString());
        m_name = ':' + m_name.trimmed();
    }
    ~Screen() { kill(); }
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    QByteArray name() const { return m_name; }

    // Returns before it is at work.
    void startWindowManager()
    {
        begin(m_manager, QStringLiteral("openbox"), {QStringLiteral("--sm-disable")});
    }
    void kill()
    {
        for (QProcess* process : {&m_manager, &m_server}) {
            process->kill();
            process->waitForFinished();
        }
    }

private:
    void begin(QProcess& process, const QString& program, const QStringList& arguments)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("HOME"), QString::fromUtf8(m_directory.path()));
        environment.insert(QStringLiteral("DISPLAY"), QString::fromUtf8(m_name));
        process.setProcessEnvironment(environment);
        // A test that crashes must not leave a server behind.
        process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
        process.start(program, arguments);
        if (!process.waitForStarted())
            throw std::runtime_error("cannot start " + program.toStdString());
    }

    Temporary m_directory;
    QByteArray m_name;
    QProcess m_server;
    QProcess m_manager;
};

// Is a program on that screen, with windows.
class ScreenClient {
public:
    explicit ScreenClient(const Screen& screen) : m_x(xcb_connect(screen.name().constData(), nullptr)) {}
    ~ScreenClient() { xcb_disconnect(m_x); }
    ScreenClient(const ScreenClient&) = delete;
    ScreenClient& operator=(const ScreenClient&) = delete;

    xcb_connection_t* connection() const { return m_x; }

    xcb_window_t root() const { return screen().root; }
    xcb_atom_t atom(const QByteArray& name) const
    {
        const auto cookie =
            xcb_intern_atom(m_x, 0, static_cast<std::uint16_t>(name.size()), name.constData());
        const std::unique_ptr<xcb_intern_atom_reply_t, void (*)(void*)> reply(
            xcb_intern_atom_reply(m_x, cookie, nullptr), std::free);
        return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
    }

    // Brings it to the screen as far as this program can. It hears of keys.
    xcb_window_t makeWindow(xcb_atom_t titleProperty, const QByteArray& title)
    {
        const xcb_window_t window = xcb_generate_id(m_x);
        const std::uint32_t events = XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE;
        xcb_create_window(m_x, XCB_COPY_FROM_PARENT, window, root(), 10, 10, 100, 50, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, screen().root_visual, XCB_CW_EVENT_MASK, &events);
        setProperty(window, titleProperty, XCB_ATOM_STRING, 8, title);
        xcb_map_window(m_x, window);
        xcb_flush(m_x);
        return window;
    }
    void setProperty(xcb_window_t window, xcb_atom_t name, xcb_atom_t type, std::uint8_t bits,
                     const QByteArray& value) const
    {
        xcb_change_property(m_x, XCB_PROP_MODE_REPLACE, window, name, type, bits,
                            static_cast<std::uint32_t>(value.size() / (bits / 8)), value.constData());
        xcb_flush(m_x);
    }
    QByteArray property(xcb_window_t window, const QByteArray& name) const
    {
        const auto cookie = xcb_get_property(m_x, 0, window, atom(name), XCB_ATOM_ANY, 0, 1000);
        const std::unique_ptr<xcb_get_property_reply_t, void (*)(void*)> reply(
            xcb_get_property_reply(m_x, cookie, nullptr), std::free);
        if (!reply)
            return {};
        return {static_cast<const char*>(xcb_get_property_value(reply.get())),
                xcb_get_property_value_length(reply.get())};
    }
    static QByteArray bytesOf(xcb_window_t window)
    {
        return {reinterpret_cast<const char*>(&window), sizeof window};
    }
    // Waits for all that the server was told before.
    void sync() const { atom("WM_STATE"); }

    // Returns the keys that came since the last call, "+65" for a press and "-65" for a release, apart.
    QByteArrayList takeKeys()
    {
        sync();
        QByteArrayList keys;
        for (;;) {
            const std::unique_ptr<xcb_generic_event_t, void (*)(void*)> event(xcb_poll_for_event(m_x),
                                                                              std::free);
            if (!event)
                return keys;
            const int type = event->response_type & 0x7f;
            const auto* key = reinterpret_cast<const xcb_key_press_event_t*>(event.get());
            if (type == XCB_KEY_PRESS || type == XCB_KEY_RELEASE)
                keys += (type == XCB_KEY_PRESS ? '+' : '-') + QByteArray::number(key->detail);
        }
    }

private:
    const xcb_screen_t& screen() const { return *xcb_setup_roots_iterator(xcb_get_setup(m_x)).data; }

    xcb_connection_t* m_x;
};

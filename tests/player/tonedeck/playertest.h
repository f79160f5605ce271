// Has the player's window in use: with its pointer and keys at the window system's level, its devices, its
// store.
#pragma once

#include "tests/support/hung.h"
#include "tests/support/tonedecktest.h"

#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QTest>
#include <QTimer>
#include <QWindow>

struct PlayerTest : TonedeckTest {
    // --- what is there before it loads ---

    QStringList songs(const QStringList& names) { return world.songs(names); }
    // Makes the list of the next start.
    void startWith(const QStringList& names)
    {
        world.directory.write("program/playlist.m3u", songs(names).join(u"\r\n"_qs).toUtf8() + "\r\n");
        store(u"StartMd"_qs, u"1"_qs);
    }

    // --- the window ---

    // Returns it shown, with its devices told nothing yet.
    frmTonedeck& shown()
    {
        loaded().showForm();
        QCoreApplication::processEvents();
        w().Timer1->setInterval(1'000'000'000); // a test ticks by itself
        w().Timer2->setInterval(1'000'000'000);
        clearNotes();
        return w();
    }
    frmTonedeck& w() { return *owned; }
    // Serves for a window that a handler has unloaded: it deletes itself.
    void expectGone()
    {
        EXPECT_TRUE(owned->isGone());
        static_cast<void>(owned.release());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(media.devicesInUse(), 0);
    }

    QString label(Label label) { return w().controls.Lbl[label]->text(); }
    QStringList names()
    {
        QStringList names;
        for (const PlaylistEntry& entry : w().playlist().entries())
            names += entry.name;
        return names;
    }
    // Returns the numbers of the lights that are on.
    QList<int> lights()
    {
        QList<int> numbers;
        for (int number = 1; number <= kLights; ++number)
            if (!w().controls.Light[number]->isHidden())
                numbers += number;
        return numbers;
    }

    // --- its devices ---

    NotingDevice& device(std::size_t index = 0) { return *media.devices[index]; }
    void clearNotes()
    {
        for (const auto& device : media.devices)
            device->taken();
    }
    QStringList notes(std::size_t index = 0) { return device(index).taken(); }
    void tickAt(qint32 milliseconds, std::size_t index = 0)
    {
        device(index).positionMs = milliseconds;
        w().Timer1_Timer();
    }

    inline static const QStringList kStarts{u"close"_qs, u"open"_qs, u"from 0"_qs, u"play"_qs};
    inline static const QStringList kRewinds{u"from 0"_qs, u"seek"_qs, u"stop"_qs};
    static QStringList jumpsTo(int milliseconds)
    {
        return {u"stop"_qs, u"from "_qs + QString::number(milliseconds), u"Play"_qs};
    }

    // --- the pointer and the keyboard ---

    QWindow* system() { return w().windowHandle(); }
    void moveTo(int x, int y) { QTest::mouseMove(system(), {x, y}); }
    void pressAt(int x, int y, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mousePress(system(), button, {}, {x, y});
    }
    void releaseAt(int x, int y, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseRelease(system(), button, {}, {x, y});
    }
    void clickAt(int x, int y)
    {
        moveTo(x, y);
        pressAt(x, y);
        releaseAt(x, y);
    }
    // Types a character, as the keyboard gives it.
    void type(char16_t key, Qt::KeyboardModifiers modifiers = {})
    {
        const auto code = static_cast<Qt::Key>(QChar(key).toUpper().unicode());
        QTest::sendKeyEvent(QTest::Click, system(), code, QString(QChar(key)), modifiers);
    }
    void press(Qt::Key key, const QString& text = {})
    {
        QTest::sendKeyEvent(QTest::Click, system(), key, text, Qt::NoModifier);
    }

    // Drops a list of addresses, as another program gives it. Returns true when the target takes it.
    bool drop(QWidget& target, const QByteArray& list, const QString& format = u"text/uri-list"_qs)
    {
        QMimeData data;
        data.setData(format, list);
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QCoreApplication::sendEvent(&target, &enter);
        const bool taken = enter.isAccepted();
        if (taken) {
            QDropEvent dropped({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(&target, &dropped);
        }
        return taken;
    }
};

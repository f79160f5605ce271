// Has a player that writes down what it is asked, its controls on a bus of the test's own, and somebody
// there.
#pragma once

#include "system/mpris/mpris.h"
#include "tests/support/busclient.h"
#include "tests/support/hung.h"
#include "tests/support/messagebus.h"

#include <QStringList>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>

class RecordingPlayer : public ControlledPlayer {
public:
    PlayerReport report() override
    {
        ++reports;
        return state;
    }
    void play() override { note(QStringLiteral("play")); }
    void pause() override { note(QStringLiteral("pause")); }
    void playPause() override { note(QStringLiteral("playPause")); }
    void stop() override { note(QStringLiteral("stop")); }
    void next() override { note(QStringLiteral("next")); }
    void previous() override { note(QStringLiteral("previous")); }
    void goTo(qint32 position) override { note(QStringLiteral("goTo %1").arg(position)); }
    void setShuffle(bool on) override { note(QStringLiteral("setShuffle %1").arg(on)); }
    void setRepeatsEntry(bool on) override { note(QStringLiteral("setRepeatsEntry %1").arg(on)); }
    void setVolume(double volume) override { note(QStringLiteral("setVolume %1").arg(volume)); }
    void openAndPlay(const QString& address) override { note(QStringLiteral("openAndPlay ") + address); }
    void bringToFront() override { note(QStringLiteral("bringToFront")); }
    void quit() override { note(QStringLiteral("quit")); }

    PlayerReport state = {.status = PlayerReport::Playing,
                          .entry = 3,
                          .entries = 7,
                          .title = QStringLiteral("Blåbær"),
                          .artist = QStringLiteral("Trio"),
                          .album = QStringLiteral("Skog"),
                          .file = "/music/3 #\xe6%.mp3",
                          .cover = "/music/front.png",
                          .length = 200000,
                          .position = 50000,
                          .shuffle = false,
                          .repeatsEntry = false,
                          .volume = 0.25};
    int reports = 0;
    QStringList calls{};
    std::function<void()> onCall{};

private:
    void note(const QString& call)
    {
        calls += call;
        if (onCall)
            onCall();
    }
};

struct MprisTest : testing::Test {
    MprisTest()
    {

        EXPECT_TRUE(QTest::qWaitFor([&] { return client.sees(QString::fromUtf8(kPlayerName)); }, kHung));
    }

    QStringList callsAfter(const char* interface, const char* method, const QVariantList& arguments = {})
    {
        player.calls.clear();
        answer = client.call(interface, method, arguments);
        return settledCalls();
    }
    QStringList callsAfterSet(const char* property, const QVariant& value)
    {
        player.calls.clear();
        answer = client.set(property, value);
        return settledCalls();
    }
    // What was asked before has reached the player when a later question is answered.
    QStringList settledCalls()
    {
        client.get(kApplicationInterface, "Identity");
        return player.calls;
    }
    bool isAnswered() const { return answer.type() == QDBusMessage::ReplyMessage; }

    MessageBus bus;
    BusClient client{bus.address()};
    RecordingPlayer player;
    std::unique_ptr<DesktopControls> controls = makeMprisControls(player);
    QDBusMessage answer;
};

// Has the player's window with a desktop that notes what it is told.
#pragma once

#include "tests/player/tonedeck/playertest.h"

#include <QFile>

#include <vector>

struct NotingControls : DesktopControls {
    explicit NotingControls(ControlledPlayer& controlled) : player(controlled) {}

    void refresh() override
    {
        ++refreshed;
        if (asks)
            last = player.report();
        if (note)
            note(last);
    }
    void jumped(qint32 position) override { jumps.push_back(position); }

    ControlledPlayer& player;
    PlayerReport last;
    int refreshed = 0;
    bool asks = true;
    std::function<void(const PlayerReport&)> note;
    std::vector<int> jumps;
};

struct Desktop : PlayerTest {
    Desktop()
    {
        context.desktopControls = [this](ControlledPlayer& player) {
            asked = &player;
            auto made = std::make_unique<NotingControls>(player);
            made->asks = false; // not from within the window's making
            controls = made.get();
            return made;
        };
        writeSkin("S1,10,60,40,0,150,20,8,6,Position\n");
        startWith({u"a.mp3"_qs, u"b.wav"_qs, u"c.mp3"_qs});
        const auto field = [](const QByteArray& text) { return text.leftJustified(30, ' '); };
        world.directory.write("disk/a.mp3", QByteArray(300, 'x') + "TAG" + field("The Title") +
                                                field("The Artist") + field("The Album") + "1999" +
                                                field("") + '\x05');
        window();
        controls->asks = true;
        shown();
        controls->refreshed = 0;
        controls->jumps.clear();
    }

    ControlledPlayer* asked = nullptr;
    NotingControls* controls = nullptr;
};

// Has a player with three songs and a skin that shows what it does.
#pragma once

#include "tests/player/tonedeck/playertest.h"

#include <QFile>

// Has every light, a display of letters for the name at 0, 40, and one of digits for the track's number at 0,
// 60.
inline QByteArray playersSkin()
{
    QByteArray lines =
        "D6,0,40,0,0,8,8,4,1,0,10,Name\nD2,0,60,0,0,9,13,4,0,0,3,Track\nD1,60,60,0,0,9,13,4,0,0,0,Time\n"
        "S1,70,30,40,0,150,20,8,6,Position\nB31,0,0,1,1,0,0,~,B\n";
    for (int light = 1; light <= kLights; ++light)
        lines +=
            'I' + QByteArray::number(light) + ',' + QByteArray::number(4 * light) + ",2,3,3,255,0,0,0,x\n";
    return lines;
}

struct Plays : PlayerTest {
    Plays()
    {
        writeSkin(playersSkin());
        startWith({u"Alpha.mp3"_qs, u"Beta.wav"_qs, u"Gamma.mid"_qs});
        shown();
    }
    bool playing() { return w().engine().IsPlaying(); }
    int track() { return w().playlist().CurTrack(); }
    QStringList both() { return notes(0) + notes(1); }
    void expectNothingFor(int code)
    {
        const QImage before = w().face();
        w().DoIt(code);
        EXPECT_EQ(both(), QStringList()) << code;
        EXPECT_TRUE(w().face() == before) << code;
        EXPECT_EQ(track(), 1) << code;
        EXPECT_EQ(w().playlist().count(), 3) << code;
        EXPECT_TRUE(world.dialogs.asked.isEmpty()) << code;
        EXPECT_TRUE(world.dialogs.messages.empty()) << code;
    }
};

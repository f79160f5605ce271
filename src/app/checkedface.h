// Shows the face of a skin that is checked, without a player, with what a player in use would show.
#pragma once

#include "player/face/face.h"
#include "player/face/facehost.h"
#include "player/playlist/playlist.h"
#include "player/tonedeck/clockpanel.h"
#include "player/tonedeck/skinloader.h"

class CheckedFace : private FaceHost {
public:
    explicit CheckedFace(const PlayerContext& context);

    void showSample();

    Face face;
    SkinLoader loader;

private:
    // Every face has room at its own pixels.
    QSize room() const override { return {4096, 4096}; }
    DisplayClock clock() const override { return m_clock.clock(); }
    bool scrollsName() const override { return false; }

    void skinLoads(bool begins) override;
    void faceSized() override { face.setFixedSize(face.controls.scale.window()); }
    void placeByCode(int) override {}
    void outlineChanged() override;
    void Form_Paint() override;
    void ShowLights() override { face.showLights({}); }

    // Nobody uses it.
    void command(int) override {}
    void volumeWished(float) override {}
    void positionWished(float) override {}

    void showSampleList();

    PlayerContext m_context;
    ClockPanel m_clock;
    Playlist m_list;
    PlaylistModel m_names;
};

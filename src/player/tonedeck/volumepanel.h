// Shows the volume on the face, by its sliders, its text and the light of the mute, and has the commands that
// change it.
#pragma once

#include <QtGlobal>

class Face;
class PlaybackView;
class Player;
class PlayerWindow;

class VolumePanel {
public:
    VolumePanel(Face& face, Player& player, PlaybackView& view, PlayerWindow& window)
        : m_face(face), m_player(player), m_view(view), m_window(window)
    {
    }

    // Is called at start: what was there before a mute is known only once the system has told its volume,
    // which is asked for until then.
    void settle();
    // When somebody else has changed it, the text and the lights follow.
    void showVolume();

    float volume() const;            // from 0 to 1
    void changeVolume(float wished); // what lies beyond 0 and 1 is brought there
    void changeVolumeBy(int percent);
    bool muted() const;
    void toggleMute();
    void ShowMixer();

private:
    void settle(int pause);
    void settleLater(int pause);
    void placeVolume(float value);
    void tellVolume(int percent);

    Face& m_face;
    Player& m_player;
    PlaybackView& m_view;
    PlayerWindow& m_window;
    float m_shownVolume = -1;
};

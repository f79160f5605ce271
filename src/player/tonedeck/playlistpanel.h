// Shows the playlist on the face: its names, its paths, its name and how long it is, and the entry that
// plays.
#pragma once

class Face;
class Player;
class PlayerWindow;
class PlaylistModel;

class PlaylistPanel {
public:
    // What the user does to the list goes to the player.
    PlaylistPanel(Face& face, Player& player, PlayerWindow& window);

    void showList(); // after each change
    void markPlaying();

private:
    void connectBox(PlayerWindow& window);

    Face& m_face;
    Player& m_player;
    PlaylistModel* m_names;
    PlaylistModel* m_paths;
};

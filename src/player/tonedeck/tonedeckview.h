// Shows on the face what the player and its engine tell, and answers what they ask.
#pragma once

#include "player/displays/statelights.h"
#include "player/playback/playbackview.h"

class CoverKeeper;
class DesktopPlayer;
class Face;
class OneBox;
class Player;
class PlayerWindow;
class PlaylistPanel;
class QTimer;

class TonedeckView : public PlaybackView {
public:
    struct Panels {
        Face& face;
        Player& player;
        PlaylistPanel& list;
        CoverKeeper& cover;
        DesktopPlayer& desktop;
        OneBox& box;
        PlayerWindow& window;
        QTimer& timer1;
    };

    explicit TonedeckView(const Panels& panels) : m_panels(panels) {}

    void enableTimer1(bool on) override;
    bool yield() override;
    bool closed() const override;

    void showName(const QString& name) override;
    void showEntryNumber(int number) override;
    void showBitRate(const QString& text, double value) override;
    void showSampling(const QString& text, double value) override;
    void showMode(const QString& text) override;
    void clearFacts() override;
    void showTime(const QString& text, int seconds) override;
    void showLength(const QString& text) override;
    void offerPosition() override;
    bool followsPosition() const override;
    void showPosition(float part) override;
    void showLights() override;

    bool stoppedLightShown() const override;
    bool hasButtonB() const override;

    void loadCover(const QString& path) override;
    void loadTagCover(const QString& directory, TagRecord& tag) override;
    void clearCover() override;

    void startModulePlayer() override;
    void reportError(const QString& text) override;
    void paintMeanwhile() override;
    void say(const QString& text) override;

    // --- beyond what they ask ---

    void Form_Paint(); // all displays
    void showTrack();  // on its display alone
    void ShowMarks();  // part of the lights: all that follows a file's facts
    void showList();   // after each change of it

private:
    PlayerFlags flags() const;

    Panels m_panels;
    int m_entriesTold = 0; // to the desktop
};

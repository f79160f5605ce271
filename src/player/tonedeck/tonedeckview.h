// What the playback engine shows and asks, on the player's window.
#pragma once

#include "player/playback/playbackview.h"
#include "player/skin/skinelements.h"

class frmTonedeck;

class TonedeckView : public PlaybackView {
public:
    explicit TonedeckView(frmTonedeck& window) : m_window(window) {}

    void enableTimer1(bool on) override;
    bool yield() override;

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

    void startModulePlayer() override;
    void reportError(const QString& text) override;
    void paintMeanwhile() override;
    void say(const QString& text) override;

private:
    void caption(Label label, const QString& text);

    frmTonedeck& m_window;
};

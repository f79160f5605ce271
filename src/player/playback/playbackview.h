// Says what the player and its engine show, and what they ask of a window.
#pragma once

#include <QString>

struct TagRecord;

class PlaybackView {
public:
    virtual ~PlaybackView() = default;

    virtual void enableTimer1(bool on) = 0; // a tick every 100 ms
    virtual bool yield() = 0; // to the event loop; false when the window has been closed meanwhile
    virtual bool closed() const = 0;

    virtual void showName(const QString& name) = 0; // of the current entry
    virtual void showEntryNumber(int number) = 0;   // 1-based
    virtual void showBitRate(const QString& text, double value) = 0;
    virtual void showSampling(const QString& text, double value) = 0;
    virtual void showMode(const QString& text) = 0;
    virtual void clearFacts() = 0; // these three
    virtual void showTime(const QString& text, int seconds) = 0;
    virtual void showLength(const QString& text) = 0;
    virtual void offerPosition() = 0;          // the slider, when the skin has one
    virtual bool followsPosition() const = 0;  // it is there, and the user does not hold it
    virtual void showPosition(float part) = 0; // from 0 to 1
    virtual void showLights() = 0;

    virtual bool stoppedLightShown() const = 0; // state light 2
    virtual bool hasButtonB() const = 0;        // one for the end of the repeat alone

    virtual void loadCover(const QString& path) = 0;
    virtual void loadTagCover(const QString& directory, TagRecord& tag) = 0;
    virtual void clearCover() = 0;

    virtual void startModulePlayer() = 0; // gives the window "MOD" its start key, when there is one
    virtual void reportError(const QString& text) = 0;
    // Paints, and lets nothing else happen, while a device is waited for.
    virtual void paintMeanwhile() = 0;
    virtual void say(const QString& text) = 0; // in the status line
};

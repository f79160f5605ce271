// Is a player's face that notes what it shows.
#pragma once

#include "player/playback/playbackview.h"

#include <QStringList>

#include <functional>

class NotingFace : public PlaybackView {
public:
    void enableTimer1(bool on) override { timer = on; }
    bool yield() override
    {
        ++yields;
        return !isClosed;
    }
    bool closed() const override { return isClosed; }
    void showName(const QString& text) override { name = text; }
    void showEntryNumber(int shown) override { number = shown; }
    void showBitRate(const QString& text, double) override { facts += text; }
    void showSampling(const QString& text, double) override { facts += text; }
    void showMode(const QString& text) override { facts += text; }
    void clearFacts() override { facts.clear(); }
    void showTime(const QString& text, int) override { times += text; }
    void showLength(const QString& text) override { length = text; }
    void offerPosition() override { ++offered; }
    bool followsPosition() const override { return follows; }
    void showPosition(float part) override { position = part; }
    void showLights() override { ++lights; }
    bool stoppedLightShown() const override { return stopped; }
    bool hasButtonB() const override { return buttonB; }
    void loadCover(const QString& path) override { covers += path; }
    void loadTagCover(const QString& directory, TagRecord&) override { covers += u"tag "_qs + directory; }
    void clearCover() override { covers += u"none"_qs; }
    void startModulePlayer() override { ++handedOver; }
    void reportError(const QString& text) override
    {
        errors += text;
        if (whileReading)
            whileReading();
    }

    void paintMeanwhile() override { ++painted; }
    void say(const QString& text) override { said += text; }

    bool timer = false;
    bool follows = true;
    bool stopped = false;
    bool buttonB = false;
    bool isClosed = false;
    int painted = 0;
    int yields = 0, number = 0, offered = 0, lights = 0, handedOver = 0;
    float position = -1;
    QString name, length;
    QStringList facts, times, covers, errors, said;
    std::function<void()> whileReading; // the report of an error
};

// The desktop's own player controls and media keys show something of the player and ask something of it.
// Times are milliseconds.
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>

struct PlayerReport {
    enum Status { Stopped, Playing, Paused };

    Status status = Stopped;
    int entry = 0; // 1-based; 0: none
    int entries = 0;
    QString title{};
    QString artist{}; // empty when not known, as album
    QString album{};
    QByteArray file{};  // a path of this machine
    QByteArray cover{}; // likewise; empty: none
    qint32 length = 0;  // 0: not known
    qint32 position = 0;
    bool shuffle = false;
    bool repeatsEntry = false;
    double volume = 1; // from 0 to 1
};

// The desktop asks this. Each is called from the event loop and may unload the player's window, and with it
// destroy the controls; but for `report`, which changes nothing and is asked at any time, also while the
// player yields.
class ControlledPlayer {
public:
    virtual ~ControlledPlayer() = default;

    virtual PlayerReport report() = 0;
    virtual void play() = 0;  // goes on when paused
    virtual void pause() = 0; // does nothing unless it plays
    virtual void playPause() = 0;
    virtual void stop() = 0;
    virtual void next() = 0;
    virtual void previous() = 0;
    virtual void goTo(qint32 position) = 0;
    virtual void setShuffle(bool on) = 0;
    virtual void setRepeatsEntry(bool on) = 0;
    virtual void setVolume(double volume) = 0;
    virtual void openAndPlay(const QString& address) = 0; // a file address or a path of this machine
    virtual void bringToFront() = 0;
    virtual void quit() = 0;
};

class DesktopControls {
public:
    virtual ~DesktopControls() = default;

    // Tells the desktop what has changed since the last time.
    virtual void refresh() = 0;
    // Tells that the position has changed by more than the time that went by.
    virtual void jumped(qint32 position) = 0;
};

using MakeDesktopControls = std::function<std::unique_ptr<DesktopControls>(ControlledPlayer&)>;

// Gives the player to the desktop's controls and media keys.
#pragma once

#include "platform/desktopcontrols.h"
#include "player/tonedeck/playercommand.h"

#include <chrono>
#include <memory>
#include <optional>

class CoverKeeper;
class PlaybackEngine;

class DesktopPlayer : private ControlledPlayer {
public:
    using Clock = std::chrono::steady_clock;

    DesktopPlayer(const Parts& parts, const CoverKeeper& cover, const MakeDesktopControls& make);
    ~DesktopPlayer() override;

    void refresh();                             // something of the report may have changed
    void followPosition(Clock::time_point now); // after each tick: tells a jump

private:
    PlayerReport report() override;
    void play() override;
    void pause() override;
    void playPause() override;
    void stop() override;
    void next() override;
    void previous() override;
    void goTo(qint32 position) override;
    void setShuffle(bool on) override;
    void setRepeatsEntry(bool on) override;
    void setVolume(double volume) override;
    void openAndPlay(const QString& address) override;
    void bringToFront() override;
    void quit() override;

    void command(Command command);
    const PlaybackEngine& engine() const;
    PlayerReport::Status status() const;
    void describeEntry(PlayerReport& report) const;

    Parts m_parts;
    const CoverKeeper& m_cover;
    std::unique_ptr<DesktopControls> m_controls; // null: the desktop does not see the player
    qint32 m_position = 0;
    std::optional<Clock::time_point> m_followed; // when that was
};

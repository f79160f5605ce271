// Ends the silence that a killed program's mute has left, also when nobody opens the player.
#pragma once

#include "player/playback/mutenote.h"

#include <QObject>

#include <memory>

class MediaMachine;
class VolumeLevel;
class WaveVolume;

class LeftSilence : public QObject {
public:
    // Begins in the event loop, and asks for a volume only when there is something to bring back. All must
    // outlive it.
    LeftSilence(MediaMachine& media, UserSettings& store, const Program& program);
    ~LeftSilence() override;

private:
    void begin();
    void look();

    MediaMachine& m_media;
    UserSettings& m_store;
    const Program& m_program;
    std::unique_ptr<WaveVolume> m_volume; // until it is done
    std::unique_ptr<VolumeLevel> m_level;
    int m_pause;
};

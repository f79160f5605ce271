// Plays sound on this machine; it is made when the player's window needs it.
#pragma once

#include "platform/mediaelement.h"
#include "platform/wavevolume.h"

#include <memory>

class MediaMachine {
public:
    virtual ~MediaMachine() = default;

    virtual std::unique_ptr<MediaElement> makeDevice() = 0;
    virtual std::unique_ptr<WaveVolume> makeVolume() = 0;
};

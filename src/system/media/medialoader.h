// Takes the machine's media devices and volume out of a module that is loaded at the first call. It stays
// loaded: its threads may outlive whatever they were started for.
#pragma once

#include "platform/mediamachine.h"

#include <QByteArray>

class Drives;

class LoadedMediaMachine : public MediaMachine {
public:
    // Takes the module's absolute path. Its devices and volumes must be gone before `drives` is, not before
    // this.
    LoadedMediaMachine(QByteArray module, Drives& drives) : m_module(std::move(module)), m_drives(drives) {}

    // Of a module that is missing, damaged or of another build come a device whose "open" fails with
    // MediaError::kNoDriver and the reason, and a volume that nobody hears.
    std::unique_ptr<MediaElement> makeDevice() override { return machine().makeDevice(); }
    std::unique_ptr<WaveVolume> makeVolume() override { return machine().makeVolume(); }

private:
    MediaMachine& machine();

    QByteArray m_module;
    Drives& m_drives;
    std::unique_ptr<MediaMachine> m_machine;
};

// Has the module look at the media library's plug-ins, which is kept for the next time. It is false when it
// cannot.
bool prepareLoadedMedia(const QByteArray& module);

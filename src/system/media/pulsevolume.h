// Is the volume of the default sink of a PulseAudio server (PipeWire serves its clients too).
//
// A thread of its own connects, again and again while there is no server, and follows the sink; nobody waits
// for it. Nothing but `set` changes the volume. A word set while there is no server goes to the one that
// comes. Muting is not the volume and is left alone.
#pragma once

#include "platform/wavevolume.h"
#include "posix/descriptor.h"
#include "system/media/pendingvolume.h"

#include <memory>

class DefaultSink;
struct pa_io_event;
struct pa_threaded_mainloop;

class PulseVolume : public WaveVolume {
public:
    PulseVolume();
    ~PulseVolume() override;
    PulseVolume(const PulseVolume&) = delete;
    PulseVolume& operator=(const PulseVolume&) = delete;

    std::uint32_t get() override;
    void set(std::uint32_t word) override;
    bool isKnown() const override { return m_word.isKnown(); }

private:
    void lingerForLastWish();

    PendingVolume m_word;
    Descriptor m_wake; // readable: there is a wish
    pa_threaded_mainloop* m_thread = nullptr;
    pa_io_event* m_wakeEvent = nullptr;
    std::unique_ptr<DefaultSink> m_sink;
};

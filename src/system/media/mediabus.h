// Listens to a pipeline in whatever thread it speaks, and only takes notes.
#pragma once

#include "platform/mediaerror.h"
#include "system/media/gstpointer.h"

#include <atomic>
#include <mutex>

class MediaBus {
public:
    // Listens as long as it lives; the pipeline has to be in state NULL before that ends.
    // The sound's output may be given, to tell its failure from the medium's.
    explicit MediaBus(GstElement* pipeline, GstElement* sound = nullptr);
    ~MediaBus();
    MediaBus(const MediaBus&) = delete;
    MediaBus& operator=(const MediaBus&) = delete;

    bool ended() const { return m_ended; } // the last sample was heard
    void forgetEnd() { m_ended = false; }
    bool failed() const { return m_failed; }
    bool soundFailed() const { return m_soundFailed; } // which made it fail
    MediaError error() const;                          // the first one

private:
    static GstBusSyncReply listen(GstBus* bus, GstMessage* message, gpointer self);
    void note(GstMessage* message);
    void noteError(GstMessage* message);

    GstPointer<GstBus> m_bus;
    std::atomic<bool> m_ended = false;
    std::atomic<bool> m_failed = false;
    GstPointer<GstElement> m_sound;
    std::atomic<bool> m_soundFailed = false;
    std::atomic<bool> m_pluginMissing = false;
    mutable std::mutex m_mutex;
    MediaError m_error;
};
